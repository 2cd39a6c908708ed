// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The settings window ("Preferences..."): which photo picker opens the library and the extra
// album folders. Edits a copy of the settings; OK stores them and hands them back.
#pragma once

#include <functional>

#include <QDialog>

#include "photos/photosettings.h"

class QListWidget;
class QRadioButton;

namespace Vorel
{

class Preferences;

class PreferencesDialog : public QDialog
{
    Q_OBJECT
public:
    PreferencesDialog(Preferences &preferences, QWidget *parent = nullptr);

    // The settings as the controls show them now.
    PhotoSettings settings() const;
    // Asks for a folder to add (empty: none); replaceable so tests can answer it.
    std::function<QString()> chooseFolder;

signals:
    void settingsConfirmed(const Vorel::PhotoSettings &settings);

private:
    void addFolder();
    void confirm();

    Preferences &preferences;
    QRadioButton *originalPicker;
    QRadioButton *systemPicker;
    QListWidget *folders;
};

} // namespace Vorel
