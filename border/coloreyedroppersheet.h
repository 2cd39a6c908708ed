// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The colour picker sheet: a reference image to click on, with a live preview of the colour
// under the pointer.
#pragma once

#include <QDialog>

#include "border/imagebordersettings.h"

namespace Vorel {

class ColorWellWidget;

class ColorEyedropperSheet : public QDialog {
    Q_OBJECT
public:
    ColorEyedropperSheet(const QImage &image, QWidget *parent = nullptr);

signals:
    // Emitted once, just before the sheet closes.
    void colorPicked(const Vorel::SrgbColor &color);

private:
    ColorWellWidget *preview;
};

} // namespace Vorel
