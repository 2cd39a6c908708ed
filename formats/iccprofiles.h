// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// ICC profiles made from a description, for pictures that state their colour space by other
// means than a profile (HEIF nclx, PNG cHRM/gAMA, a camera's Exif "Adobe RGB"), so that every
// source reaches the colour conversion in one form.
#pragma once

#include <QByteArray>

namespace Vorel {

// CIE xy of the white point and the three primaries.
struct Chromaticities {
    double whiteX, whiteY, redX, redY, greenX, greenY, blueX, blueY;
};

inline constexpr Chromaticities srgbChromaticities{0.3127, 0.3290, 0.64, 0.33, 0.30, 0.60, 0.15, 0.06};

// How encoded values relate to linear light.
struct ToneCurve {
    enum Kind { srgb, rec709, power } kind;
    double gamma = 1; // with power: linear = encoded ^ gamma
};

// A matrix/TRC RGB display profile; empty if it cannot be built.
QByteArray rgbIccProfile(const Chromaticities &primaries, ToneCurve curve);

// Adobe RGB (1998), for camera JPEGs that say so only in their Exif data.
QByteArray adobeRgbIccProfile();

} // namespace Vorel
