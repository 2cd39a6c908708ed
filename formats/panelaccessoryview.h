// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The orientation chooser's accessory: the "Orientation:" pop-up of the eight EXIF values
// and the hint below it.
#pragma once

#include <QWidget>

class QComboBox;

namespace Vorel {

class PanelAccessoryView : public QWidget {
    Q_OBJECT
public:
    explicit PanelAccessoryView(QWidget *parent = nullptr);

    int selectedOrientationValue() const { return selectedValue; }
    QComboBox *popup() const { return orientationPopup; }

private:
    QComboBox *orientationPopup;
    int selectedValue;
};

} // namespace Vorel
