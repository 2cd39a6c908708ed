// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// One picture drawn on black at a scale and offset, fitted and centred by default; what every
// projector screen shows. A pixel-exact picture is drawn unscaled instead.
#pragma once

#include <optional>

#include <QImage>
#include <QPointF>
#include <QWidget>

namespace Vorel {

class FitImageView : public QWidget {
    Q_OBJECT
public:
    explicit FitImageView(QWidget *parent = nullptr);

    // Fitted and centred again. A pixel-exact picture (an interlaced one) is centred one picture
    // pixel on one screen pixel, cropped when larger than the view, and never follows the main
    // view: its lines only work on the screen's own lines.
    void setImage(const QImage &image, bool pixelExact = false);
    // The main view's relative zoom z and visible centre (u, v), as fractions of the picture
    // from its top-left corner: the point (u, v) lands in the middle of this view.
    void followView(double z, double u, double v);

    double scale() const { return currentScale; }
    QPointF offset() const { return currentOffset; }
    double fitScale() const;
    const QImage &image() const { return picture; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void place();
    const QImage &sourceFor(double scale);

    QImage picture;
    bool pixelExact = false;
    double currentScale = 1;
    QPointF currentOffset;
    std::optional<double> followedZoom;
    QPointF followedCentre{0.5, 0.5};
    // A smoothly reduced copy near the drawing scale, so a 24-megapixel picture is not
    // resampled from full size on every repaint.
    QImage reduced;
    int reducedLevel = 0;
};

} // namespace Vorel
