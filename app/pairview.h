// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The picture area: two scroll views that scroll and zoom together for the side-by-side
// modes, or one for a single composed picture (anaglyphs, over/under, interlaced).
#pragma once

#include <QPoint>
#include <QTimer>
#include <QWidget>

class QLabel;
class QScrollArea;

namespace Vorel {

class CropOverlayView;

class PairView : public QWidget {
    Q_OBJECT
public:
    explicit PairView(QWidget *parent = nullptr);

    void showPair(const QImage &left, const QImage &right);
    // A pixel-exact picture (an interlaced one) is shown one picture pixel on one screen pixel,
    // whatever fitting or actual size asks: its lines only work on the screen's own lines.
    void showSingle(const QImage &image, bool pixelExact = false);
    void clear();

    void fitToView();
    void showActualSize();
    double zoom() const { return scale; }
    // Size available to one picture: what the preview copies are made for.
    QSize pictureArea() const;
    // The pixel size of the (first) picture shown.
    QSize shownPictureSize() const { return images[0].size(); }

    // Crop mode: a crop overlay over the first picture, and over the second one showing the
    // same rectangle. The first one's is what a crop uses.
    void setCropMode(bool on);
    CropOverlayView *cropOverlay() const { return overlays[0]; }

signals:
    // After every scroll or zoom: the magnification relative to the fitted one, and the
    // visible centre as fractions of the picture from its top-left corner.
    void viewChanged(double z, double u, double v);
    // The left button held still on the picture for half a second.
    void longPressed();
    void cropConfirmed();

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void applyZoom();
    double fitScale() const;
    void reportView();

    QScrollArea *areas[2];
    QLabel *labels[2];
    CropOverlayView *overlays[2] = {nullptr, nullptr};
    QImage images[2];
    bool pairShown = false;
    bool pixelExact = false;
    bool fitting = true;
    double scale = 1;
    QTimer longPress;
    QPoint pressedAt;
};

} // namespace Vorel
