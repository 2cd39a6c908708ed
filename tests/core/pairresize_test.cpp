// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Resize geometry and the three pixel operations.
#include <QPainter>

#include <gtest/gtest.h>

#include "core/pairresize.h"

using namespace Vorel;

TEST(ResizeGeometry, RegionsOfA4000x3000Picture)
{
    struct Case {
        int w, h;
        QSizeF crop, letterbox;
    };
    const Case cases[] = {{1000, 1000, {3000, 3000}, {1000, 750}},
                          {1600, 900, {4000, 2250}, {1200, 900}},
                          {400, 300, {4000, 3000}, {400, 300}}};
    for (const Case &c : cases) {
        EXPECT_EQ(cropFitRegion({4000, 3000}, c.w, c.h), c.crop) << c.w << "x" << c.h;
        EXPECT_EQ(letterboxFit({4000, 3000}, c.w, c.h), c.letterbox) << c.w << "x" << c.h;
    }
}

// A 400x200 picture, red on the left half and blue on the right, brought to 100x100.
TEST(ResizeImage, EachModeMakesTheTargetSize)
{
    QImage picture(400, 200, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QPainter(&picture).fillRect(200, 0, 200, 200, Qt::blue);
    for (const ResizeMode mode : {ResizeMode::stretch, ResizeMode::cropFit, ResizeMode::letterbox})
        EXPECT_EQ(resizeImage(picture, 100, 100, mode)->size(), QSize(100, 100));
    const QImage letterbox = *resizeImage(picture, 100, 100, ResizeMode::letterbox);
    EXPECT_EQ(letterbox.pixel(50, 5), qRgb(0, 0, 0)); // band above the 100x50 picture
    EXPECT_EQ(letterbox.pixel(10, 50), qRgb(255, 0, 0));
    const QImage cropped = *resizeImage(picture, 100, 100, ResizeMode::cropFit); // the centre 200x200
    EXPECT_EQ(cropped.pixel(2, 50), qRgb(255, 0, 0));
    EXPECT_EQ(cropped.pixel(97, 50), qRgb(0, 0, 255));
    EXPECT_FALSE(resizeImage(picture, 0, 10, ResizeMode::stretch));
    EXPECT_FALSE(resizeImage(QImage(), 10, 10, ResizeMode::stretch));
}
