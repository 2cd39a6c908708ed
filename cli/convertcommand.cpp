// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/convertcommand.h"

#include <cstdio>
#include <iostream>
#include <string>

#include <QFileInfo>

#include <unistd.h>

#include "align/autoalign.h"
#include "align/colormatching.h"
#include "border/borderedpair.h"
#include "cli/convertoptions.h"
#include "core/preferences.h"
#include "core/stereoimageprocessor.h"
#include "formats/imagewriter.h"
#include "formats/spatialphoto.h"
#include "formats/spatialphotosettings.h"

namespace Vorel {

namespace {

// Asks on the terminal; without one (scripts, CI) an existing file is never replaced silently.
bool mayOverwrite(const ConvertOptions &options)
{
    if (options.overwrite || !QFileInfo::exists(options.outputPath))
        return true;
    if (!isatty(STDIN_FILENO))
        return false;
    std::cerr << "Overwrite " << options.outputPath.toStdString() << "? [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

bool writeOutput(StereoImageProcessor &proc, const ConvertOptions &options)
{
    if (options.spatialOutput) {
        const SpatialPhotoSettings stored = SpatialPhotoSettings::load(Preferences());
        try {
            return proc.saveAsSpatialPhoto(options.outputPath, options.disparityAdjustment.value_or(stored.adj),
                                           options.fov.value_or(stored.fov), options.stereoBase.value_or(stored.stb));
        } catch (const SpatialPhotoError &error) {
            throw ConvertError{error.description()};
        }
    }
    if (options.output == DisplayMode::imageBorder) {
        // The border as the user last set it up in the window.
        const Preferences preferences;
        const std::optional<QImage> framed = composeBorderedPair(proc, ImageBorderSettings::load(preferences), false);
        return framed && writeImage(*framed, options.outputPath);
    }
    const DisplayModeInfo &info = displayModeInfo(options.output);
    if (info.anaglyphKind >= 0) {
        const std::optional<QImage> anaglyph = proc.renderAnaglyph(info.anaglyphKind, false);
        return anaglyph && writeImage(*anaglyph, options.outputPath);
    }
    proc.isHalf = options.output == DisplayMode::hsbs;
    return proc.saveSideBySide(options.outputPath);
}

} // namespace

void runConvert(const ConvertOptions &options)
{
    if (!mayOverwrite(options))
        throw ConvertError{QStringLiteral("%1 exists; pass --yes to overwrite it").arg(options.outputPath)};

    StereoImageProcessor proc;
    const StereoEntry entry{options.input, options.right};
    if (options.inputKind == StereoFileKind::spatial) {
        // Asked for explicitly, a spatial photo that is none is an error, not a side-by-side picture.
        try {
            const ImagePair pair = readSpatialPhoto(options.input);
            proc.loadPair(pair.left, pair.right, true);
        } catch (const SpatialPhotoError &error) {
            throw ConvertError{error.description()};
        }
    } else if (!openEntry(proc, entry, options.inputKind)) {
        const bool leftReadable = QFileInfo(options.input).isReadable();
        const QString culprit = entry.isSeparatePair() && leftReadable ? options.right : options.input;
        throw ConvertError{QStringLiteral("cannot read a stereo pair from %1").arg(culprit)};
    }

    proc.isSwap = options.swap;
    if (options.autoAlign) {
        const std::optional<QImage> aligned = autoAlign(*proc.leftOriginal, *proc.rightOriginal);
        if (!aligned)
            throw ConvertError{QStringLiteral("automatic alignment found nothing to match in %1").arg(options.input)};
        proc.loadSideBySide(*aligned, false);
    }
    if (options.colourReferenceRight)
        matchColours(proc, *options.colourReferenceRight);
    if (options.adjustment)
        proc.adjustment = *options.adjustment;
    if (options.crop && !proc.cropPair(*options.crop))
        throw ConvertError{QStringLiteral("the crop rectangle lies outside the adjusted pair")};
    if (options.resize && !proc.resizePair(options.resize->width, options.resize->height, options.resize->mode))
        throw ConvertError{QStringLiteral("cannot resize the pair")};

    if (!writeOutput(proc, options))
        throw ConvertError{QStringLiteral("cannot write %1").arg(options.outputPath)};
}

} // namespace Vorel
