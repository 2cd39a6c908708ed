// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <map>
#include <utility>

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "core/displaycomposition.h"
#include "core/preferences.h"
#include "core/stereoimageprocessor.h"
#include "core/stereolayouts.h"
#include "tests/core/noiseimage.h"

using namespace Vorel;
using TestReference::filledImage;
using TestReference::noiseImage;

namespace {

// Either split cuts zero-copy views out of a 32-bit picture and drops an odd last column or row.
TEST(StereoImageProcessor, SplitsDropTheOddColumnOrRow)
{
    struct Row {
        bool overUnder;
        int length, half;
    } rows[] = {{false, 1001, 500}, {false, 1000, 500}, {false, 3, 1}, {false, 2, 1},
                {true, 9, 4},       {true, 8, 4},       {true, 3, 1},  {true, 2, 1}};
    for (const Row &row : rows) {
        const QSize size = row.overUnder ? QSize(4, row.length) : QSize(row.length, 4);
        QImage picture = filledImage(size.width(), size.height(), qRgb(10, 10, 10));
        picture.setPixel(row.overUnder ? 0 : row.half, row.overUnder ? row.half : 0, qRgb(200, 0, 0));
        StereoImageProcessor proc;
        row.overUnder ? proc.loadOverUnder(picture, true) : proc.loadSideBySide(picture, true);
        ASSERT_TRUE(proc.hasPair()) << row.length;
        const QSize view = row.overUnder ? QSize(4, row.half) : QSize(row.half, 4);
        EXPECT_EQ(proc.leftOriginal->size(), view) << row.length;
        EXPECT_EQ(proc.rightOriginal->size(), view) << row.length;
        EXPECT_EQ(proc.rightOriginal->pixel(0, 0), qRgb(200, 0, 0)) << row.length;
        EXPECT_EQ(proc.leftOriginal->constBits(), std::as_const(picture).constBits()) << row.length;
        EXPECT_EQ(proc.history.undoCount(), 1);
    }
    StereoImageProcessor proc;
    proc.loadSideBySide(filledImage(1, 4, 0), true); // no half can be cut
    proc.loadOverUnder(filledImage(4, 1, 0), true);
    EXPECT_FALSE(proc.hasPair());
}

TEST(StereoImageProcessor, LoadPairStretchesToCommonMinimumAndKeepsFlags)
{
    StereoImageProcessor proc;
    proc.isSwap = true;
    proc.isHalf = true;
    proc.adjustment = {1, 2, 3, 4};
    proc.loadPair(filledImage(400, 300, 0), filledImage(399, 301, 0), false);
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
    proc.loadPair(filledImage(100, 50, qRgb(255, 0, 0)), filledImage(100, 50, qRgb(0, 0, 255)), true);
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
    proc.loadPair(filledImage(800, 400, 0), filledImage(800, 400, 0), true);
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

// The display picture of every mode against what the window composed before it existed: the
// side-by-side of the (half-width) pair, the anaglyph, the layout of the adjusted, swapped pair;
// nothing at all before a pair is loaded.
TEST(StereoImageProcessor, DisplayPictureOfEveryMode)
{
    StereoImageProcessor proc;
    EXPECT_FALSE(proc.render(false));
    EXPECT_FALSE(proc.renderAnaglyph(2, false));
    for (const DisplayModeInfo &info : displayModes)
        EXPECT_FALSE(proc.renderDisplayPicture(info.mode, false)) << "empty, " << info.uiText;
    proc.loadPair(noiseImage(120, 81, 1), noiseImage(120, 81, 2), false);
    proc.adjustment = {1.5, -0.5, 1.0, 2.0};
    proc.isSwap = true;
    const ImagePair pair = *proc.renderFullWidth(false);
    const ImagePair half{halfWidth(pair.left), halfWidth(pair.right)};
    const std::map<DisplayMode, StereoLayout> layouts{
        {DisplayMode::overUnder, StereoLayout::overUnder},
        {DisplayMode::halfOverUnder, StereoLayout::halfOverUnder},
        {DisplayMode::rowInterlaced, StereoLayout::rowInterlaced},
        {DisplayMode::columnInterlaced, StereoLayout::columnInterlaced},
        {DisplayMode::checkerboard, StereoLayout::checkerboard}};
    for (const DisplayModeInfo &info : displayModes) {
        std::optional<QImage> expected;
        if (info.anaglyphKind >= 0)
            expected = proc.renderAnaglyph(info.anaglyphKind, false);
        else if (info.mode == DisplayMode::sbs)
            expected = composeSideBySide(pair.left, pair.right);
        else if (info.mode == DisplayMode::hsbs)
            expected = composeSideBySide(half.left, half.right);
        else if (layouts.contains(info.mode))
            expected = composeLayout(pair.left, pair.right, layouts.at(info.mode));
        ASSERT_EQ(expected.has_value(), info.mode != DisplayMode::imageBorder) << info.uiText;
        for (const bool isHalf : {false, true}) {
            proc.isHalf = isHalf; // the mode alone decides
            const std::optional<QImage> picture = proc.renderDisplayPicture(info.mode, false);
            ASSERT_EQ(picture.has_value(), expected.has_value()) << info.uiText;
            if (expected)
                EXPECT_EQ(*picture, *expected) << info.uiText;
        }
    }
}

} // namespace
