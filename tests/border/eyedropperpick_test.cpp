// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <optional>

#include <gtest/gtest.h>

#include "border/eyedropperpick.h"

using namespace Vorel;

namespace {

TEST(EyedropperPixel, MapsPointerToPixel)
{
    const struct {
        const char *name;
        QPointF pointer; // from the view's bottom-left corner
        QSizeF view;
        std::optional<QPoint> pixel;
    } cases[] = {
        // A 200 x 100 image in a 400 x 400 view: s = 2, drawn 400 x 200 between y = 100 and 300.
        {"bottom left", {0, 100}, {400, 400}, QPoint(0, 99)},
        {"top right", {399.9, 299.9}, {400, 400}, QPoint(199, 0)},
        {"half a pixel up", {10, 101}, {400, 400}, QPoint(5, 98)}, // row trunc(100 - 0.5 - 1) = 98, not 99
        {"below the image", {10, 99.9}, {400, 400}, std::nullopt},
        {"above the image", {10, 300}, {400, 400}, std::nullopt},
        {"right edge", {400, 200}, {400, 400}, std::nullopt},
        // A tall view letterboxes left and right instead: s = 0.5, x from 50.
        {"pillarbox", {50, 0}, {200, 50}, QPoint(0, 99)},
        {"left of the pillarbox", {49.9, 10}, {200, 50}, std::nullopt},
    };
    for (const auto &c : cases)
        EXPECT_EQ(eyedropperPixel(c.pointer, c.view, QSize(200, 100)), c.pixel) << c.name;
}

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
