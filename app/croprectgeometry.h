// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The arithmetic of the crop rectangle, in the overlay's coordinates (origin top-left, y
// downwards): what a point grabs, how a drag reshapes the rectangle, aspect-ratio fitting.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace Vorel {

struct CropHit {
    enum Kind { corner, edge, outside, inside };
    enum Corner { topLeft, topRight, bottomLeft, bottomRight };
    enum Edge { top, bottom, left, right };
    Kind kind = outside;
    int which = 0; // the Corner or Edge

    bool operator==(const CropHit &) const = default;
};

namespace CropGeometry {

inline constexpr double edgeHitWidth = 20; // grab band width, and the smallest rectangle
inline constexpr double releaseMinimum = 10; // anything smaller on release is no crop

// Corners first (50 x 50 squares), then edges (bands reaching 15 out, 5 in), then inside.
CropHit hitTest(const QRectF &rect, const QPointF &point);

// The rectangle after dragging from `start` to `current` with what the press grabbed.
QRectF dragged(const CropHit &hit, const QRectF &original, const QPointF &start, const QPointF &current,
               const QSizeF &view);

// Release: too narrow or too low becomes the zero rectangle.
QRectF released(const QRectF &rect);

// The largest rectangle of ratio aw:ah inside `rect`, about its centre and within the view;
// `rect` unchanged unless both parts are positive.
QRectF fittedToAspect(const QRectF &rect, double aw, double ah, const QSizeF &view);

} // namespace CropGeometry

} // namespace Vorel
