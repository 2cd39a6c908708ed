// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/imageborderprocessor.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include <QPainter>
#include <QPainterPath>
#include <QtGlobal>

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

struct Scene {
    const BorderLayout &layout;
    QColor background;
    const QImage &left;
    const QImage &right;
    const ImageBorderSettings &settings;
    double w;
    double h;
};

// Paints rows [begin, end) of the canvas. The drawing model has its origin at the canvas's
// bottom edge of unrounded height H, so with the pixel height truncated every top-down
// coordinate moves up by H - trunc(H). An unscaled image at a fractional position lands on
// the nearest pixel (a blit, so no resampling blur); a scaled one is resampled in place.
void paintRows(uchar *canvasBits, const QImage &canvas, int begin, int end, const Scene &scene)
{
    QImage band(canvasBits + static_cast<qsizetype>(begin) * canvas.bytesPerLine(), canvas.width(), end - begin,
                canvas.bytesPerLine(), canvas.format());
    band.fill(scene.background); // a fill over a fresh surface equals source-over
    QPainter painter(&band);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(0, (canvas.height() - scene.layout.height) - begin);

    const double radius = scene.settings.cornerRadiusPercent / 100 * scene.w;
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const Placement &slot : scene.layout.placements) {
        const QRectF rect(slot.x, slot.y, scene.w, scene.h);
        const QImage &image = slot.isRight ? scene.right : scene.left;
        if (image.isNull())
            continue;
        if (radius > 0) {
            painter.save();
            QPainterPath clip;
            clip.addRoundedRect(rect, radius, radius);
            painter.setClipPath(clip);
            painter.drawImage(rect, image);
            painter.restore();
        } else {
            painter.drawImage(rect, image);
        }
    }

    if (!scene.settings.useBorder || !scene.settings.useFusionDots)
        return;
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(Qt::NoPen);
    painter.setBrush(scene.settings.fusionDotColor.toQColor());
    const double dotRadius = (scene.settings.fusionDotSizePercent * scene.w / 100) * 0.5;
    for (const Placement &slot : scene.layout.placements) {
        if (slot.fusionDotY < 0)
            continue;
        const QPointF centre(slot.x + scene.w * 0.5, slot.fusionDotY);
        painter.drawEllipse(centre, dotRadius, dotRadius);
    }
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
    const Scene scene{layout, background, leftPixels, rightPixels, settings, w, h};
    // Each band gets its own painter over its own rows; integer shifts leave the sampling and
    // coverage of every pixel unchanged, so the bands match one painter over the whole canvas.
    uchar *bits = canvas.bits();
    parallelRows(canvasHeight, [&](int64_t begin, int64_t end) {
        paintRows(bits, canvas, static_cast<int>(begin), static_cast<int>(end), scene);
    });
    return canvas;
}

} // namespace Vorel
