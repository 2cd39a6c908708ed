// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/librarycommand.h"

#include <iostream>

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include "cli/clitext.h"
#include "cli/pipelineoptions.h"
#include "core/preferences.h"
#include "photos/photolibrary.h"
#include "photos/thumbnailfill.h"

namespace Vorel {

namespace {

void printLine(const QJsonObject &object)
{
    std::cout << QJsonDocument(object).toJson(QJsonDocument::Compact).constData() << '\n';
}

QJsonObject albumJson(const PhotoAlbum &album)
{
    return {{QStringLiteral("id"), album.id},
            {QStringLiteral("title"), album.title},
            {QStringLiteral("count"), album.count},
            {QStringLiteral("cover"), album.cover}};
}

QJsonObject photoJson(const PhotoAsset &photo)
{
    return {{QStringLiteral("path"), photo.path},
            {QStringLiteral("album"), photo.album},
            {QStringLiteral("kind"), photoKindName(photo.kind)},
            {QStringLiteral("width"), photo.size.width()},
            {QStringLiteral("height"), photo.size.height()}};
}

// The pictures of every album, each once.
QStringList libraryFiles(const std::vector<PhotoAlbum> &albums)
{
    QStringList files;
    for (const PhotoAlbum &album : albums)
        files += listAlbumFiles(album.id);
    files.removeDuplicates();
    return files;
}

} // namespace

int runLibrary(const QStringList &arguments)
{
    QStringList rest = arguments;
    const bool thumbnails = rest.removeAll(QStringLiteral("--thumbnails")) > 0;
    for (const QString &argument : std::as_const(rest))
        if (argument.startsWith(QLatin1Char('-')))
            throw UsageError{CliText::tr("unknown option %1").arg(argument)};
    if (rest.size() > 1)
        throw UsageError{CliText::tr("library takes at most one FOLDER")};

    QStringList files;
    if (rest.isEmpty()) {
        const std::vector<PhotoAlbum> albums = PhotoLibrary::fromPreferences(Preferences()).albums();
        for (const PhotoAlbum &album : albums)
            printLine(albumJson(album));
        if (thumbnails)
            files = libraryFiles(albums);
    } else {
        const QFileInfo folder(rest.first());
        if (!folder.isDir()) {
            std::cerr << "vorel-cli: " << CliText::tr("not a folder: ").toStdString() << rest.first().toStdString()
                      << '\n';
            return 1;
        }
        const QString album = QDir::cleanPath(folder.absoluteFilePath());
        for (const PhotoAsset &photo : albumPhotos(album)) {
            printLine(photoJson(photo));
            files.append(photo.path);
        }
    }
    std::cout.flush();
    if (!thumbnails)
        return 0;
    const QStringList broken =
        fillThumbnails(ThumbnailCache(), files, {ThumbnailSize::normal, ThumbnailSize::large});
    for (const QString &path : broken)
        std::cerr << "vorel-cli: " << CliText::tr("no thumbnail for ").toStdString() << path.toStdString() << '\n';
    return broken.isEmpty() ? 0 : 1;
}

QString libraryUsage()
{
    return CliText::tr("usage: vorel-cli library [--thumbnails] [FOLDER]\n"
                       "Without FOLDER, lists the photo library's albums (the Pictures folder as \"All Photos\", its\n"
                       "sub-folders, the folders added in the settings) as JSON lines {id, title, count, cover}.\n"
                       "With FOLDER, lists the pictures in it and its sub-folders as JSON lines\n"
                       "{path, album, kind, width, height}; kind is mpo, spatial, sbs, left, right or single.\n"
                       "  --thumbnails  also fill the shared thumbnail cache (normal and large) for them\n");
}

} // namespace Vorel
