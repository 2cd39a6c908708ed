// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/spatialphotosettings.h"

#include "core/decimaltext.h"
#include "core/preferences.h"

namespace Vorel {

namespace {

const QString fovKey = QStringLiteral("spatialPhoto.fov");
const QString adjKey = QStringLiteral("spatialPhoto.adj");
const QString stbKey = QStringLiteral("spatialPhoto.stb");

} // namespace

SpatialPhotoSettings SpatialPhotoSettings::load(const Preferences &preferences)
{
    SpatialPhotoSettings settings;
    if (const double fov = preferences.number(fovKey); fov > 0)
        settings.fov = fov;
    if (const int adj = preferences.integer(adjKey); adj >= 1)
        settings.adj = adj;
    if (const double stb = preferences.number(stbKey); stb > 0)
        settings.stb = stb;
    return settings;
}

void SpatialPhotoSettings::save(Preferences &preferences) const
{
    preferences.setNumber(fovKey, fov);
    preferences.setInteger(adjKey, adj);
    preferences.setNumber(stbKey, stb);
}

std::optional<double> parseFieldOfView(const QString &text)
{
    const std::optional<double> value = parseDecimalNumber(text);
    return value && *value > 0 && *value < 180 ? value : std::nullopt;
}

std::optional<int> parseDisparityAdjustment(const QString &text)
{
    return parseDecimalInteger(text);
}

std::optional<double> parseStereoBase(const QString &text)
{
    const std::optional<double> value = parseDecimalNumber(text);
    return value && *value > 0 ? value : std::nullopt;
}

} // namespace Vorel
