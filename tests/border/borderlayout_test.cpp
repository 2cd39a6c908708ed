// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <vector>

#include <gtest/gtest.h>

#include "border/borderlayout.h"

using namespace Vorel;

namespace {

struct LayoutCase {
    const char *name;
    double w, h;
    BorderLayoutKind kind;
    bool useBorder, useDots;
    double borderPercent;
    double width, height;
    std::vector<Placement> placements;
};

// 1000 x 800 at 3 %: b = 30, t = 60 with dots.
TEST(BorderLayout, CanvasAndSlots)
{
    const LayoutCase cases[] = {
        {"sbs", 1000, 800, BorderLayoutKind::sbs, true, true, 3, 2090, 890,
           {{30, 60, false, 30}, {1060, 60, true, 30}}},
        {"lrl", 1000, 800, BorderLayoutKind::lrl, true, true, 3, 3120, 890,
           {{30, 60, false, 30}, {1060, 60, true, 30}, {2090, 60, false, 30}}},
        {"lrrl", 1000, 800, BorderLayoutKind::lrrl, true, true, 3, 2090, 1750,
           {{30, 60, false, 30}, {1060, 60, true, 30}, {30, 920, true, 890}, {1060, 920, false, 890}}},
        // Without dots the top band is b: all four sides equal.
        {"noDots", 1000, 800, BorderLayoutKind::lrrl, true, false, 3, 2090, 1690,
           {{30, 30, false, 15}, {1060, 30, true, 15}, {30, 860, true, 845}, {1060, 860, false, 845}}},
        // Without border nothing separates the images, whatever the dot flag says.
        {"noBorderSbs", 1000, 800, BorderLayoutKind::sbs, false, true, 3, 2000, 800,
           {{0, 0, false, 0}, {1000, 0, true, 0}}},
        {"noBorderLrl", 1000, 800, BorderLayoutKind::lrl, false, true, 3, 3000, 800,
           {{0, 0, false, 0}, {1000, 0, true, 0}, {2000, 0, false, 0}}},
        {"noBorderLrrl", 1000, 800, BorderLayoutKind::lrrl, false, false, 3, 2000, 1600,
           {{0, 0, false, 0}, {1000, 0, true, 0}, {0, 800, true, 800}, {1000, 800, false, 800}}},
        // b = 30.03 keeps its fraction in every position.
        {"fractional", 1001, 800, BorderLayoutKind::sbs, true, true, 3, 2092.09, 890.09,
           {{30.03, 60.06, false, 30.03}, {1061.06, 60.06, true, 30.03}}},
        // The border percentage is of one image's width, also with a narrow, tall image.
        {"portrait", 200, 1000, BorderLayoutKind::lrl, true, true, 5, 640, 1030,
           {{10, 20, false, 10}, {220, 20, true, 10}, {430, 20, false, 10}}},
    };
    for (const LayoutCase &c : cases) {
        SCOPED_TRACE(c.name);
        ImageBorderSettings s;
        s.layoutKind = c.kind;
        s.useBorder = c.useBorder;
        s.useFusionDots = c.useDots;
        s.borderWidthPercent = c.borderPercent;
        const BorderLayout layout = borderLayout(c.w, c.h, s);
        EXPECT_NEAR(layout.width, c.width, 1e-9);
        EXPECT_NEAR(layout.height, c.height, 1e-9);
        ASSERT_EQ(layout.placements.size(), c.placements.size());
        for (size_t i = 0; i < c.placements.size(); ++i) {
            SCOPED_TRACE(i);
            EXPECT_NEAR(layout.placements[i].x, c.placements[i].x, 1e-9);
            EXPECT_NEAR(layout.placements[i].y, c.placements[i].y, 1e-9);
            EXPECT_EQ(layout.placements[i].isRight, c.placements[i].isRight);
            EXPECT_NEAR(layout.placements[i].fusionDotY, c.placements[i].fusionDotY, 1e-9);
        }
    }
}

} // namespace
