// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "photos/preferencesdialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/preferences.h"

namespace Vorel
{

PreferencesDialog::PreferencesDialog(Preferences &store, QWidget *parent)
    : QDialog(parent)
    , preferences(store)
    , originalPicker(new QRadioButton(tr("The album window (original)")))
    , systemPicker(new QRadioButton(tr("The desktop's file chooser (system)")))
    , folders(new QListWidget)
{
    setWindowTitle(tr("Preferences"));
    chooseFolder = [this] { return QFileDialog::getExistingDirectory(this, tr("Add Album Folder")); };
    const PhotoSettings stored = PhotoSettings::load(preferences);

    auto *pickerBox = new QGroupBox(tr("Open from Photos Library with"));
    auto *pickerLayout = new QVBoxLayout(pickerBox);
    pickerLayout->addWidget(originalPicker);
    pickerLayout->addWidget(systemPicker);
    (stored.picker == PhotoPicker::system ? systemPicker : originalPicker)->setChecked(true);

    auto *folderBox = new QGroupBox(tr("Album folders besides Pictures"));
    auto *folderLayout = new QVBoxLayout(folderBox);
    folders->addItems(stored.folders);
    folderLayout->addWidget(folders);
    auto *folderButtons = new QHBoxLayout;
    auto *add = new QPushButton(tr("Add..."));
    auto *remove = new QPushButton(tr("Remove"));
    folderButtons->addWidget(add);
    folderButtons->addWidget(remove);
    folderButtons->addStretch();
    folderLayout->addLayout(folderButtons);
    connect(add, &QPushButton::clicked, this, &PreferencesDialog::addFolder);
    connect(remove, &QPushButton::clicked, this, [this] { qDeleteAll(folders->selectedItems()); });

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &PreferencesDialog::confirm);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(pickerBox);
    layout->addWidget(folderBox);
    layout->addWidget(buttons);
}

PhotoSettings PreferencesDialog::settings() const
{
    PhotoSettings current;
    current.picker = systemPicker->isChecked() ? PhotoPicker::system : PhotoPicker::original;
    for (int row = 0; row < folders->count(); ++row)
        current.folders << folders->item(row)->text();
    return current;
}

void PreferencesDialog::addFolder()
{
    const QString folder = chooseFolder();
    if (!folder.isEmpty() && folders->findItems(folder, Qt::MatchExactly).isEmpty())
        folders->addItem(folder);
}

void PreferencesDialog::confirm()
{
    const PhotoSettings current = settings();
    current.save(preferences);
    emit settingsConfirmed(current);
    accept();
}

} // namespace Vorel
