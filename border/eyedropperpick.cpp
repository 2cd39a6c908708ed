// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/eyedropperpick.h"

#include <algorithm>

namespace Vorel {

std::optional<QPoint> eyedropperPixel(QPointF pointer, QSizeF viewSize, QSize imageSize)
{
    const double iw = imageSize.width();
    const double ih = imageSize.height();
    if (iw <= 0 || ih <= 0)
        return std::nullopt;
    // s fits the image into the view; the margins left over are split evenly.
    const double s = std::min(viewSize.width() / iw, viewSize.height() / ih);
    const double ix = (pointer.x() - (viewSize.width() - iw * s) * 0.5) / s;
    const double iy = (pointer.y() - (viewSize.height() - ih * s) * 0.5) / s;
    if (!(ix >= 0 && iy >= 0 && ix < iw && iy < ih))
        return std::nullopt;
    // iy counts up from the bottom; the row counts down from the top.
    return QPoint(static_cast<int>(ix), static_cast<int>(ih - iy - 1));
}

std::optional<QColor> eyedropperColor(const QImage &image, QPointF pointer, QSizeF viewSize)
{
    const std::optional<QPoint> pixel = eyedropperPixel(pointer, viewSize, image.size());
    if (!pixel)
        return std::nullopt;
    return image.pixelColor(*pixel);
}

} // namespace Vorel
