// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The photo library: folders as albums and their stereo pictures, described from names and
// file headers alone (no pixels are decoded). Synchronous; LibraryScan runs it off-thread.
#pragma once

#include <functional>
#include <vector>

#include <QHash>
#include <QString>
#include <QStringList>

#include "photos/photoasset.h"

namespace Vorel {

class Preferences;

// The user's Pictures folder (XDG user dirs); empty when there is none.
QString defaultPicturesFolder();

// The folders the user added to the library beyond Pictures (preferences key "photos.folders",
// one absolute path per line).
QStringList libraryFolders(const Preferences &preferences);
void setLibraryFolders(Preferences &preferences, const QStringList &folders);

class PhotoLibrary {
public:
    // `pictures` becomes "All Photos" and each of its direct sub-folders an album; each of
    // `extraFolders` is one more album. Missing folders are left out.
    explicit PhotoLibrary(QString pictures = defaultPicturesFolder(), QStringList extraFolders = {});
    static PhotoLibrary fromPreferences(const Preferences &preferences);

    // "All Photos" first, then its sub-folders and the extra folders in natural order of their
    // titles; hidden folders are skipped. Counts every picture, so it walks the whole tree.
    std::vector<PhotoAlbum> albums() const;

    const QString &picturesFolder() const { return pictures; }
    const QStringList &extraFolders() const { return extras; }

private:
    QString pictures;
    QStringList extras;
};

// The stereo picture files (core/stereofilelist extensions) in `folder` and all its sub-folders,
// absolute paths in natural order of their names, folder by folder. Hidden entries, symlink
// loops and unreadable folders are passed over. `stop` is polled between folders.
QStringList listAlbumFiles(const QString &folder, const std::function<bool()> &stop = {});

// Describes the files of one album (as listAlbumFiles gives them) one by one: left or right
// when a name pair among them says so, else by the file's header (see describeFile).
class PhotoDescriber {
public:
    PhotoDescriber(QStringList files, QString album);
    qsizetype count() const { return files.size(); }
    PhotoAsset describe(qsizetype index) const;

private:
    QStringList files;
    QString album;
    QHash<QString, std::pair<PhotoKind, QString>> pairs; // path -> side, partner
};

// Every file described, in order.
std::vector<PhotoAsset> describePhotos(const QStringList &files, const QString &album);

// The kind and upright size of one file from its header alone, ignoring its name: MPO for an
// MP index of two or more pictures, spatial for a HEIF stereo pair group, side-by-side for
// .jps/.pns or a picture at least twice as wide as high.
PhotoAsset describeFile(const QString &path, const QString &album);

// listAlbumFiles + describePhotos.
std::vector<PhotoAsset> albumPhotos(const QString &album);

} // namespace Vorel
