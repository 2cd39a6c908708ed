// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The crop rectangle drawn over a picture (CropOverlayView): drawn, moved and reshaped with
// the mouse, snapped to an aspect ratio from a long-press menu, confirmed by a double click.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QTimer>
#include <QWidget>

#include "app/croprectgeometry.h"

namespace Vorel {

class CropOverlayView : public QWidget {
    Q_OBJECT
public:
    static constexpr int longPressMilliseconds = 600;

    explicit CropOverlayView(QWidget *parent = nullptr);

    QRectF cropRect() const { return rect_; }
    void setCropRect(const QRectF &rect); // no rectChanged
    // The ratio from the "Aspect ratio" menu; parts of 0 ("Free") change nothing.
    void aspectSelected(double widthPart, double heightPart);

signals:
    void rectChanged(const QRectF &rect); // after every change made here
    void confirmed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void change(const QRectF &rect);
    void showAspectMenu();
    void updateCursor(const CropHit &hit);

    QRectF rect_;
    CropHit hitArea;
    QPointF dragStart;
    QRectF originalRect;
    QTimer longPressTimer;
};

} // namespace Vorel
