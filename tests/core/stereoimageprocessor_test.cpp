// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "core/preferences.h"
#include "core/stereoimageprocessor.h"

using namespace Vorel;

namespace {

QImage filled(int w, int h, QRgb colour)
{
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

TEST(StereoImageProcessor, SideBySideSplitDropsOddColumn)
{
    struct Row {
        int width, half;
    } rows[] = {{1001, 500}, {1000, 500}, {3, 1}, {2, 1}};
    for (const Row &row : rows) {
        QImage sbs = filled(row.width, 4, qRgb(10, 10, 10));
        for (int y = 0; y < 4; ++y)
            sbs.setPixel(row.half, y, qRgb(200, 0, 0)); // first column of the right half
        StereoImageProcessor proc;
        proc.loadSideBySide(sbs, true);
        ASSERT_TRUE(proc.hasPair()) << row.width;
        EXPECT_EQ(proc.leftOriginal->width(), row.half);
        EXPECT_EQ(proc.rightOriginal->width(), row.half);
        EXPECT_EQ(proc.rightOriginal->pixel(0, 0), qRgb(200, 0, 0));
        EXPECT_EQ(proc.history.undoCount(), 1);
    }
    StereoImageProcessor proc;
    proc.loadSideBySide(filled(1, 4, 0), true); // no half can be cut
    EXPECT_FALSE(proc.hasPair());
}

TEST(StereoImageProcessor, LoadPairStretchesToCommonMinimumAndKeepsFlags)
{
    StereoImageProcessor proc;
    proc.isSwap = true;
    proc.isHalf = true;
    proc.adjustment = {1, 2, 3, 4};
    proc.loadPair(filled(400, 300, 0), filled(399, 301, 0), false);
    EXPECT_EQ(proc.leftOriginal->size(), QSize(399, 300));
    EXPECT_EQ(proc.rightOriginal->size(), QSize(399, 300));
    EXPECT_EQ(proc.adjustment, StereoAdjustment{});
    EXPECT_TRUE(proc.isSwap);
    EXPECT_TRUE(proc.isHalf);
    EXPECT_EQ(proc.history.undoCount(), 0); // history untouched without reset
}

TEST(StereoImageProcessor, SwapOrdersOutputsAfterAdjustingTheTrueRight)
{
    StereoImageProcessor proc;
    proc.loadPair(filled(100, 50, qRgb(255, 0, 0)), filled(100, 50, qRgb(0, 0, 255)), true);
    proc.adjustment.horizontalOffset = 10;
    proc.isSwap = true;
    const std::optional<ImagePair> pair = proc.render(false);
    ASSERT_TRUE(pair);
    EXPECT_EQ(pair->left.size(), QSize(90, 50));
    EXPECT_EQ(pair->left.pixel(0, 0), qRgb(0, 0, 255));
    EXPECT_EQ(pair->right.pixel(0, 0), qRgb(255, 0, 0));
    // Gray anaglyph with swap: the right image feeds the red channel.
    EXPECT_EQ(proc.renderAnaglyph(0, false)->pixel(0, 0), qRgb(29, 76, 76));
    proc.isHalf = true;
    EXPECT_EQ(proc.render(false)->left.width(), 45);
}

TEST(StereoImageProcessor, PreviewCacheIsUsedOnlyOnTheAdjustmentPage)
{
    StereoImageProcessor proc;
    proc.loadPair(filled(800, 400, 0), filled(800, 400, 0), true);
    proc.makePreviewCache(200, 200);
    ASSERT_EQ(proc.cachedLeft->size(), QSize(200, 100));
    EXPECT_EQ(proc.render(true)->left.width(), 800); // nTab 0: full size
    proc.nTab = StereoImageProcessor::previewTab;
    EXPECT_EQ(proc.render(true)->left.width(), 200);
    EXPECT_EQ(proc.render(false)->left.width(), 800);
}

TEST(StereoImageProcessor, RememberAdjustmentWritesOnlyChanges)
{
    QTemporaryDir dir;
    Preferences prefs(dir.filePath(QStringLiteral("prefs.ini")));
    StereoImageProcessor proc;
    proc.adjustment = {1.5, -2, 3, 4};
    proc.rememberAdjustment(prefs);
    EXPECT_EQ(prefs.number(QStringLiteral("batch.manualH")), 1.5);
    EXPECT_EQ(prefs.number(QStringLiteral("batch.manualScale")), 4);
    prefs.remove(QStringLiteral("batch.manualH"));
    proc.rememberAdjustment(prefs); // unchanged: nothing written
    EXPECT_FALSE(prefs.contains(QStringLiteral("batch.manualH")));
}

TEST(StereoImageProcessor, EmptyProcessorRendersNothing)
{
    StereoImageProcessor proc;
    EXPECT_FALSE(proc.render(false));
    EXPECT_FALSE(proc.renderAnaglyph(2, false));
    EXPECT_FALSE(proc.saveSideBySide(QStringLiteral("/nonexistent/x.png")));
}

} // namespace
