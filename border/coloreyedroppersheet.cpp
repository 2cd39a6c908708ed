// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/coloreyedroppersheet.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "border/colorwellwidget.h"
#include "border/eyedropperimagewidget.h"

namespace Vorel {

ColorEyedropperSheet::ColorEyedropperSheet(const QImage &image, QWidget *parent)
    : QDialog(parent)
    , preview(new ColorWellWidget(this))
{
    setWindowModality(Qt::WindowModal);
    auto *picture = new EyedropperImageWidget(image, this);
    auto *hint = new QLabel(tr("Click on the image to get the color."), this);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);

    auto *footer = new QHBoxLayout;
    footer->addWidget(hint, 1);
    footer->addWidget(preview);
    footer->addWidget(buttons);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(picture, 1);
    layout->addLayout(footer);
    resize(720, 560);

    connect(picture, &EyedropperImageWidget::colorHovered, this,
            [this](const QColor &color) { preview->setColor(SrgbColor::fromQColor(color)); });
    connect(picture, &EyedropperImageWidget::colorPicked, this, [this](const QColor &color) {
        emit colorPicked(SrgbColor::fromQColor(color));
        accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

} // namespace Vorel
