// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: a corrupted preferences file. The batch, border and spatial photo settings load
// from it as usable values (finite numbers; spatial values in their ranges), and each record
// saved to an empty file loads back equal.
#include <cmath>

#include <QFile>

#include "batch/batchsettings.h"
#include "border/imagebordersettings.h"
#include "core/preferences.h"
#include "formats/spatialphotosettings.h"
#include "fuzz/fuzzinput.h"

namespace {

using namespace Vorel;
using Fuzz::check;

// The store caches files by name for the whole process: every run takes new names.
QString freshName(const char *stem)
{
    static int run = 0;
    return QStringLiteral("%1-%2.ini").arg(QLatin1String(stem)).arg(++run);
}

void checkColor(const SrgbColor &color)
{
    check(std::isfinite(color.red) && std::isfinite(color.green) && std::isfinite(color.blue) &&
          std::isfinite(color.alpha));
}

void checkUsable(const BatchSettings &batch, const ImageBorderSettings &border, const SpatialPhotoSettings &spatial)
{
    check(std::isfinite(batch.manualH) && std::isfinite(batch.manualV) && std::isfinite(batch.manualRot) &&
          std::isfinite(batch.manualScale));
    check(std::isfinite(border.borderWidthPercent) && std::isfinite(border.cornerRadiusPercent) &&
          std::isfinite(border.borderBlur) && std::isfinite(border.fusionDotSizePercent));
    checkColor(border.borderColor);
    checkColor(border.fusionDotColor);
    check(std::isfinite(spatial.fov) && spatial.fov > 0 && spatial.adj >= 1 && std::isfinite(spatial.stb) &&
          spatial.stb > 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString corruptPath = Fuzz::writeFile(Fuzz::bytes(data, size), freshName("corrupt"));
    const QString savedPath = Fuzz::folder() + QLatin1Char('/') + freshName("saved");
    {
        const Preferences corrupt(corruptPath);
        const BatchSettings batch = BatchSettings::load(corrupt);
        const ImageBorderSettings border = ImageBorderSettings::load(corrupt);
        const SpatialPhotoSettings spatial = SpatialPhotoSettings::load(corrupt);
        checkUsable(batch, border, spatial);
        batch.validate();

        Preferences saved(savedPath);
        batch.save(saved);
        border.save(saved);
        spatial.save(saved);
        saved.sync();
        const Preferences reread(savedPath);
        check(BatchSettings::load(reread) == batch);
        check(ImageBorderSettings::load(reread) == border);
        const SpatialPhotoSettings spatialAgain = SpatialPhotoSettings::load(reread);
        check(spatialAgain.fov == spatial.fov && spatialAgain.adj == spatial.adj && spatialAgain.stb == spatial.stb);
    }
    QFile::remove(corruptPath);
    QFile::remove(savedPath);
    return 0;
}
