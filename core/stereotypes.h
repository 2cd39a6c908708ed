// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Value types shared by the whole stereo pair core: the manual adjustment, a pair of
// images and the display modes.
#pragma once

#include <array>

#include <QImage>

namespace Vorel {

// Manual alignment. Offsets are in percent of the left image's *width* (both of them),
// rotation in degrees (split +r/2 left, -r/2 right), scale in percent (left x(1+s/200),
// right x(1-s/200)). All zero is neutral.
struct StereoAdjustment {
    double horizontalOffset = 0;
    double verticalOffset = 0;
    double rotation = 0;
    double scale = 0;

    bool operator==(const StereoAdjustment &) const = default;
};

// Two images; QImage shares its pixels implicitly, so copying a pair never copies pixels.
struct ImagePair {
    QImage left;
    QImage right;
};

enum class DisplayMode { sbs, anaglyph, anaglyphc, anaglyphd, hsbs, imageBorder };

struct DisplayModeInfo {
    DisplayMode mode;
    const char *uiText; // menu and panel text
    int anaglyphKind;   // kind for renderAnaglyph, -1 when not an anaglyph
};

inline constexpr std::array<DisplayModeInfo, 6> displayModes{{
    {DisplayMode::sbs, "Side by Side", -1},
    {DisplayMode::anaglyph, "Gray Anaglyph", 0},
    {DisplayMode::anaglyphc, "Color Anaglyph", 1},
    {DisplayMode::anaglyphd, "Dubois Anaglyph", 2},
    {DisplayMode::hsbs, "Half SBS", -1},
    {DisplayMode::imageBorder, "Image with Border", -1},
}};

inline constexpr const DisplayModeInfo &displayModeInfo(DisplayMode mode)
{
    return displayModes[static_cast<size_t>(mode)];
}

} // namespace Vorel
