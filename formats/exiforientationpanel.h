// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The "Exif Orientation Rewrite" file chooser with its orientation accessory; confirming it
// starts the rewrite of the chosen files in an OrientationRewriteDialog.
#pragma once

#include <QCoreApplication>

class QFileDialog;
class QWidget;

namespace Vorel {

class PanelAccessoryView;

class ExifOrientationPanel {
public:
    // Opens the chooser (window-modal on `parent`) and, on confirmation, the run.
    static void show(QWidget *parent);

    // The chooser as show() opens it, with the accessory placed under the file list.
    static QFileDialog *createChooser(QWidget *parent, PanelAccessoryView **accessory);

    // Shared with the rewrite run's texts.
    Q_DECLARE_TR_FUNCTIONS(ExifOrientationPanel)
};

} // namespace Vorel
