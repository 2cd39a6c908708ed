// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <optional>

#include <gtest/gtest.h>

#include "border/eyedropperpick.h"

using namespace Vorel;

namespace {

struct PickCase {
    const char *name;
    QPointF pointer; // from the view's bottom-left corner
    QSizeF view;
    QSize image;
    std::optional<QPoint> pixel;
};

class EyedropperPixel : public testing::TestWithParam<PickCase> {};

TEST_P(EyedropperPixel, MapsPointerToPixel)
{
    const PickCase &c = GetParam();
    EXPECT_EQ(eyedropperPixel(c.pointer, c.view, c.image), c.pixel);
}

// A 200 x 100 image in a 400 x 400 view: s = 2, drawn 400 x 200 between y = 100 and 300.
INSTANTIATE_TEST_SUITE_P(
    Positions, EyedropperPixel,
    testing::Values(PickCase{"bottomLeft", {0, 100}, {400, 400}, {200, 100}, QPoint(0, 99)},
                    PickCase{"topRight", {399.9, 299.9}, {400, 400}, {200, 100}, QPoint(199, 0)},
                    // iy = 0.5 gives row trunc(100 - 0.5 - 1) = 98, not 99
                    PickCase{"halfPixelUp", {10, 101}, {400, 400}, {200, 100}, QPoint(5, 98)},
                    PickCase{"belowImage", {10, 99.9}, {400, 400}, {200, 100}, std::nullopt},
                    PickCase{"aboveImage", {10, 300}, {400, 400}, {200, 100}, std::nullopt},
                    PickCase{"rightEdge", {400, 200}, {400, 400}, {200, 100}, std::nullopt},
                    // a tall view letterboxes left and right instead: s = 0.5, x from 50
                    PickCase{"pillarbox", {50, 0}, {200, 50}, {200, 100}, QPoint(0, 99)},
                    PickCase{"leftOfPillarbox", {49.9, 10}, {200, 50}, {200, 100}, std::nullopt}),
    [](const testing::TestParamInfo<PickCase> &info) { return std::string(info.param.name); });

TEST(EyedropperColor, ReadsTheMappedPixel)
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(0xff000000u);
    image.setPixel(0, 0, 0xff102030u);
    image.setPixel(1, 0, 0x80405060u);
    image.setPixel(1, 1, 0xff00ff00u);
    // 2 x 2 image in a 20 x 20 view, s = 10.
    EXPECT_EQ(eyedropperColor(image, {5, 15}, {20, 20}), QColor::fromRgba(0xff102030u));
    // The row is trunc(ih - iy - 1): inside the bottom row (iy = 0.5) that is still row 0;
    // only the very bottom edge reaches row 1.
    EXPECT_EQ(eyedropperColor(image, {15, 5}, {20, 20}), QColor::fromRgba(0x80405060u));
    EXPECT_EQ(eyedropperColor(image, {15, 0}, {20, 20}), QColor::fromRgba(0xff00ff00u));
    EXPECT_EQ(eyedropperColor(image, {25, 5}, {20, 20}), std::nullopt);
}

} // namespace
