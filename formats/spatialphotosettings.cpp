// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/spatialphotosettings.h"

#include <QRegularExpression>

#include "core/preferences.h"

namespace Vorel {

namespace {

const QString fovKey = QStringLiteral("spatialPhoto.fov");
const QString adjKey = QStringLiteral("spatialPhoto.adj");
const QString stbKey = QStringLiteral("spatialPhoto.stb");

std::optional<double> decimal(const QString &text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || text != text.trimmed()) // toDouble ignores surrounding blanks; a typed value may not have them
        return std::nullopt;
    return value;
}

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
    const std::optional<double> value = decimal(text);
    return value && *value > 0 && *value < 180 ? value : std::nullopt;
}

std::optional<int> parseDisparityAdjustment(const QString &text)
{
    static const QRegularExpression integer(QStringLiteral("^[+-]?[0-9]+$"));
    bool ok = false;
    const int value = text.toInt(&ok);
    return ok && integer.match(text).hasMatch() ? std::optional(value) : std::nullopt;
}

std::optional<double> parseStereoBase(const QString &text)
{
    const std::optional<double> value = decimal(text);
    return value && *value > 0 ? value : std::nullopt;
}

} // namespace Vorel
