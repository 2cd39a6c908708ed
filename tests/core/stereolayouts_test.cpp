// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Which view and which pixel of it every output pixel of a layout comes from, on pictures whose
// pixels name their own view and position; and the banded adjusted layouts against the layout of
// the adjusted pair.
#include <gtest/gtest.h>

#include "core/displaycomposition.h"
#include "core/stereolayouts.h"
#include "tests/core/noiseimage.h"

using namespace Vorel;

namespace {

// Red 100 in the first view, 200 in the second; green and blue are the pixel's x and y.
QImage namedPixels(int w, int h, int view, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(w, h, format);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            image.setPixel(x, y, qRgb(100 * (view + 1), x, y));
    return image;
}

struct Case {
    StereoLayout layout;
    QSize view, output;
    // The view (0 first, 1 second) and the view's row that output pixel (x, y) shows; the
    // column is always x.
    std::function<std::pair<int, int>(int x, int y)> source;
};

std::vector<Case> cases()
{
    const auto overUnder = [](int h) { return [h](int, int y) { return std::pair{y / h, y % h}; }; };
    // The nearest-row picks of a 5-row view squeezed to 2 rows: rows 1 and 3; of 7 rows: 1, 3, 5.
    const auto halfOverUnder = [](std::vector<int> rows) {
        return [rows](int, int y) {
            const int half = int(rows.size());
            return std::pair{y / half, rows[size_t(y % half)]};
        };
    };
    const auto rows = [](int, int y) { return std::pair{y % 2, y}; };
    const auto columns = [](int x, int y) { return std::pair{x % 2, y}; };
    const auto checkerboard = [](int x, int y) { return std::pair{(x + y) % 2, y}; };
    return {
        {StereoLayout::overUnder, {5, 3}, {5, 6}, overUnder(3)},
        {StereoLayout::overUnder, {1, 1}, {1, 2}, overUnder(1)},
        {StereoLayout::halfOverUnder, {3, 4}, {3, 4}, halfOverUnder({0, 2})},
        {StereoLayout::halfOverUnder, {3, 5}, {3, 4}, halfOverUnder({1, 3})},
        {StereoLayout::halfOverUnder, {2, 7}, {2, 6}, halfOverUnder({1, 3, 5})},
        {StereoLayout::rowInterlaced, {4, 5}, {4, 5}, rows},
        {StereoLayout::columnInterlaced, {9, 3}, {9, 3}, columns},
        {StereoLayout::checkerboard, {9, 4}, {9, 4}, checkerboard},
        {StereoLayout::checkerboard, {1, 3}, {1, 3}, checkerboard},
    };
}

TEST(StereoLayouts, EveryPixelComesFromTheRightViewAndPlace)
{
    for (const Case &c : cases()) {
        const int layout = int(c.layout);
        for (const auto secondFormat : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
            const QImage views[2] = {namedPixels(c.view.width(), c.view.height(), 0),
                                     namedPixels(c.view.width(), c.view.height(), 1, secondFormat)};
            const std::optional<QImage> out = composeLayout(views[0], views[1], c.layout);
            ASSERT_TRUE(out) << "layout " << layout;
            ASSERT_EQ(out->size(), c.output) << "layout " << layout;
            EXPECT_EQ(out->format(), secondFormat == QImage::Format_RGB32 ? QImage::Format_RGB32
                                                                          : QImage::Format_ARGB32_Premultiplied);
            for (int y = 0; y < c.output.height(); ++y)
                for (int x = 0; x < c.output.width(); ++x) {
                    const auto [view, row] = c.source(x, y);
                    ASSERT_EQ(out->pixel(x, y), views[view].pixel(x, row))
                        << "layout " << layout << " at (" << x << "," << y << ")";
                }
        }
    }
}

TEST(StereoLayouts, RefuseUnequalOrEmptyViews)
{
    EXPECT_FALSE(composeLayout(namedPixels(4, 4, 0), namedPixels(4, 5, 1), StereoLayout::rowInterlaced));
    EXPECT_FALSE(composeLayout(QImage(), QImage(), StereoLayout::overUnder));
    EXPECT_FALSE(composeLayout(namedPixels(4, 1, 0), namedPixels(4, 1, 1), StereoLayout::halfOverUnder));
}

// Bands of the warp arrive from both cores in any order: the banded layout must still equal the
// layout of the whole adjusted pair, views exchanged when swapped.
TEST(StereoLayouts, AdjustedLayoutEqualsLayoutOfAdjustedPair)
{
    const QImage left = TestReference::noiseImage(301, 257, 1), right = TestReference::noiseImage(301, 257, 2);
    const StereoAdjustment adjustment{1.5, -0.7, 1.2, 2.0};
    const ImagePair adjusted = *adjustPair(left, right, adjustment);
    for (const Case &c : cases())
        for (const bool swapped : {false, true}) {
            const std::optional<QImage> banded = composeAdjustedLayout(left, right, adjustment, swapped, c.layout);
            const std::optional<QImage> whole = swapped ? composeLayout(adjusted.right, adjusted.left, c.layout)
                                                        : composeLayout(adjusted.left, adjusted.right, c.layout);
            ASSERT_TRUE(banded && whole);
            EXPECT_EQ(*banded, *whole) << "layout " << int(c.layout) << (swapped ? " swapped" : "");
        }
    EXPECT_FALSE(composeAdjustedLayout(left, right, {120, 0, 0, 0}, false, StereoLayout::overUnder));
}

} // namespace
