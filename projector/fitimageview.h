// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// One picture drawn on black at a scale and offset, fitted and centred by default; what every
// projector screen shows.
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

    void setImage(const QImage &image); // fitted and centred again
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
    const QImage &sourceFor(double scale);

    QImage picture;
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
