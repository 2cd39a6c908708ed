// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/croprectgeometry.h"

#include <algorithm>
#include <cmath>

namespace Vorel::CropGeometry {

namespace {

constexpr double cornerReach = 25; // a 10 x 10 handle grown by 20 on every side
constexpr double bandOutward = 15, bandInward = 5;

bool within(double value, double low, double high) { return value >= low && value <= high; }

} // namespace

CropHit hitTest(const QRectF &rect, const QPointF &p)
{
    const double minX = rect.left(), minY = rect.top(), maxX = rect.right(), maxY = rect.bottom();
    const QPointF corners[] = {{minX, minY}, {maxX, minY}, {minX, maxY}, {maxX, maxY}};
    for (int i = 0; i < 4; ++i)
        if (std::fabs(p.x() - corners[i].x()) <= cornerReach && std::fabs(p.y() - corners[i].y()) <= cornerReach)
            return {CropHit::corner, i};
    const bool acrossX = within(p.x(), minX, maxX), acrossY = within(p.y(), minY, maxY);
    const bool bands[] = {acrossX && within(p.y(), minY - bandOutward, minY + bandInward),
                          acrossX && within(p.y(), maxY - bandInward, maxY + bandOutward),
                          acrossY && within(p.x(), minX - bandOutward, minX + bandInward),
                          acrossY && within(p.x(), maxX - bandInward, maxX + bandOutward)};
    for (int i = 0; i < 4; ++i)
        if (bands[i])
            return {CropHit::edge, i};
    return {rect.contains(p) ? CropHit::inside : CropHit::outside, 0};
}

QRectF dragged(const CropHit &hit, const QRectF &original, const QPointF &start, const QPointF &current,
               const QSizeF &view)
{
    const double dx = current.x() - start.x(), dy = current.y() - start.y();
    double minX = original.left(), minY = original.top(), maxX = original.right(), maxY = original.bottom();
    QRectF result;
    switch (hit.kind) {
    case CropHit::corner: {
        // The grabbed corner's two edges move; one that comes closer than the minimum to the
        // opposite edge pushes it ahead (the rectangle slides).
        const bool left = hit.which == CropHit::topLeft || hit.which == CropHit::bottomLeft;
        const bool top = hit.which == CropHit::topLeft || hit.which == CropHit::topRight;
        (left ? minX : maxX) += dx;
        (top ? minY : maxY) += dy;
        const double x = std::min(minX, maxX - edgeHitWidth), y = std::min(minY, maxY - edgeHitWidth);
        result = QRectF(x, y, maxX - x, maxY - y);
        break;
    }
    case CropHit::edge:
        switch (hit.which) {
        case CropHit::top:
            minY = std::min(minY + dy, maxY - edgeHitWidth);
            break;
        case CropHit::bottom:
            maxY = std::max(maxY + dy, minY + edgeHitWidth);
            break;
        case CropHit::left:
            minX = std::min(minX + dx, maxX - edgeHitWidth);
            break;
        default:
            maxX = std::max(maxX + dx, minX + edgeHitWidth);
            break;
        }
        result = QRectF(QPointF(minX, minY), QPointF(maxX, maxY));
        break;
    case CropHit::inside: {
        const double x = std::min(std::max(minX + dx, 0.0), view.width() - original.width());
        const double y = std::min(std::max(minY + dy, 0.0), view.height() - original.height());
        return QRectF(x, y, original.width(), original.height());
    }
    case CropHit::outside:
        result = QRectF(std::min(start.x(), current.x()), std::min(start.y(), current.y()), std::fabs(dx), std::fabs(dy));
        break;
    }
    const QRectF inside = result.intersected(QRectF(QPointF(0, 0), view));
    return inside.isValid() ? inside : QRectF();
}

QRectF released(const QRectF &rect)
{
    return rect.width() < releaseMinimum || rect.height() < releaseMinimum ? QRectF() : rect;
}

QRectF fittedToAspect(const QRectF &rect, double aw, double ah, const QSizeF &view)
{
    if (aw <= 0 || ah <= 0)
        return rect;
    const QPointF centre = rect.center();
    double w = rect.width(), h = ah / aw * w;
    if (rect.height() < h) {
        h = rect.height();
        w = aw / ah * h;
    }
    w = std::min(w, view.width());
    h = std::min(h, view.height());
    const double x = std::min(std::max(centre.x() - w * 0.5, 0.0), view.width() - w);
    const double y = std::min(std::max(centre.y() - h * 0.5, 0.0), view.height() - h);
    return QRectF(x, y, w, h);
}

} // namespace Vorel::CropGeometry
