// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/pairview.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "app/cropoverlayview.h"

namespace Vorel {

PairView::PairView(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    for (int i = 0; i < 2; ++i) {
        labels[i] = new QLabel;
        labels[i]->setScaledContents(true);
        areas[i] = new QScrollArea;
        areas[i]->setWidget(labels[i]);
        areas[i]->setAlignment(Qt::AlignCenter);
        areas[i]->setBackgroundRole(QPalette::Dark);
        areas[i]->setFocusPolicy(Qt::NoFocus);
        layout->addWidget(areas[i]);
    }
    for (auto bar : {&QScrollArea::horizontalScrollBar, &QScrollArea::verticalScrollBar}) {
        connect((areas[0]->*bar)(), &QScrollBar::valueChanged, (areas[1]->*bar)(), &QScrollBar::setValue);
        connect((areas[1]->*bar)(), &QScrollBar::valueChanged, (areas[0]->*bar)(), &QScrollBar::setValue);
    }
    for (auto bar : {areas[0]->horizontalScrollBar(), areas[0]->verticalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, &PairView::reportView);
        connect(bar, &QScrollBar::rangeChanged, this, &PairView::reportView);
    }
    longPress.setSingleShot(true);
    longPress.setInterval(500);
    connect(&longPress, &QTimer::timeout, this, &PairView::longPressed);
    areas[0]->viewport()->installEventFilter(this);
    areas[1]->hide();
}

bool PairView::eventFilter(QObject *, QEvent *event)
{
    constexpr int stillDistance = 4; // a hand holding the button still moves a little
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        const auto *press = static_cast<QMouseEvent *>(event);
        if (press->button() == Qt::LeftButton) {
            pressedAt = press->position().toPoint();
            longPress.start();
        }
        break;
    }
    case QEvent::MouseMove:
        if ((static_cast<QMouseEvent *>(event)->position().toPoint() - pressedAt).manhattanLength() > stillDistance)
            longPress.stop();
        break;
    case QEvent::MouseButtonRelease:
        longPress.stop();
        break;
    default:
        break;
    }
    return false;
}

void PairView::showPair(const QImage &left, const QImage &right)
{
    images[0] = left;
    images[1] = right;
    pairShown = true;
    pixelExact = false;
    areas[1]->show();
    labels[0]->setPixmap(QPixmap::fromImage(left));
    labels[1]->setPixmap(QPixmap::fromImage(right));
    applyZoom();
}

void PairView::showSingle(const QImage &image, bool exact)
{
    images[0] = image;
    images[1] = QImage();
    pairShown = false;
    pixelExact = exact;
    areas[1]->hide();
    labels[0]->setPixmap(QPixmap::fromImage(image));
    labels[1]->clear();
    applyZoom();
}

void PairView::clear()
{
    for (int i = 0; i < 2; ++i) {
        images[i] = QImage();
        labels[i]->clear();
        labels[i]->resize(0, 0);
    }
}

void PairView::setCropMode(bool on)
{
    for (int i = 0; i < 2; ++i) {
        delete labels[i]->layout(); // the overlay goes with its label's layout item, not the widget
        delete overlays[i];
        overlays[i] = nullptr;
        if (!on)
            continue;
        overlays[i] = new CropOverlayView(labels[i]);
        auto *fill = new QVBoxLayout(labels[i]); // the overlay spans the whole picture
        fill->setContentsMargins(0, 0, 0, 0);
        fill->addWidget(overlays[i]);
        connect(overlays[i], &CropOverlayView::confirmed, this, &PairView::cropConfirmed);
    }
    if (!on)
        return;
    for (int i = 0; i < 2; ++i)
        connect(overlays[i], &CropOverlayView::rectChanged, overlays[1 - i], &CropOverlayView::setCropRect);
}

QSize PairView::pictureArea() const
{
    const QSize whole = areas[0]->maximumViewportSize();
    return pairShown ? QSize((width() - 2) / 2, whole.height()) : QSize(width(), whole.height());
}

void PairView::fitToView()
{
    fitting = true;
    applyZoom();
}

void PairView::showActualSize()
{
    fitting = false;
    scale = 1;
    applyZoom();
}

void PairView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (fitting)
        applyZoom();
}

double PairView::fitScale() const
{
    const QSize area = pictureArea();
    return std::min(double(area.width()) / images[0].width(), double(area.height()) / images[0].height());
}

void PairView::applyZoom()
{
    const QImage &first = images[0];
    if (first.isNull())
        return;
    if (pixelExact)
        scale = 1 / devicePixelRatioF();
    else if (fitting)
        scale = fitScale();
    for (int i = 0; i < 2; ++i)
        if (!images[i].isNull())
            labels[i]->resize(std::max(1, int(images[i].width() * scale)), std::max(1, int(images[i].height() * scale)));
    reportView();
}

void PairView::reportView()
{
    if (images[0].isNull())
        return;
    // A picture smaller than its viewport is centred in it, so its centre is what is seen.
    const auto centre = [](const QScrollBar *bar, int viewport, int picture) {
        return picture > viewport ? (bar->value() + viewport / 2.0) / picture : 0.5;
    };
    const QWidget *viewport = areas[0]->viewport();
    const double fit = fitScale();
    emit viewChanged(fit > 0 ? scale / fit : 1.0,
                     centre(areas[0]->horizontalScrollBar(), viewport->width(), labels[0]->width()),
                     centre(areas[0]->verticalScrollBar(), viewport->height(), labels[0]->height()));
}

} // namespace Vorel
