// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The picture area: two scroll views that scroll and zoom together for the side-by-side
// modes, or one for a single composed picture (anaglyphs).
#pragma once

#include <QPoint>
#include <QTimer>
#include <QWidget>

class QLabel;
class QScrollArea;

namespace Vorel {

class PairView : public QWidget {
    Q_OBJECT
public:
    explicit PairView(QWidget *parent = nullptr);

    void showPair(const QImage &left, const QImage &right);
    void showSingle(const QImage &image);
    void clear();

    void fitToView();
    void showActualSize();
    double zoom() const { return scale; }
    // Size available to one picture: what the preview copies are made for.
    QSize pictureArea() const;

signals:
    // After every scroll or zoom: the magnification relative to the fitted one, and the
    // visible centre as fractions of the picture from its top-left corner.
    void viewChanged(double z, double u, double v);
    // The left button held still on the picture for half a second.
    void longPressed();

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void applyZoom();
    double fitScale() const;
    void reportView();

    QScrollArea *areas[2];
    QLabel *labels[2];
    QImage images[2];
    bool pairShown = false;
    bool fitting = true;
    double scale = 1;
    QTimer longPress;
    QPoint pressedAt;
};

} // namespace Vorel
