// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of the bordered picture: layout, border, rounded corners and fusion dots,
// stored under the "ib." preference keys.
#pragma once

#include <array>
#include <string_view>

#include <QColor>

namespace Vorel {

class Preferences;

// How the pair is arranged; the integer is what the preferences store keeps.
enum class BorderLayoutKind { sbs = 0, lrl = 1, lrrl = 2 };

struct BorderLayoutInfo {
    BorderLayoutKind kind;
    const char *uiText; // pop-up item text
};

inline constexpr std::array<BorderLayoutInfo, 3> borderLayouts{{
    {BorderLayoutKind::sbs, QT_TRANSLATE_NOOP("Vorel::ImageBorderSettingsDialog", "SBS")},
    {BorderLayoutKind::lrl, QT_TRANSLATE_NOOP("Vorel::ImageBorderSettingsDialog", "LRL")},
    {BorderLayoutKind::lrrl, QT_TRANSLATE_NOOP("Vorel::ImageBorderSettingsDialog", "LR/RL")},
}};

// Any other code than 0 or 1 reads as the 2 by 2 grid.
BorderLayoutKind borderLayoutFromCode(int code);

// An sRGB colour with double components, so stored values come back exactly (QColor keeps
// only 16 bits per channel).
struct SrgbColor {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    static SrgbColor fromQColor(const QColor &color);
    // Components are clamped to 0..1 for drawing.
    QColor toQColor() const;
    bool operator==(const SrgbColor &) const = default;
};

struct ImageBorderSettings {
    BorderLayoutKind layoutKind = BorderLayoutKind::lrrl;
    bool useBorder = true;
    double borderWidthPercent = 3.0; // of one image's pixel width
    SrgbColor borderColor{1, 1, 1, 1};
    double cornerRadiusPercent = 0.0;
    double borderBlur = 0.0; // kept and edited, never applied
    bool useFusionDots = true;
    SrgbColor fusionDotColor{0, 0, 0, 1};
    double fusionDotSizePercent = 3.0; // dot diameter

    // Missing keys give the defaults above; no range checks, negative values included.
    static ImageBorderSettings load(const Preferences &preferences);
    void save(Preferences &preferences) const;

    bool operator==(const ImageBorderSettings &) const = default;
};

} // namespace Vorel
