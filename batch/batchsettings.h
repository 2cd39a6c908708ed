// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The complete recipe of one batch run: folders, how the inputs hold their pairs, which steps
// run with which parameters, and the layout and file format written. Stored under "batch."
// (and the three "spatialPhoto." keys shared with the spatial photo dialog).
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include <QString>

#include "core/pairresize.h"
#include "core/stereotypes.h"

namespace Vorel {

class Preferences;

// Each enumeration is stored as its position, which is also the pop-up item index.
// New cases go at the end, so that stored integers keep their meaning.
enum class BatchInputFormat { sbs, spatial, separate, mpo, jps, overUnder };
enum class BatchOutputFormat {
    sbs,
    anaglyphGray,
    anaglyphColor,
    anaglyphDubois,
    halfSBS,
    spatial,
    separate,
    imageBorder,
    mpo,
    jps,
    overUnder,
    halfOverUnder,
    rowInterlaced,
    columnInterlaced,
    checkerboard,
    anaglyphDuboisAmberBlue,
    anaglyphDuboisGreenMagenta,
    anaglyphHalfColor,
    anaglyphOptimized,
};
enum class BatchFileFormat { jpg, png, tiff, heic };

// One row per case, in enumeration order: the `vorel-cli` name and the dialog text.
template <typename Enum> struct BatchChoice {
    Enum value;
    std::string_view cliName;
    const char *uiText; // translated in the batch dialog's context
};

inline constexpr std::array<BatchChoice<BatchInputFormat>, 6> batchInputFormats{{
    {BatchInputFormat::sbs, "sbs", QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "SBS Image")},
    {BatchInputFormat::spatial, "spatial", QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Spatial Photo")},
    {BatchInputFormat::separate, "separate",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Separate L/R Images")},
    {BatchInputFormat::mpo, "mpo", QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "MPO Image")},
    {BatchInputFormat::jps, "jps", QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "JPS/PNS Image")},
    {BatchInputFormat::overUnder, "over-under",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Over/Under Image")},
}};

inline constexpr std::array<BatchChoice<BatchOutputFormat>, 19> batchOutputFormats{{
    {BatchOutputFormat::sbs, "sbs", QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "SBS Image")},
    {BatchOutputFormat::anaglyphGray, "anaglyph-gray",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Gray Anaglyph")},
    {BatchOutputFormat::anaglyphColor, "anaglyph-color",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Color Anaglyph")},
    {BatchOutputFormat::anaglyphDubois, "anaglyph-dubois",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Dubois Anaglyph")},
    {BatchOutputFormat::halfSBS, "half-sbs", QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Half SBS")},
    {BatchOutputFormat::spatial, "spatial", QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Spatial Photo")},
    {BatchOutputFormat::separate, "separate",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Separate L/R Images")},
    {BatchOutputFormat::imageBorder, "border",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Image with Border")},
    {BatchOutputFormat::mpo, "mpo", QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "MPO (3-D camera)")},
    {BatchOutputFormat::jps, "jps", QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "JPS (stereo JPEG)")},
    {BatchOutputFormat::overUnder, "over-under", QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Over/Under")},
    {BatchOutputFormat::halfOverUnder, "half-over-under",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Half Over/Under")},
    {BatchOutputFormat::rowInterlaced, "row-interlaced",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Row Interlaced")},
    {BatchOutputFormat::columnInterlaced, "column-interlaced",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Column Interlaced")},
    {BatchOutputFormat::checkerboard, "checkerboard",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Checkerboard")},
    {BatchOutputFormat::anaglyphDuboisAmberBlue, "anaglyph-dubois-amber-blue",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Dubois Amber-Blue Anaglyph")},
    {BatchOutputFormat::anaglyphDuboisGreenMagenta, "anaglyph-dubois-green-magenta",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Dubois Green-Magenta Anaglyph")},
    {BatchOutputFormat::anaglyphHalfColor, "anaglyph-half-color",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Half Color Anaglyph")},
    {BatchOutputFormat::anaglyphOptimized, "anaglyph-optimized",
     QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Optimized Anaglyph")},
}};

// The CLI name doubles as the file extension written.
inline constexpr std::array<BatchChoice<BatchFileFormat>, 4> batchFileFormats{{
    {BatchFileFormat::jpg, "jpg", "JPG"},
    {BatchFileFormat::png, "png", "PNG"},
    {BatchFileFormat::tiff, "tiff", "TIFF"},
    {BatchFileFormat::heic, "heic", "HEIC"},
}};

// The case stored as `index`; an index out of range gives the first case.
template <typename Enum, size_t N> Enum batchChoiceAt(const std::array<BatchChoice<Enum>, N> &choices, int index)
{
    return index >= 0 && size_t(index) < N ? choices[size_t(index)].value : choices[0].value;
}

// The case named `name` on the command line, or none.
template <typename Enum, size_t N>
std::optional<Enum> batchChoiceNamed(const std::array<BatchChoice<Enum>, N> &choices, const QString &name)
{
    for (const BatchChoice<Enum> &choice : choices)
        if (name == QLatin1String(choice.cliName.data(), qsizetype(choice.cliName.size())))
            return choice.value;
    return std::nullopt;
}

struct BatchCropSettings {
    int x = 0, y = 0, w = 0, h = 0;
    bool operator==(const BatchCropSettings &) const = default;
};

struct BatchResizeSettings {
    int w = 1920, h = 1080;
    ResizeMode mode = ResizeMode::stretch;
    bool operator==(const BatchResizeSettings &) const = default;
};

struct BatchSettings {
    // What a folder label shows before a folder is chosen; it never counts as a folder.
    static constexpr const char *notSelected =
        QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "(Not selected)");

    QString inputFolder;
    QString outputFolder;
    BatchInputFormat inputFormat = BatchInputFormat::sbs;
    BatchOutputFormat outputFormat = BatchOutputFormat::sbs;
    BatchFileFormat fileFormat = BatchFileFormat::jpg;
    bool pairByName = false; // separate input: pair "a_L"/"a_R", "a-left"/"a-right", l/ and r/ files
    bool swapLR = false;
    bool autoAdj = false;
    bool autoAdjCol = false;
    bool autoAdjColLeft = false; // the "Left Reference" choice, handed to matchColours as its flag
    bool manualAdj = false;
    double manualH = 0;
    double manualV = 0;
    double manualRot = 0;
    double manualScale = 0;
    bool cropEnabled = false;
    int cropX = 0, cropY = 0, cropW = 0, cropH = 0;
    bool resizeEnabled = false;
    int resizeW = 1920, resizeH = 1080;
    ResizeMode resizeMode = ResizeMode::stretch;
    double spatialFov = 63.4;
    int spatialAdj = 200;
    double spatialStb = 0.01924;
    // Command line only, never stored: write no camera Exif into the outputs.
    bool stripMetadata = false;

    // Reads every key; `lastCrop` and `lastResize`, the viewer's latest interactive choices,
    // take the place of the stored crop and resize values when given.
    static BatchSettings load(const Preferences &preferences, const std::optional<BatchCropSettings> &lastCrop = {},
                              const std::optional<BatchResizeSettings> &lastResize = {});
    void save(Preferences &preferences) const;

    // The alert text of the first failed check (input folder, output folder, crop, resize), or
    // none when the settings can start a run.
    std::optional<QString> validate() const;

    bool operator==(const BatchSettings &) const = default;
};

// The extension of the files a run writes: the file format's, except for the outputs that
// are a container of their own (spatial photos, MPO, JPS).
std::string_view batchOutputExtension(const BatchSettings &settings);

// The display mode whose picture an output format writes; none for the outputs that are not
// one composed picture (spatial, separate, MPO, JPS) and for the framed `imageBorder`.
std::optional<DisplayMode> displayModeWritten(BatchOutputFormat format);

// The disparity adjustment as the dialog's field stores it: the number's integer part,
// truncated toward zero; none when the text is not a decimal number.
std::optional<int> truncatedDisparityAdjustment(const QString &text);

} // namespace Vorel
