// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures in huge-page memory behave like QImage's own (row layout, limits, sharing), and
// released blocks are reused.
#include <cstdint>

#include <gtest/gtest.h>

#include "core/largebuffer.h"

using namespace Vorel;

// Possible sizes have QImage's row layout; impossible ones (none, negative, more bytes than an
// int holds) give null.
TEST(NewLargeImage, RowLayoutMatchesQImageAndImpossibleSizesGiveNull)
{
    struct Case {
        int w, h;
        QImage::Format format;
        bool possible = true;
    };
    for (const Case c : {Case{1, 1, QImage::Format_RGB32}, Case{3, 2, QImage::Format_RGB888},
                         Case{6000, 4000, QImage::Format_ARGB32_Premultiplied}, Case{5, 7, QImage::Format_Grayscale8},
                         Case{0, 5, QImage::Format_RGB32, false}, Case{5, -1, QImage::Format_RGB32, false},
                         Case{70000, 70000, QImage::Format_RGB32, false}}) {
        const QImage image = newLargeImage(c.w, c.h, c.format);
        const QImage reference(c.w, c.h, c.format);
        ASSERT_EQ(image.isNull(), !c.possible) << c.w << "x" << c.h;
        if (c.possible) {
            EXPECT_EQ(image.size(), reference.size());
            EXPECT_EQ(image.format(), reference.format());
            EXPECT_EQ(image.bytesPerLine(), reference.bytesPerLine());
        }
    }
}

TEST(NewLargeImage, CopiesDetachAndOutliveTheOriginal)
{
    QImage copy;
    {
        QImage image = newLargeImage(1024, 1024, QImage::Format_RGB32);
        image.fill(0xff112233u);
        copy = image;
        image.setPixel(0, 0, 0xff000000u); // detaches: the copy keeps its pixel
    }
    EXPECT_EQ(copy.pixel(0, 0), 0xff112233u);
    EXPECT_EQ(copy.pixel(1023, 1023), 0xff112233u);
}

TEST(LargeBuffer, ReleasedBlocksServeRequestsOfAboutTheirSize)
{
    constexpr size_t megabyte = size_t(1) << 20;
    void *first = allocateLargeBuffer(40 * megabyte);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(first) % (2 * megabyte), 0u); // huge-page aligned
    releaseLargeBuffer(first);
    void *again = allocateLargeBuffer(39 * megabyte);
    EXPECT_EQ(again, first);
    releaseLargeBuffer(again);
    void *small = allocateLargeBuffer(12 * megabyte); // far smaller: a block of its own
    EXPECT_NE(small, first);
    releaseLargeBuffer(small);
    releaseLargeBuffer(allocateLargeBuffer(100)); // below the threshold: malloc's
}
