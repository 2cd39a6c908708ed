// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/imageborderprocessor.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include <QtGlobal>

#include "border/bordercopy.h"
#include "border/borderlayout.h"
#include "core/largebuffer.h"
#include "core/parallelrows.h"

namespace Vorel {

namespace {

// A canvas side that is not a finite number inside the 64-bit range is a programming or
// settings fault that cannot be drawn at all; stop rather than guess a size.
int64_t truncatedSide(double side)
{
    constexpr double int64Limit = 9223372036854775808.0; // 2^63
    if (!std::isfinite(side) || side >= int64Limit || side < -int64Limit)
        qFatal("image border: canvas side %f is not a drawable size", side);
    return static_cast<int64_t>(side);
}

// The two formats the painter blits onto the canvas directly; others are converted once here
// rather than once per band.
QImage blittable(const QImage &image)
{
    if (image.isNull() || image.format() == QImage::Format_ARGB32_Premultiplied
        || image.format() == QImage::Format_RGB32)
        return image;
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

std::optional<QImage> ImageBorderProcessor::compose(const QImage &left, const QImage &right,
                                                    const ImageBorderSettings &settings) const
{
    if (left.isNull())
        return std::nullopt;
    const double w = left.width();
    const double h = left.height();
    const BorderLayout layout = borderLayout(w, h, settings);

    const int64_t canvasWidth = truncatedSide(layout.width);
    const int64_t canvasHeight = truncatedSide(layout.height);
    constexpr int64_t maxSide = std::numeric_limits<int>::max();
    if (canvasWidth <= 0 || canvasHeight <= 0 || canvasWidth > maxSide || canvasHeight > maxSide)
        return std::nullopt;
    QImage canvas = newLargeImage(static_cast<int>(canvasWidth), static_cast<int>(canvasHeight), QImage::Format_ARGB32_Premultiplied);
    if (canvas.isNull())
        return std::nullopt;

    const QColor background = settings.useBorder ? settings.borderColor.toQColor() : QColor(Qt::black);
    const QImage leftPixels = blittable(left);
    const QImage rightPixels = blittable(right);
    const BorderScene scene{layout, background, leftPixels, rightPixels, settings, w, h};
    if (copyBorderScene(canvas, scene))
        return canvas;
    // Otherwise each band of rows gets its own painter.
    parallelRows(canvasHeight, [&](int64_t begin, int64_t end) {
        paintBorderRegion(canvas, QRect(0, int(begin), canvas.width(), int(end - begin)), scene);
    });
    return canvas;
}

} // namespace Vorel
