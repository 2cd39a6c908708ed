// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "photos/thumbnailcache.h"

#include <QCryptographicHash>
#include <QFile>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryFile>
#include <QUrl>

#include <cstdio>

#include <sys/stat.h>

#include "formats/pngchunks.h"

namespace Vorel {

namespace {

const QString uriKey = QStringLiteral("Thumb::URI");
const QString mtimeKey = QStringLiteral("Thumb::MTime");
const QString sizeKey = QStringLiteral("Thumb::Size");
const QString program = QStringLiteral("vorel-" VOREL_VERSION);

// What the cache entries of a file are checked against: its modification time and size.
struct FileStamp {
    qint64 mtime = 0;
    qint64 size = 0;
};

// None for a file that cannot be read: the cache is then neither read nor written for it.
std::optional<FileStamp> stampOf(const QString &path)
{
    struct stat status {};
    const QByteArray name = QFile::encodeName(path);
    if (::stat(name.constData(), &status) != 0 || !S_ISREG(status.st_mode) || ::access(name.constData(), R_OK) != 0)
        return std::nullopt;
    return FileStamp{qint64(status.st_mtime), qint64(status.st_size)};
}

bool matches(const QImage &entry, const FileStamp &stamp)
{
    const QString size = entry.text(sizeKey);
    return entry.text(mtimeKey) == QString::number(stamp.mtime) &&
           (size.isEmpty() || size == QString::number(stamp.size));
}

// Entries come from every program on the desktop and may be damaged: one whose chunks run
// past its end is not handed to the decoder.
QImage readPng(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !Png::chunksFit(file))
        return {};
    return QImageReader(&file, "png").read();
}

std::optional<QImage> readEntry(const QString &entryPath, const FileStamp &stamp)
{
    const QImage entry = readPng(entryPath);
    if (entry.isNull() || !matches(entry, stamp))
        return std::nullopt;
    return entry;
}

// Creates the folders missing on the way to `folder` as 0700, as the cache's privacy asks.
bool makeFolder(const QString &folder)
{
    if (QFileInfo(folder).isDir())
        return true;
    const QString parent = QFileInfo(folder).path();
    if (parent == folder || !makeFolder(parent))
        return false;
    return ::mkdir(QFile::encodeName(folder).constData(), 0700) == 0 || QFileInfo(folder).isDir();
}

// Written beside its final name and renamed over it, so that no reader sees half a PNG. The
// temporary file is created 0600.
bool writeEntry(const QString &entryPath, QImage image, const QByteArray &uri, const FileStamp &stamp)
{
    if (!makeFolder(QFileInfo(entryPath).path()))
        return false;
    image.setText(uriKey, QString::fromLatin1(uri));
    image.setText(mtimeKey, QString::number(stamp.mtime));
    image.setText(sizeKey, QString::number(stamp.size));
    image.setText(QStringLiteral("Software"), QStringLiteral("Vorel " VOREL_VERSION));
    QTemporaryFile file(QFileInfo(entryPath).path() + QStringLiteral("/.vorel-XXXXXX.png"));
    if (!file.open())
        return false;
    QImageWriter writer(&file, "png");
    if (!writer.write(image) || !file.flush())
        return false;
    // rename(2) replaces a stale entry in one step, where QFile::rename would refuse.
    if (::rename(QFile::encodeName(file.fileName()).constData(), QFile::encodeName(entryPath).constData()) != 0)
        return false;
    file.setAutoRemove(false);
    return true;
}

// The standard's thumbnails are 8-bit; an opaque picture needs no alpha channel.
QImage eightBit(const QImage &image)
{
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
}

QImage fitted(const QImage &image, ThumbnailSize size)
{
    const int box = int(size);
    if (image.width() <= box && image.height() <= box)
        return image;
    return image.scaled(box, box, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

// A fail entry's picture: one transparent pixel.
QImage emptyPicture()
{
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

QString thumbnailFolderName(ThumbnailSize size)
{
    switch (size) {
    case ThumbnailSize::normal:
        return QStringLiteral("normal");
    case ThumbnailSize::large:
        return QStringLiteral("large");
    case ThumbnailSize::xLarge:
        return QStringLiteral("x-large");
    }
    return {};
}

QString defaultThumbnailFolder()
{
    const QString cacheHome = qEnvironmentVariable("XDG_CACHE_HOME").trimmed();
    const QString base = cacheHome.isEmpty() ? QDir::homePath() + QStringLiteral("/.cache") : cacheHome;
    return base + QStringLiteral("/thumbnails");
}

QByteArray thumbnailUri(const QString &path)
{
    const QFileInfo info(path);
    QString absolute = info.canonicalFilePath();
    if (absolute.isEmpty())
        absolute = QDir::cleanPath(info.absoluteFilePath());
    // The characters file managers leave unescaped in a path, beyond letters, digits and "-._~".
    return QByteArrayLiteral("file://") + QUrl::toPercentEncoding(absolute, "!$&'()*+,/:=@");
}

QString thumbnailFileName(const QByteArray &uri)
{
    return QString::fromLatin1(QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex()) +
           QStringLiteral(".png");
}

ThumbnailCache::ThumbnailCache(QString folder) : base(QDir::cleanPath(std::move(folder))) {}

QString ThumbnailCache::thumbnailPath(const QString &path, ThumbnailSize size) const
{
    return base + QLatin1Char('/') + thumbnailFolderName(size) + QLatin1Char('/') + thumbnailFileName(thumbnailUri(path));
}

QString ThumbnailCache::failPath(const QString &path) const
{
    return base + QStringLiteral("/fail/") + program + QLatin1Char('/') + thumbnailFileName(thumbnailUri(path));
}

std::optional<QImage> ThumbnailCache::find(const QString &path, ThumbnailSize size) const
{
    const std::optional<FileStamp> stamp = stampOf(path);
    if (!stamp)
        return std::nullopt;
    for (const ThumbnailSize stored : thumbnailSizes)
        if (int(stored) >= int(size))
            if (const std::optional<QImage> entry = readEntry(thumbnailPath(path, stored), *stamp))
                return fitted(*entry, size);
    return std::nullopt;
}

bool ThumbnailCache::hasFailed(const QString &path) const
{
    const std::optional<FileStamp> stamp = stampOf(path);
    if (!stamp)
        return false;
    // Keys with "::" come back whole only from a read picture, not from the reader's header.
    const QImage entry = readPng(failPath(path));
    return !entry.isNull() && entry.text(mtimeKey) == QString::number(stamp->mtime);
}

std::optional<QImage> ThumbnailCache::thumbnail(const QString &path, ThumbnailSize size) const
{
    if (std::optional<QImage> found = find(path, size))
        return found;
    std::optional<QImage> made;
    make(path, {size}, &made);
    return made;
}

bool ThumbnailCache::fill(const QString &path, std::initializer_list<ThumbnailSize> sizes) const
{
    const std::optional<FileStamp> stamp = stampOf(path);
    if (!stamp)
        return false;
    std::vector<ThumbnailSize> missing;
    for (const ThumbnailSize size : sizes)
        if (!readEntry(thumbnailPath(path, size), *stamp))
            missing.push_back(size);
    return missing.empty() || make(path, missing, nullptr);
}

bool ThumbnailCache::make(const QString &path, const std::vector<ThumbnailSize> &sizes, std::optional<QImage> *first) const
{
    const std::optional<FileStamp> stamp = stampOf(path);
    if (!stamp || sizes.empty() || hasFailed(path))
        return false;
    const QByteArray uri = thumbnailUri(path);
    const bool insideCache = QString::fromLatin1(uri).startsWith(QString::fromLatin1(thumbnailUri(base) + '/'));
    int box = 0;
    for (const ThumbnailSize size : sizes)
        box = std::max(box, int(size));
    const std::optional<QImage> picture = renderThumbnail(path, box);
    if (!picture) {
        if (!insideCache)
            writeEntry(failPath(path), emptyPicture(), uri, *stamp);
        return false;
    }
    for (const ThumbnailSize size : sizes) {
        const QImage thumbnail = eightBit(fitted(*picture, size));
        if (first && !*first)
            *first = thumbnail;
        if (!insideCache)
            writeEntry(thumbnailPath(path, size), thumbnail, uri, *stamp);
    }
    return true;
}

} // namespace Vorel
