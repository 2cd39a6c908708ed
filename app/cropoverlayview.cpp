// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cropoverlayview.h"

#include <QFontDatabase>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace Vorel {

namespace {

constexpr double handleSize = 10;

struct AspectItem {
    const char *label;
    int widthPart, heightPart;
};
constexpr AspectItem aspectItems[] = {{QT_TRANSLATE_NOOP("Vorel::CropOverlayView", "Free"), 0, 0},
                                      {"1 : 1", 1, 1},
                                      {"4 : 3", 4, 3},
                                      {"3 : 2", 3, 2},
                                      {"16 : 9", 16, 9},
                                      {"3 : 4", 3, 4},
                                      {"2 : 3", 2, 3},
                                      {"9 : 16", 9, 16}};

QColor white(double opacity) { return QColor::fromRgbF(1, 1, 1, float(opacity)); }

} // namespace

CropOverlayView::CropOverlayView(QWidget *parent) : QWidget(parent)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_TranslucentBackground);
    longPressTimer.setSingleShot(true);
    longPressTimer.setInterval(longPressMilliseconds);
    connect(&longPressTimer, &QTimer::timeout, this, &CropOverlayView::showAspectMenu);
    setCursor(Qt::CrossCursor);
}

void CropOverlayView::setCropRect(const QRectF &rect)
{
    rect_ = rect;
    update();
}

void CropOverlayView::change(const QRectF &rect)
{
    setCropRect(rect);
    emit rectChanged(rect_);
}

void CropOverlayView::aspectSelected(double widthPart, double heightPart)
{
    if (widthPart > 0 && heightPart > 0)
        change(CropGeometry::fittedToAspect(rect_, widthPart, heightPart, size()));
}

void CropOverlayView::showAspectMenu()
{
    if (rect_.isNull())
        return;
    QMenu menu(this);
    menu.setTitle(tr("Aspect ratio"));
    menu.addSection(tr("Aspect ratio"));
    for (const AspectItem &item : aspectItems)
        menu.addAction(tr(item.label), this, [this, item] { aspectSelected(item.widthPart, item.heightPart); });
    menu.exec(mapToGlobal(dragStart.toPoint()));
}

void CropOverlayView::mousePressEvent(QMouseEvent *event)
{
    dragStart = event->position();
    originalRect = rect_;
    hitArea = CropGeometry::hitTest(rect_, dragStart);
    longPressTimer.start();
}

void CropOverlayView::mouseDoubleClickEvent(QMouseEvent *)
{
    longPressTimer.stop();
    emit rectChanged(rect_); // the mirrored overlay shows what is confirmed
    emit confirmed();
}

void CropOverlayView::mouseMoveEvent(QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton)) {
        updateCursor(CropGeometry::hitTest(rect_, event->position()));
        return;
    }
    longPressTimer.stop();
    change(CropGeometry::dragged(hitArea, originalRect, dragStart, event->position(), size()));
    updateCursor(hitArea);
}

void CropOverlayView::mouseReleaseEvent(QMouseEvent *)
{
    longPressTimer.stop();
    change(CropGeometry::released(rect_));
}

void CropOverlayView::leaveEvent(QEvent *) { setCursor(Qt::ArrowCursor); }

void CropOverlayView::updateCursor(const CropHit &hit)
{
    switch (hit.kind) {
    case CropHit::corner:
        setCursor(hit.which == CropHit::topLeft || hit.which == CropHit::bottomRight ? Qt::SizeFDiagCursor
                                                                                      : Qt::SizeBDiagCursor);
        break;
    case CropHit::edge:
        setCursor(hit.which == CropHit::left || hit.which == CropHit::right ? Qt::SizeHorCursor : Qt::SizeVerCursor);
        break;
    case CropHit::inside:
        setCursor(Qt::OpenHandCursor);
        break;
    case CropHit::outside:
        setCursor(Qt::CrossCursor);
        break;
    }
}

void CropOverlayView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bounds = QRectF(rect());
    if (rect_.isNull()) {
        painter.setPen(QPen(white(0.3), 1));
        painter.drawLine(QPointF(bounds.center().x(), 0), QPointF(bounds.center().x(), bounds.height()));
        painter.drawLine(QPointF(0, bounds.center().y()), QPointF(bounds.width(), bounds.center().y()));
        return;
    }
    QPainterPath outside;
    outside.addRect(bounds);
    outside.addRect(rect_);
    painter.fillPath(outside, QColor::fromRgbF(0, 0, 0, 0.45f)); // odd-even fill: the rectangle stays clear
    painter.setPen(QPen(white(1), 1.5));
    painter.drawRect(rect_);
    painter.setPen(QPen(white(0.35), 0.5));
    for (const double third : {1.0 / 3, 2.0 / 3}) {
        const double x = rect_.left() + rect_.width() * third, y = rect_.top() + rect_.height() * third;
        painter.drawLine(QPointF(x, rect_.top()), QPointF(x, rect_.bottom()));
        painter.drawLine(QPointF(rect_.left(), y), QPointF(rect_.right(), y));
    }
    const auto handle = [&](const QPointF &at, double opacity) {
        const QRectF square(at.x() - handleSize / 2, at.y() - handleSize / 2, handleSize, handleSize);
        QPainterPath path;
        path.addRoundedRect(square, 2, 2);
        painter.fillPath(path, white(opacity));
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.drawPath(path);
    };
    for (const QPointF &middle : {QPointF(rect_.center().x(), rect_.top()), QPointF(rect_.center().x(), rect_.bottom()),
                                  QPointF(rect_.left(), rect_.center().y()), QPointF(rect_.right(), rect_.center().y())})
        handle(middle, 0.8);
    for (const QPointF &corner : {rect_.topLeft(), rect_.topRight(), rect_.bottomLeft(), rect_.bottomRight()})
        handle(corner, 1);

    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSize(11);
    painter.setFont(font);
    const QString size = QStringLiteral("%1 × %2").arg(qint64(rect_.width())).arg(qint64(rect_.height()));
    const QFontMetricsF metrics(font);
    const QPointF textAt(rect_.center().x() - metrics.horizontalAdvance(size) * 0.5, rect_.bottom() + 4);
    QPainterPath plate;
    plate.addRoundedRect(QRectF(textAt.x() - 4, textAt.y() - 2, metrics.horizontalAdvance(size) + 8, metrics.height() + 2),
                         3, 3);
    painter.fillPath(plate, QColor::fromRgbF(0, 0, 0, 0.5f));
    painter.setPen(Qt::white);
    painter.drawText(QRectF(textAt, QSizeF(metrics.horizontalAdvance(size), metrics.height())), size);
}

} // namespace Vorel
