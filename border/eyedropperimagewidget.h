// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Shows an image fitted into the widget and reports the colour under the pointer: hovered
// while it moves, picked on a click inside the image.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace Vorel {

class EyedropperImageWidget : public QWidget {
    Q_OBJECT
public:
    explicit EyedropperImageWidget(const QImage &image, QWidget *parent = nullptr);

signals:
    void colorHovered(const QColor &color);
    void colorPicked(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    std::optional<QColor> colorAt(QPointF position) const;

    QImage image;
    QPixmap fitted; // the image scaled once per widget size, not on every repaint
};

} // namespace Vorel
