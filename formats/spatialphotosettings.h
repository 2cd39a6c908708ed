// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The three parameters a spatial photo is written with, their defaults, how they are stored,
// and which typed values are valid.
#pragma once

#include <optional>

#include <QString>

namespace Vorel {

class Preferences;

struct SpatialPhotoSettings {
    double fov = 63.4;    // horizontal field of view, degrees
    int adj = 200;        // disparity adjustment
    double stb = 0.01924; // stereo base, metres

    // The stored values where usable (greater than zero; adj at least 1), else the defaults.
    static SpatialPhotoSettings load(const Preferences &preferences);
    void save(Preferences &preferences) const;
};

// Typed values: a decimal number strictly between 0 and 180; a decimal integer with an optional
// sign (zero and negatives included); a decimal number greater than 0. None when invalid.
std::optional<double> parseFieldOfView(const QString &text);
std::optional<int> parseDisparityAdjustment(const QString &text);
std::optional<double> parseStereoBase(const QString &text);

} // namespace Vorel
