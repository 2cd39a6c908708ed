// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/panelaccessoryview.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

#include "formats/orientationrewriterun.h"

namespace Vorel {

namespace {

// The chooser is opened to fix pictures that load rotated; the most common fix is
// "6 - Rotate 90° clockwise", but starting from the neutral value makes no silent assumption.
constexpr int initialOrientation = 1;

} // namespace

PanelAccessoryView::PanelAccessoryView(QWidget *parent)
    : QWidget(parent)
    , orientationPopup(new QComboBox(this))
    , selectedValue(initialOrientation)
{
    for (int value = 1; value <= int(orientationLabels.size()); ++value)
        orientationPopup->addItem(translatedOrientationLabel(value), value);
    orientationPopup->setCurrentIndex(initialOrientation - 1);
    connect(orientationPopup, &QComboBox::currentIndexChanged, this,
        [this](int index) { selectedValue = orientationPopup->itemData(index).toInt(); });

    auto *layout = new QGridLayout(this);
    layout->addWidget(new QLabel(tr("Orientation:"), this), 0, 0);
    layout->addWidget(orientationPopup, 0, 1);
    layout->addWidget(new QLabel(tr("Select files and press \"Rewrite Exif\" to apply"), this), 1, 0, 1, 2);
    layout->setColumnStretch(2, 1);
}

} // namespace Vorel
