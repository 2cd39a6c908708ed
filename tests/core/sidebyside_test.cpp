// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The squeeze against the painter's own scaled drawing, and the side-by-side canvas against
// pixel-by-pixel placement, bit for bit.
#include <algorithm>
#include <optional>

#include <gtest/gtest.h>

#include <QPainter>

#include "core/displaycomposition.h"
#include "tests/core/noiseimage.h"

using namespace Vorel;
using TestReference::noiseImage;

namespace {

// The first differing pixel, or none.
std::optional<QPoint> firstDifference(const QImage &a, const QImage &b)
{
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (reinterpret_cast<const uint32_t *>(a.constScanLine(y))[x] !=
                reinterpret_cast<const uint32_t *>(b.constScanLine(y))[x])
                return QPoint(x, y);
    return std::nullopt;
}

TEST(HalfWidth, MatchesThePaintersScaledDrawing)
{
    const struct {
        int w, h;
        QImage::Format format;
    } cases[] = {{1, 1, QImage::Format_RGB32}, {2, 1, QImage::Format_RGB32}, {4, 3, QImage::Format_RGB32},
                 {7, 5, QImage::Format_ARGB32_Premultiplied}, {1001, 4, QImage::Format_RGB32},
                 {1001, 3, QImage::Format_ARGB32}, {6000, 5, QImage::Format_ARGB32_Premultiplied},
                 // Where the painter's column steps wrap, and just below.
                 {65537, 1, QImage::Format_RGB32}, {65539, 1, QImage::Format_RGB32}};
    for (const auto &c : cases) {
        const QImage image = noiseImage(c.w, c.h, unsigned(c.w), c.format);
        QImage painted(int(c.w * 0.5), c.h, QImage::Format_ARGB32_Premultiplied);
        if (!painted.isNull()) {
            painted.fill(Qt::transparent);
            QPainter(&painted).drawImage(QRect(0, 0, painted.width(), c.h), image);
        }
        const QImage half = halfWidth(image);
        ASSERT_EQ(half.size(), painted.size()) << c.w << "x" << c.h;
        ASSERT_EQ(half.format(), painted.format());
        const std::optional<QPoint> at = firstDifference(half, painted);
        EXPECT_FALSE(at) << c.w << "x" << c.h << " format " << c.format << " first difference at (" << at->x()
                         << "," << at->y() << ")";
    }
}

TEST(SideBySide, BottomAlignedCopiesOnTransparent)
{
    const std::pair<QSize, QSize> cases[] = {
        {{1, 1}, {1, 1}}, {{4, 3}, {4, 3}}, {{3, 2}, {4, 5}}, {{7, 9}, {5, 2}}, {{640, 480}, {640, 480}}};
    for (const auto &[firstSize, secondSize] : cases) {
        const QImage first = noiseImage(firstSize.width(), firstSize.height(), 1, QImage::Format_RGB32);
        const QImage second = noiseImage(secondSize.width(), secondSize.height(), 2, QImage::Format_ARGB32);
        const QImage canvas = composeSideBySide(first, second);
        const int height = std::max(first.height(), second.height());
        QImage expected(first.width() + second.width(), height, QImage::Format_ARGB32_Premultiplied);
        expected.fill(0);
        const QImage premultipliedSecond = second.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < expected.width(); ++x) {
                const bool left = x < first.width();
                const QImage &image = left ? first : premultipliedSecond;
                const int sy = y - (height - image.height()), sx = left ? x : x - first.width();
                if (sy >= 0)
                    reinterpret_cast<uint32_t *>(expected.scanLine(y))[x] =
                        reinterpret_cast<const uint32_t *>(image.constScanLine(sy))[sx];
            }
        ASSERT_EQ(canvas.size(), expected.size());
        const std::optional<QPoint> at = firstDifference(canvas, expected);
        EXPECT_FALSE(at) << firstSize.width() << "x" << firstSize.height() << " beside " << secondSize.width() << "x"
                         << secondSize.height() << ": first difference at (" << at->x() << "," << at->y() << ")";
    }
}

} // namespace
