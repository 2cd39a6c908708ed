// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's photo library commands: the pickers, photo mode, reopening library entries
// from the recent files, and the settings window.
#include "app/mainwindow.h"

#include <algorithm>

#include <QFileDialog>
#include <QFileInfo>

#include "photos/photolibrary.h"
#include "photos/photopickerwindow.h"
#include "photos/preferencesdialog.h"

namespace Vorel
{

namespace
{

// The album as it is now, by file names alone: stepping needs no more, and reading every
// picture's header would keep the window waiting on a large album.
PhotoChoice listAlbum(const QString &folder)
{
    PhotoChoice choice;
    choice.album.id = folder;
    choice.album.title = QFileInfo(folder).fileName();
    for (const QString &path : listAlbumFiles(folder)) {
        PhotoAsset asset;
        asset.path = path;
        asset.album = folder;
        choice.assets.push_back(asset);
    }
    choice.album.count = int(choice.assets.size());
    return choice;
}

int positionOf(const std::vector<PhotoAsset> &assets, const QString &path)
{
    const auto found = std::find_if(assets.begin(), assets.end(), [&](const PhotoAsset &a) { return a.path == path; });
    return found == assets.end() ? -1 : int(found - assets.begin());
}

} // namespace

bool MainWindow::openPhotos(const PhotoChoice &choice)
{
    const auto path = [&](int index) { return choice.assets[size_t(index)].path; };
    const StereoEntry entry { path(choice.left), choice.right < 0 ? QString() : path(choice.right) };
    if (!openEntryAndShow(entry, StereoFileKind::byExtension))
        return false;
    photos.open(choice);
    isPhotoMode = true;
    HistoryEntry recent;
    recent.photoLocalIDs
        = entry.isSeparatePair() ? QStringList { entry.left, entry.right } : QStringList { entry.left };
    recent.photoAlbumID = choice.album.id;
    recent.photoIndexInAlbum = choice.left;
    fileHistory->add(recent);
    updateControls();
    return true;
}

// The album is listed again as it is now; the stored position wins while it still holds the
// first picture, else the picture is looked up by its identifier.
void MainWindow::reopenPhotos(const HistoryEntry &entry)
{
    if (entry.photoAlbumID && !entry.photoLocalIDs->isEmpty()) {
        PhotoChoice choice = listAlbum(*entry.photoAlbumID);
        const QStringList &ids = *entry.photoLocalIDs;
        const int stored = entry.photoIndexInAlbum.value_or(-1);
        const bool storedHolds
            = stored >= 0 && stored < int(choice.assets.size()) && choice.assets[size_t(stored)].path == ids.first();
        choice.left = storedHolds ? stored : positionOf(choice.assets, ids.first());
        choice.right = ids.size() == 2 ? positionOf(choice.assets, ids[1]) : -1;
        if (choice.left >= 0 && (ids.size() != 2 || choice.right >= 0) && openPhotos(choice))
            return;
    }
    alert(tr("Cannot open %1").arg(FileHistory::title(entry)));
}

void MainWindow::cpOpenFromPhotos()
{
    if (PhotoSettings::load(*prefs).picker == PhotoPicker::system) {
        choosePhotosWithSystemPicker();
        return;
    }
    if (!picker) {
        picker = new PhotoPickerWindow(*prefs, this);
        picker->setAttribute(Qt::WA_DeleteOnClose);
        connect(picker, &PhotoPickerWindow::photosChosen, this, &MainWindow::openPhotos);
    }
    picker->show();
    picker->raise();
    picker->activateWindow();
}

// The desktop's own chooser (through the desktop portal where there is one); the folder of the
// chosen files is the album stepped over.
void MainWindow::choosePhotosWithSystemPicker()
{
    QStringList paths = QFileDialog::getOpenFileNames(this, tr("Open from Photos Library..."), defaultPicturesFolder());
    if (paths.size() > 2) {
        alert(tr("Choose one side-by-side file, or two files (left and right)."));
        return;
    }
    if (paths.isEmpty())
        return;
    sortNaturally(paths);
    PhotoChoice choice = listAlbum(QFileInfo(paths[0]).absolutePath());
    choice.left = positionOf(choice.assets, QFileInfo(paths[0]).absoluteFilePath());
    choice.right = paths.size() == 2 ? positionOf(choice.assets, QFileInfo(paths[1]).absoluteFilePath()) : -1;
    // A file the library does not list (another type) opens as a plain file.
    if (choice.left < 0 || (paths.size() == 2 && choice.right < 0))
        openPaths(paths);
    else
        openPhotos(choice);
}

PhotoPickerWindow *MainWindow::photoPicker() const
{
    return picker;
}

void MainWindow::cpPreferences()
{
    auto *dialog = new PreferencesDialog(*prefs, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    if (picker)
        connect(dialog, &PreferencesDialog::settingsConfirmed, picker, &PhotoPickerWindow::reload);
    dialog->open();
}

QString MainWindow::navigationInformation() const
{
    if (isPhotoMode)
        return tr("%1 of %2 in the album %3")
            .arg(photos.photoIndex() + 1)
            .arg(photos.photoAssets().size())
            .arg(photos.album().title);
    const qsizetype listed = folder.imageList().size();
    return folder.isCurrentListed() ? tr("%1 of %2 in the folder").arg(folder.currentIndex() + 1).arg(listed)
                                    : tr("not among the %1 files of the folder").arg(listed);
}

} // namespace Vorel
