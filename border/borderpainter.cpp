// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/borderpainter.h"

#include <QPainter>
#include <QPainterPath>

namespace Vorel {

// The drawing model has its origin at the canvas's bottom edge of unrounded height H, so with
// the pixel height truncated every top-down coordinate moves up by H - trunc(H). An unscaled
// image at a fractional position lands on the nearest pixel (a blit, so no resampling blur); a
// scaled one is resampled in place. A painter over a region is shifted by whole pixels, which
// leaves the sampling and coverage of every pixel unchanged.
void paintBorderRegion(QImage &canvas, const QRect &region, const BorderScene &scene)
{
    QImage view(canvas.bits() + static_cast<qsizetype>(region.top()) * canvas.bytesPerLine() + region.left() * 4,
                region.width(), region.height(), canvas.bytesPerLine(), canvas.format());
    view.fill(scene.background); // a fill over a fresh surface equals source-over
    QPainter painter(&view);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(-region.left(), (canvas.height() - scene.layout.height) - region.top());

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

} // namespace Vorel
