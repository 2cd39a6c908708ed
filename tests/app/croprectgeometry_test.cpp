// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Crop rectangle arithmetic: what a point grabs, drags, release and aspect fitting.
#include <gtest/gtest.h>

#include "app/croprectgeometry.h"

using namespace Vorel;
using namespace Vorel::CropGeometry;

namespace {
const QRectF rect(100, 100, 200, 100); // x 100..300, y 100..200
const QSizeF view(400, 300);
} // namespace

TEST(CropGeometry, HitTestFirstMatchWins)
{
    const std::pair<QPointF, CropHit> cases[] = {
        {{200, 88}, {CropHit::edge, CropHit::top}},           // 12 outside the top edge
        {{200, 112}, {CropHit::inside, 0}},                   // 12 inside: the band reaches 5 inward
        {{200, 204}, {CropHit::edge, CropHit::bottom}},
        {{87, 150}, {CropHit::edge, CropHit::left}},
        {{304, 150}, {CropHit::edge, CropHit::right}},
        {{120, 96}, {CropHit::corner, CropHit::topLeft}},     // also in the top band
        {{324, 224}, {CropHit::corner, CropHit::bottomRight}},
        {{280, 110}, {CropHit::corner, CropHit::topRight}},
        {{50, 50}, {CropHit::outside, 0}},
    };
    for (const auto &[point, expected] : cases)
        EXPECT_EQ(hitTest(rect, point), expected) << point.x() << "," << point.y();
}

TEST(CropGeometry, DragsStopOrSlideAtTheMinimum)
{
    const QPointF start(300, 150);
    // The right edge dragged far left stops at 20 wide; the bottom-right corner slides instead.
    EXPECT_EQ(dragged({CropHit::edge, CropHit::right}, rect, start, {0, 150}, view), QRectF(100, 100, 20, 100));
    EXPECT_EQ(dragged({CropHit::corner, CropHit::bottomRight}, rect, {300, 200}, {50, 200}, view),
              QRectF(30, 100, 20, 100));
    EXPECT_EQ(dragged({CropHit::edge, CropHit::top}, rect, {200, 100}, {200, 60}, view), QRectF(100, 60, 200, 140));
    // Moving never leaves the view; a drawn rectangle is clipped to it.
    EXPECT_EQ(dragged({CropHit::inside, 0}, rect, {200, 150}, {500, -100}, view), QRectF(200, 0, 200, 100));
    EXPECT_EQ(dragged({CropHit::outside, 0}, rect, {350, 250}, {450, 200}, view), QRectF(350, 200, 50, 50));
    EXPECT_EQ(dragged({CropHit::outside, 0}, QRectF(), {10, 10}, {10, 10}, view), QRectF());
}

TEST(CropGeometry, ReleaseAndAspect)
{
    EXPECT_EQ(released(QRectF(0, 0, 9, 100)), QRectF());
    EXPECT_EQ(released(QRectF(0, 0, 10, 10)), QRectF(0, 0, 10, 10));
    const QSizeF big(1000, 1000);
    EXPECT_EQ(fittedToAspect(QRectF(100, 100, 400, 400), 16, 9, big), QRectF(100, 187.5, 400, 225));
    EXPECT_EQ(fittedToAspect(QRectF(100, 100, 400, 400), 9, 16, big), QRectF(187.5, 100, 225, 400));
    EXPECT_EQ(fittedToAspect(QRectF(100, 100, 400, 400), 0, 0, big), QRectF(100, 100, 400, 400)); // "Free"
}
