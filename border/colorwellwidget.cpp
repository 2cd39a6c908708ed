// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/colorwellwidget.h"

#include <QPainter>

namespace Vorel {

namespace {
constexpr int checkerSize = 6;
}

ColorWellWidget::ColorWellWidget(QWidget *parent)
    : QFrame(parent)
{
    setFrameStyle(QFrame::Box | QFrame::Sunken);
    setMinimumSize(36, 20);
}

void ColorWellWidget::setColor(const SrgbColor &color)
{
    current = color;
    update();
}

QSize ColorWellWidget::sizeHint() const { return {48, 22}; }

void ColorWellWidget::paintEvent(QPaintEvent *event)
{
    {
        QPainter painter(this);
        const QRect inside = contentsRect();
        for (int y = inside.top(); y <= inside.bottom(); y += checkerSize)
            for (int x = inside.left(); x <= inside.right(); x += checkerSize) {
                const bool dark = ((x - inside.left()) / checkerSize + (y - inside.top()) / checkerSize) % 2;
                painter.fillRect(QRect(x, y, checkerSize, checkerSize).intersected(inside),
                                 dark ? QColor(0xc0, 0xc0, 0xc0) : Qt::white);
            }
        painter.fillRect(inside, current.toQColor());
    }
    QFrame::paintEvent(event);
}

} // namespace Vorel
