// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "photos/photolibrary.h"

#include <set>

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "core/preferences.h"
#include "core/stereofilelist.h"

namespace Vorel {

namespace {

const QString foldersKey = QStringLiteral("photos.folders");

// Direct, visible sub-folders in natural order.
QStringList subFolders(const QString &folder)
{
    QStringList folders;
    const QFileInfoList entries = QDir(folder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries)
        folders.append(entry.absoluteFilePath());
    sortNaturally(folders);
    return folders;
}

// Depth first, the folder's own files before its sub-folders'; `visited` holds canonical
// paths, so a symlink back up the tree is entered once only.
void collectFiles(const QString &folder, std::set<QString> &visited, const std::function<bool()> &stop,
                  QStringList &files)
{
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    if (canonical.isEmpty() || !visited.insert(canonical).second || (stop && stop()))
        return;
    files += listStereoFiles(folder);
    for (const QString &sub : subFolders(folder))
        collectFiles(sub, visited, stop, files);
}

PhotoAlbum albumOf(const QString &id, const QString &title, const QStringList &files)
{
    return {id, title, int(files.size()), files.value(0)};
}

// The files of All Photos grouped by the sub-folder of Pictures they are in, so that one walk
// of the tree serves every album in it.
QHash<QString, QStringList> filesBySubFolder(const QString &pictures, const QStringList &files)
{
    QHash<QString, QStringList> groups;
    const qsizetype prefix = pictures.size() + 1;
    for (const QString &file : files) {
        const qsizetype slash = file.indexOf(QLatin1Char('/'), prefix);
        if (slash > 0)
            groups[file.left(slash)].append(file);
    }
    return groups;
}

} // namespace

QString defaultPicturesFolder() { return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation); }

QStringList libraryFolders(const Preferences &preferences)
{
    return preferences.text(foldersKey).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void setLibraryFolders(Preferences &preferences, const QStringList &folders)
{
    preferences.setText(foldersKey, folders.join(QLatin1Char('\n')));
}

PhotoLibrary::PhotoLibrary(QString pictures, QStringList extraFolders)
    : pictures(std::move(pictures)), extras(std::move(extraFolders))
{
}

PhotoLibrary PhotoLibrary::fromPreferences(const Preferences &preferences)
{
    return PhotoLibrary(defaultPicturesFolder(), libraryFolders(preferences));
}

std::vector<PhotoAlbum> PhotoLibrary::albums() const
{
    std::vector<PhotoAlbum> albums;
    QStringList folders;
    QHash<QString, QStringList> picturesFiles;
    if (!pictures.isEmpty() && QFileInfo(pictures).isDir()) {
        const QString all = QDir::cleanPath(QFileInfo(pictures).absoluteFilePath());
        const QStringList files = listAlbumFiles(all);
        albums.push_back(albumOf(all, QStringLiteral("All Photos"), files));
        picturesFiles = filesBySubFolder(all, files);
        folders = subFolders(all);
    }
    for (const QString &extra : extras)
        if (QFileInfo(extra).isDir())
            folders.append(QDir::cleanPath(QFileInfo(extra).absoluteFilePath()));
    folders.removeDuplicates();
    sortNaturally(folders);
    for (const QString &folder : std::as_const(folders)) {
        const auto known = picturesFiles.constFind(folder);
        albums.push_back(albumOf(folder, QFileInfo(folder).fileName(),
                                 known != picturesFiles.cend() ? *known : listAlbumFiles(folder)));
    }
    return albums;
}

QStringList listAlbumFiles(const QString &folder, const std::function<bool()> &stop)
{
    QStringList files;
    // A symlink back to a folder above the album would list the album inside itself.
    std::set<QString> visited;
    for (QDir above(QFileInfo(folder).canonicalFilePath()); above.cdUp();)
        visited.insert(above.canonicalPath());
    collectFiles(folder, visited, stop, files);
    return files;
}

std::vector<PhotoAsset> albumPhotos(const QString &album) { return describePhotos(listAlbumFiles(album), album); }

} // namespace Vorel
