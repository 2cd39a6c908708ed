// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "projector/fitimageview.h"

#include <algorithm>
#include <cmath>

#include <QPainter>

namespace Vorel {

FitImageView::FitImageView(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

double FitImageView::fitScale() const
{
    const double iw = picture.width(), ih = picture.height(), vw = width(), vh = height();
    return iw > 0 && ih > 0 && vw > 0 && vh > 0 ? std::min(vw / iw, vh / ih) : 1.0;
}

void FitImageView::setImage(const QImage &image, bool exact)
{
    picture = image;
    pixelExact = exact;
    reduced = QImage();
    reducedLevel = 0;
    place();
}

void FitImageView::followView(double z, double u, double v)
{
    followedZoom = z;
    followedCentre = {u, v};
    place();
}

void FitImageView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    place();
}

void FitImageView::place()
{
    currentOffset = {};
    if (pixelExact)
        currentScale = 1 / devicePixelRatioF();
    else if (followedZoom) {
        currentScale = *followedZoom * fitScale();
        currentOffset = {(0.5 - followedCentre.x()) * picture.width() * currentScale,
                         (0.5 - followedCentre.y()) * picture.height() * currentScale};
    } else
        currentScale = fitScale();
    update();
}

const QImage &FitImageView::sourceFor(double scale)
{
    // Level k holds the picture reduced by 2^k, the smallest reduction still at least as
    // large as what is drawn.
    int level = 0;
    while (scale * std::pow(2.0, level + 1) <= 1.0 && level < 8)
        ++level;
    if (level == 0)
        return picture;
    if (level != reducedLevel || reduced.isNull()) {
        const int w = std::max(1, picture.width() >> level), h = std::max(1, picture.height() >> level);
        reduced = picture.scaled(w, h, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        reducedLevel = level;
    }
    return reduced;
}

void FitImageView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (picture.isNull())
        return;
    if (pixelExact) {
        // On whole screen pixels, unsmoothed, so that no line is blended with its neighbour.
        const qreal ratio = devicePixelRatioF();
        QImage shown = picture;
        shown.setDevicePixelRatio(ratio);
        const QPointF corner(std::floor((width() * ratio - picture.width()) / 2) / ratio,
                             std::floor((height() * ratio - picture.height()) / 2) / ratio);
        painter.drawImage(corner, shown);
        return;
    }
    const double w = picture.width() * currentScale, h = picture.height() * currentScale;
    const QRectF target(width() / 2.0 + currentOffset.x() - w / 2, height() / 2.0 + currentOffset.y() - h / 2, w, h);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, sourceFor(currentScale));
}

} // namespace Vorel
