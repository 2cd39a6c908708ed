// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/batchsettings.h"

#include <cmath>
#include <limits>

#include <QCoreApplication>

#include "core/decimaltext.h"
#include "core/preferences.h"
#include "formats/spatialphotosettings.h"

namespace Vorel {

namespace {

QString key(const char *name) { return QLatin1String("batch.") + QLatin1String(name); }

// Integer keys may hold a number with a fraction (the crop command stores what the window
// measured): the integer part counts, as the stored integer would read.
int storedInteger(const Preferences &preferences, const char *name)
{
    const double value = std::trunc(preferences.number(key(name)));
    if (!(value > std::numeric_limits<int>::min() && value < std::numeric_limits<int>::max()))
        return 0;
    return int(value);
}

ResizeMode resizeModeFromCode(int code)
{
    return code == 1 ? ResizeMode::cropFit : code == 2 ? ResizeMode::letterbox : ResizeMode::stretch;
}

// Named apart from the settings struct; the texts keep the settings' translation context.
struct SettingsText {
    Q_DECLARE_TR_FUNCTIONS(BatchSettings)
};

} // namespace

BatchSettings BatchSettings::load(const Preferences &preferences, const std::optional<BatchCropSettings> &lastCrop,
                                  const std::optional<BatchResizeSettings> &lastResize)
{
    BatchSettings s;
    s.inputFolder = preferences.text(key("inputFolder"));
    s.outputFolder = preferences.text(key("outputFolder"));
    s.inputFormat = batchChoiceAt(batchInputFormats, storedInteger(preferences, "inputFormat"));
    s.outputFormat = batchChoiceAt(batchOutputFormats, storedInteger(preferences, "outputFormat"));
    s.fileFormat = batchChoiceAt(batchFileFormats, storedInteger(preferences, "fileFormat"));
    s.pairByName = preferences.flag(key("pairByName"));
    s.swapLR = preferences.flag(key("swapLR"));
    s.autoAdj = preferences.flag(key("autoAdj"));
    s.autoAdjCol = preferences.flag(key("autoAdjCol"));
    s.autoAdjColLeft = preferences.flag(key("autoAdjColLeft"));
    s.manualAdj = preferences.flag(key("manualAdj"));
    s.manualH = preferences.number(key("manualH"));
    s.manualV = preferences.number(key("manualV"));
    s.manualRot = preferences.number(key("manualRot"));
    s.manualScale = preferences.number(key("manualScale"));

    s.cropEnabled = preferences.flag(key("cropEnabled"));
    const BatchCropSettings crop =
        lastCrop.value_or(BatchCropSettings{storedInteger(preferences, "cropX"), storedInteger(preferences, "cropY"),
                                            storedInteger(preferences, "cropW"), storedInteger(preferences, "cropH")});
    s.cropX = crop.x;
    s.cropY = crop.y;
    s.cropW = crop.w;
    s.cropH = crop.h;

    s.resizeEnabled = preferences.flag(key("resizeEnabled"));
    if (lastResize) {
        s.resizeW = lastResize->w;
        s.resizeH = lastResize->h;
        s.resizeMode = lastResize->mode;
    } else {
        const int w = storedInteger(preferences, "resizeW");
        const int h = storedInteger(preferences, "resizeH");
        s.resizeW = w == 0 ? 1920 : w;
        s.resizeH = h == 0 ? 1080 : h;
        s.resizeMode = resizeModeFromCode(storedInteger(preferences, "resizeMode"));
    }

    const SpatialPhotoSettings spatial = SpatialPhotoSettings::load(preferences);
    s.spatialFov = spatial.fov;
    s.spatialAdj = spatial.adj;
    s.spatialStb = spatial.stb;
    return s;
}

void BatchSettings::save(Preferences &preferences) const
{
    preferences.setText(key("inputFolder"), inputFolder);
    preferences.setText(key("outputFolder"), outputFolder);
    preferences.setInteger(key("inputFormat"), int(inputFormat));
    preferences.setInteger(key("outputFormat"), int(outputFormat));
    preferences.setInteger(key("fileFormat"), int(fileFormat));
    const std::pair<const char *, bool> flags[] = {
        {"pairByName", pairByName}, {"swapLR", swapLR},       {"autoAdj", autoAdj},
        {"autoAdjCol", autoAdjCol}, {"autoAdjColLeft", autoAdjColLeft}, {"manualAdj", manualAdj},
        {"cropEnabled", cropEnabled}, {"resizeEnabled", resizeEnabled},
    };
    for (const auto &[name, value] : flags)
        preferences.setFlag(key(name), value);
    const std::pair<const char *, double> numbers[] = {
        {"manualH", manualH}, {"manualV", manualV}, {"manualRot", manualRot}, {"manualScale", manualScale}};
    for (const auto &[name, value] : numbers)
        preferences.setNumber(key(name), value);
    const std::pair<const char *, int> integers[] = {
        {"cropX", cropX},     {"cropY", cropY},     {"cropW", cropW},
        {"cropH", cropH},     {"resizeW", resizeW}, {"resizeH", resizeH},
        {"resizeMode", int(resizeMode)},
    };
    for (const auto &[name, value] : integers)
        preferences.setInteger(key(name), value);
    // Stored as they stand: a value the reader would replace by its default stays the user's.
    SpatialPhotoSettings{spatialFov, spatialAdj, spatialStb}.save(preferences);
}

std::optional<QString> BatchSettings::validate() const
{
    const auto isChosen = [](const QString &folder) {
        const QString trimmed = folder.trimmed();
        return !trimmed.isEmpty() && trimmed != QLatin1String(notSelected);
    };
    if (!isChosen(inputFolder))
        return SettingsText::tr("Please specify an input folder.");
    if (!isChosen(outputFolder))
        return SettingsText::tr("Please specify an output folder.");
    if (cropEnabled && (cropW < 1 || cropH < 1))
        return SettingsText::tr("Crop size (W, H) must be greater than 0.");
    if (resizeEnabled && (resizeW < 1 || resizeH < 1))
        return SettingsText::tr("Resize dimensions (W, H) must be greater than 0.");
    return std::nullopt;
}

std::string_view batchOutputExtension(const BatchSettings &settings)
{
    switch (settings.outputFormat) {
    case BatchOutputFormat::spatial:
        return "heic";
    case BatchOutputFormat::mpo:
        return "mpo";
    case BatchOutputFormat::jps:
        return "jps";
    default:
        return batchFileFormats[size_t(settings.fileFormat)].cliName;
    }
}

std::optional<DisplayMode> displayModeWritten(BatchOutputFormat format)
{
    static constexpr std::pair<BatchOutputFormat, DisplayMode> written[] = {
        {BatchOutputFormat::sbs, DisplayMode::sbs},
        {BatchOutputFormat::anaglyphGray, DisplayMode::anaglyph},
        {BatchOutputFormat::anaglyphColor, DisplayMode::anaglyphc},
        {BatchOutputFormat::anaglyphDubois, DisplayMode::anaglyphd},
        {BatchOutputFormat::halfSBS, DisplayMode::hsbs},
        {BatchOutputFormat::overUnder, DisplayMode::overUnder},
        {BatchOutputFormat::halfOverUnder, DisplayMode::halfOverUnder},
        {BatchOutputFormat::rowInterlaced, DisplayMode::rowInterlaced},
        {BatchOutputFormat::columnInterlaced, DisplayMode::columnInterlaced},
        {BatchOutputFormat::checkerboard, DisplayMode::checkerboard},
        {BatchOutputFormat::anaglyphDuboisAmberBlue, DisplayMode::anaglyphAmberBlue},
        {BatchOutputFormat::anaglyphDuboisGreenMagenta, DisplayMode::anaglyphGreenMagenta},
        {BatchOutputFormat::anaglyphHalfColor, DisplayMode::anaglyphHalfColor},
        {BatchOutputFormat::anaglyphOptimized, DisplayMode::anaglyphOptimized},
    };
    for (const auto &[output, mode] : written)
        if (output == format)
            return mode;
    return std::nullopt;
}

std::optional<int> truncatedDisparityAdjustment(const QString &text)
{
    const std::optional<double> value = parseDecimalNumber(text.trimmed());
    if (!value || !(std::abs(*value) < double(std::numeric_limits<int>::max())))
        return std::nullopt;
    return int(std::trunc(*value));
}

} // namespace Vorel
