// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/eyedropperimagewidget.h"

#include <QMouseEvent>
#include <QPainter>

#include "border/eyedropperpick.h"

namespace Vorel {

EyedropperImageWidget::EyedropperImageWidget(const QImage &image, QWidget *parent)
    : QWidget(parent)
    , image(image)
{
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setMinimumSize(200, 150);
}

void EyedropperImageWidget::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitted = image.isNull() ? QPixmap()
                            : QPixmap::fromImage(image.scaled(size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

void EyedropperImageWidget::paintEvent(QPaintEvent *)
{
    if (fitted.isNull())
        return;
    QPainter painter(this);
    painter.drawPixmap((width() - fitted.width()) / 2, (height() - fitted.height()) / 2, fitted);
}

// The picking arithmetic counts from the bottom edge, y up.
std::optional<QColor> EyedropperImageWidget::colorAt(QPointF position) const
{
    return eyedropperColor(image, QPointF(position.x(), height() - position.y()), QSizeF(size()));
}

void EyedropperImageWidget::mouseMoveEvent(QMouseEvent *event)
{
    if (const std::optional<QColor> color = colorAt(event->position()))
        emit colorHovered(*color);
}

void EyedropperImageWidget::mousePressEvent(QMouseEvent *event)
{
    if (const std::optional<QColor> color = colorAt(event->position())) {
        unsetCursor();
        emit colorPicked(*color);
    }
}

} // namespace Vorel
