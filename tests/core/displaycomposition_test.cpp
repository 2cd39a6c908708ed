// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The display arithmetic against short scalar references written here, bit for bit.
#include <algorithm>

#include <gtest/gtest.h>

#include "core/displaycomposition.h"
#include "tests/core/noiseimage.h"
#include "tests/core/referencewarp.h"

using namespace Vorel;
using TestReference::noiseImage;

namespace {

// adjustPair = reference warp of the whole frame, then the crop of the common area; no common
// area, no pair.
TEST(AdjustPair, MatchesFullFrameWarpThenCrop)
{
    const struct {
        int w, h;
        StereoAdjustment adjustment;
    } cases[] = {{1, 1, {}},
                 {4, 3, {}},
                 {7, 5, {3, -2, 0, 0}},
                 {33, 21, {1.5, 0.5, 4, 6}},
                 {64, 48, {-2, 3, -10, -8}},
                 {301, 199, {2.25, -1.75, 7.5, 12}},
                 {640, 480, {0.5, 0.5, 1, 2}},
                 {50, 40, {200, 0, 0, 0}}}; // no common area
    for (const auto &c : cases) {
        const QImage left = noiseImage(c.w, c.h, 1), right = noiseImage(c.w, c.h, 2);
        const auto [l, r] = adjustedCorners(c.w, c.h, c.adjustment);
        const CornerPoints frame{{{0, 0}, {float(c.w), 0}, {float(c.w), float(c.h)}, {0, float(c.h)}}};
        const float lb = std::max({0.0f, l[0].x, l[3].x, r[0].x, r[3].x});
        const float rb = std::min({float(c.w), l[1].x, l[2].x, r[1].x, r[2].x});
        const float tb = std::max({0.0f, l[0].y, l[1].y, r[0].y, r[1].y});
        const float bb = std::min({float(c.h), l[2].y, l[3].y, r[2].y, r[3].y});

        const std::optional<ImagePair> pair = adjustPair(left, right, c.adjustment);
        if (lb >= rb || tb >= bb) {
            EXPECT_FALSE(pair) << c.w << "x" << c.h;
            continue;
        }
        ASSERT_TRUE(pair) << c.w << "x" << c.h;
        const int64_t x0 = int64_t(lb), y0 = int64_t(tb), cw = int64_t(rb - lb), ch = int64_t(bb - tb);
        ASSERT_EQ(pair->left.size(), QSize(int(cw), int(ch)));
        ASSERT_EQ(pair->right.size(), QSize(int(cw), int(ch)));
        for (int side = 0; side < 2; ++side) {
            // The whole frame, black where nothing maps.
            const RgbBuffer src = *imageToRGB(side == 0 ? left : right);
            const PixelLayout layout{src.w, src.h, src.w * 3, 3, 3};
            const std::vector<uint8_t> full = TestReference::referenceWarp(
                src.data, layout, *perspectiveTransform(frame, side == 0 ? l : r), 0, 0, src.w, src.h, layout, 0);
            const RgbBuffer got = *imageToRGB(side == 0 ? pair->left : pair->right);
            for (int64_t y = 0; y < ch; ++y) {
                const auto want = full.begin() + ((y + y0) * c.w + x0) * 3;
                ASSERT_TRUE(std::equal(want, want + cw * 3, got.data.begin() + y * cw * 3))
                    << c.w << "x" << c.h << " side " << side << " row " << y;
            }
        }
    }
}

// Moves of a whole image give its exact size; no adjustment keeps the size, the pixels and a
// black last row and column (nothing to interpolate with there).
TEST(AdjustPair, WorkedExamples)
{
    const struct {
        int w, h;
        StereoAdjustment a;
        QSize expected;
    } rows[] = {
        {9, 6, {}, {9, 6}},
        {1000, 600, {5, 0, 0, 0}, {950, 600}},  // right moved 50 px left
        {1000, 600, {0, 2, 0, 0}, {1000, 580}}, // 2 % of the width, not the height
    };
    for (const auto &row : rows) {
        const QImage image = noiseImage(row.w, row.h, 3);
        const std::optional<ImagePair> pair = adjustPair(image, image, row.a);
        ASSERT_TRUE(pair);
        ASSERT_EQ(pair->left.size(), row.expected);
        if (row.expected == image.size()) // a copy reaching past the picture is black there
            EXPECT_EQ(pair->left, image.copy(0, 0, row.w - 1, row.h - 1).copy(0, 0, row.w, row.h));
    }
}

TEST(PerspectiveTransform, MapsCornersAndRejectsDegenerateInput)
{
    const CornerPoints from{{{0, 0}, {100, 0}, {100, 50}, {0, 50}}};
    const CornerPoints to{{{3, 4}, {98, -2}, {105, 55}, {-4, 47}}};
    const std::optional<PerspectiveMatrix> m = perspectiveTransform(from, to);
    ASSERT_TRUE(m);
    for (int i = 0; i < 4; ++i) {
        const double x = from[i].x, y = from[i].y;
        const double w = (*m)[6] * x + (*m)[7] * y + (*m)[8];
        EXPECT_NEAR(((*m)[0] * x + (*m)[1] * y + (*m)[2]) / w, to[i].x, 1e-9);
        EXPECT_NEAR(((*m)[3] * x + (*m)[4] * y + (*m)[5]) / w, to[i].y, 1e-9);
    }
    const CornerPoints collapsed{{{5, 5}, {5, 5}, {5, 5}, {5, 5}}};
    EXPECT_FALSE(perspectiveTransform(collapsed, to));
}

TEST(RgbConversion, AlphaBecomesBlackAndRoundTripIsExact)
{
    QImage clear(2, 1, QImage::Format_ARGB32);
    clear.setPixel(0, 0, qRgba(200, 100, 50, 0));
    clear.setPixel(1, 0, qRgba(200, 100, 50, 255));
    const RgbBuffer rgb = *imageToRGB(clear);
    EXPECT_EQ(rgb.data, (std::vector<uint8_t>{0, 0, 0, 200, 100, 50}));
    const QImage image = noiseImage(5, 3, 10);
    EXPECT_EQ(*rgbToImage(*imageToRGB(image)), image);
    EXPECT_FALSE(imageToRGB(QImage()));
}

} // namespace
