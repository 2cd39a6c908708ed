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

// Stored as its position: new modes go at the end so that saved values keep their meaning.
enum class DisplayMode {
    sbs,
    anaglyph,
    anaglyphc,
    anaglyphd,
    hsbs,
    imageBorder,
    overUnder,
    halfOverUnder,
    rowInterlaced,
    columnInterlaced,
    checkerboard,
    anaglyphAmberBlue,
    anaglyphGreenMagenta,
    anaglyphHalfColor,
    anaglyphOptimized,
};

// The anaglyph kinds of renderAnaglyph; the first three are the values `nAnamode` has always held.
namespace AnaglyphKind {
inline constexpr int gray = 0, colour = 1, duboisRedCyan = 2, duboisAmberBlue = 3, duboisGreenMagenta = 4,
                     halfColour = 5, optimised = 6;
}

struct DisplayModeInfo {
    DisplayMode mode;
    const char *uiText; // menu and panel text, translated in the "DisplayMode" context
    int anaglyphKind;   // kind for renderAnaglyph, -1 when not an anaglyph
};

inline constexpr std::array<DisplayModeInfo, 15> displayModes{{
    {DisplayMode::sbs, QT_TRANSLATE_NOOP("DisplayMode", "Side by Side"), -1},
    {DisplayMode::anaglyph, QT_TRANSLATE_NOOP("DisplayMode", "Gray Anaglyph"), AnaglyphKind::gray},
    {DisplayMode::anaglyphc, QT_TRANSLATE_NOOP("DisplayMode", "Color Anaglyph"), AnaglyphKind::colour},
    {DisplayMode::anaglyphd, QT_TRANSLATE_NOOP("DisplayMode", "Dubois Anaglyph"), AnaglyphKind::duboisRedCyan},
    {DisplayMode::hsbs, QT_TRANSLATE_NOOP("DisplayMode", "Half SBS"), -1},
    {DisplayMode::imageBorder, QT_TRANSLATE_NOOP("DisplayMode", "Image with Border"), -1},
    {DisplayMode::overUnder, QT_TRANSLATE_NOOP("DisplayMode", "Over/Under"), -1},
    {DisplayMode::halfOverUnder, QT_TRANSLATE_NOOP("DisplayMode", "Half Over/Under"), -1},
    {DisplayMode::rowInterlaced, QT_TRANSLATE_NOOP("DisplayMode", "Row Interlaced"), -1},
    {DisplayMode::columnInterlaced, QT_TRANSLATE_NOOP("DisplayMode", "Column Interlaced"), -1},
    {DisplayMode::checkerboard, QT_TRANSLATE_NOOP("DisplayMode", "Checkerboard"), -1},
    {DisplayMode::anaglyphAmberBlue, QT_TRANSLATE_NOOP("DisplayMode", "Dubois Amber-Blue Anaglyph"),
     AnaglyphKind::duboisAmberBlue},
    {DisplayMode::anaglyphGreenMagenta, QT_TRANSLATE_NOOP("DisplayMode", "Dubois Green-Magenta Anaglyph"),
     AnaglyphKind::duboisGreenMagenta},
    {DisplayMode::anaglyphHalfColor, QT_TRANSLATE_NOOP("DisplayMode", "Half Color Anaglyph"), AnaglyphKind::halfColour},
    {DisplayMode::anaglyphOptimized, QT_TRANSLATE_NOOP("DisplayMode", "Optimized Anaglyph"), AnaglyphKind::optimised},
}};

// Interlaced pictures only work on physical pixels: they are shown 1:1, never scaled.
inline constexpr bool isInterlaced(DisplayMode mode)
{
    return mode == DisplayMode::rowInterlaced || mode == DisplayMode::columnInterlaced ||
           mode == DisplayMode::checkerboard;
}

inline constexpr const DisplayModeInfo &displayModeInfo(DisplayMode mode)
{
    return displayModes[static_cast<size_t>(mode)];
}

} // namespace Vorel
