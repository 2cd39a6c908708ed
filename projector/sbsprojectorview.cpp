// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "projector/sbsprojectorview.h"

#include "projector/fitimageview.h"

namespace Vorel {

SBSProjectorView::SBSProjectorView(QWidget *parent)
    : QWidget(parent), leftView(new FitImageView(this)), divider(new QWidget(this)), rightView(new FitImageView(this))
{
    setAutoFillBackground(true);
    setPalette(QPalette(Qt::black));
    divider->setAutoFillBackground(true);
    divider->setPalette(QPalette(Qt::darkGray));
}

void SBSProjectorView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const int half = width() / 2;
    leftView->setGeometry(0, 0, half, height());
    divider->setGeometry(half, 0, 1, height());
    rightView->setGeometry(half + 1, 0, std::max(0, width() - half - 1), height());
}

} // namespace Vorel
