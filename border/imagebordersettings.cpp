// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/imagebordersettings.h"

#include <algorithm>

#include <QString>

#include "core/preferences.h"

namespace Vorel {

namespace {

const QString layoutKey = QStringLiteral("ib.layoutKind");
const QString useBorderKey = QStringLiteral("ib.useBorder");
const QString borderWidthKey = QStringLiteral("ib.borderWidthPercent");
const QString cornerRadiusKey = QStringLiteral("ib.cornerRadiusPercent");
const QString blurKey = QStringLiteral("ib.borderBlur");
const QString useDotsKey = QStringLiteral("ib.useFusionDots");
const QString dotSizeKey = QStringLiteral("ib.fusionDotSizePercent");
const QString borderColorKey = QStringLiteral("ib.borderColor");
const QString dotColorKey = QStringLiteral("ib.fusionDotColor");

double numberOr(const Preferences &preferences, const QString &key, double fallback)
{
    return preferences.contains(key) ? preferences.number(key) : fallback;
}

bool flagOr(const Preferences &preferences, const QString &key, bool fallback)
{
    return preferences.contains(key) ? preferences.flag(key) : fallback;
}

// The red component alone decides whether a colour is stored; the others read 0 if missing.
SrgbColor colorOr(const Preferences &preferences, const QString &prefix, SrgbColor fallback)
{
    if (!preferences.contains(prefix + QLatin1String(".r")))
        return fallback;
    return {preferences.number(prefix + QLatin1String(".r")), preferences.number(prefix + QLatin1String(".g")),
            preferences.number(prefix + QLatin1String(".b")), preferences.number(prefix + QLatin1String(".a"))};
}

void saveColor(Preferences &preferences, const QString &prefix, const SrgbColor &color)
{
    preferences.setNumber(prefix + QLatin1String(".r"), color.red);
    preferences.setNumber(prefix + QLatin1String(".g"), color.green);
    preferences.setNumber(prefix + QLatin1String(".b"), color.blue);
    preferences.setNumber(prefix + QLatin1String(".a"), color.alpha);
}

} // namespace

BorderLayoutKind borderLayoutFromCode(int code)
{
    switch (code) {
    case 0:
        return BorderLayoutKind::sbs;
    case 1:
        return BorderLayoutKind::lrl;
    default:
        return BorderLayoutKind::lrrl;
    }
}

SrgbColor SrgbColor::fromQColor(const QColor &color)
{
    const QColor srgb = color.toRgb();
    return {srgb.redF(), srgb.greenF(), srgb.blueF(), srgb.alphaF()};
}

QColor SrgbColor::toQColor() const
{
    const auto unit = [](double v) { return static_cast<float>(std::clamp(v, 0.0, 1.0)); };
    return QColor::fromRgbF(unit(red), unit(green), unit(blue), unit(alpha));
}

ImageBorderSettings ImageBorderSettings::load(const Preferences &preferences)
{
    const ImageBorderSettings defaults;
    ImageBorderSettings s;
    if (preferences.contains(layoutKey))
        s.layoutKind = borderLayoutFromCode(preferences.integer(layoutKey));
    s.useBorder = flagOr(preferences, useBorderKey, defaults.useBorder);
    s.borderWidthPercent = numberOr(preferences, borderWidthKey, defaults.borderWidthPercent);
    s.borderColor = colorOr(preferences, borderColorKey, defaults.borderColor);
    s.cornerRadiusPercent = numberOr(preferences, cornerRadiusKey, defaults.cornerRadiusPercent);
    s.borderBlur = numberOr(preferences, blurKey, defaults.borderBlur);
    s.useFusionDots = flagOr(preferences, useDotsKey, defaults.useFusionDots);
    s.fusionDotColor = colorOr(preferences, dotColorKey, defaults.fusionDotColor);
    s.fusionDotSizePercent = numberOr(preferences, dotSizeKey, defaults.fusionDotSizePercent);
    return s;
}

void ImageBorderSettings::save(Preferences &preferences) const
{
    preferences.setInteger(layoutKey, static_cast<int>(layoutKind));
    preferences.setFlag(useBorderKey, useBorder);
    preferences.setNumber(borderWidthKey, borderWidthPercent);
    preferences.setNumber(cornerRadiusKey, cornerRadiusPercent);
    preferences.setNumber(blurKey, borderBlur);
    preferences.setFlag(useDotsKey, useFusionDots);
    preferences.setNumber(dotSizeKey, fusionDotSizePercent);
    saveColor(preferences, borderColorKey, borderColor);
    saveColor(preferences, dotColorKey, fusionDotColor);
}

} // namespace Vorel
