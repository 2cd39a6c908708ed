// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The main window: one stereo pair, its views and the commands that act on it.
#pragma once

#include <QMainWindow>

#include "core/stereoimageprocessor.h"

namespace Vorel {

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(QWidget *parent = nullptr);

private:
    StereoImageProcessor proc;
};

} // namespace Vorel
