// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Both pictures on one screen: left half, a one-pixel dark grey divider, right half.
#pragma once

#include <QWidget>

namespace Vorel {

class FitImageView;

class SBSProjectorView : public QWidget {
    Q_OBJECT
public:
    explicit SBSProjectorView(QWidget *parent = nullptr);

    FitImageView *leftView;
    QWidget *divider;
    FitImageView *rightView;

protected:
    void resizeEvent(QResizeEvent *event) override;
};

} // namespace Vorel
