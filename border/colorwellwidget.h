// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// A colour well: a swatch showing one colour (over a checkerboard, so alpha shows).
#pragma once

#include <QFrame>

#include "border/imagebordersettings.h"

namespace Vorel {

class ColorWellWidget : public QFrame {
    Q_OBJECT
public:
    explicit ColorWellWidget(QWidget *parent = nullptr);

    SrgbColor color() const { return current; }
    void setColor(const SrgbColor &color);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    SrgbColor current;
};

} // namespace Vorel
