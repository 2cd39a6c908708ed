// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: a corrupted entry in the thumbnail cache. The bytes are stored as the normal-size
// thumbnail and as the fail entry of a photo whose time and size the seeds' Thumb::MTime and
// Thumb::Size name; looking the photo up gives none or a thumbnail that fits its box.
#include <utime.h>

#include <QDir>

#include "fuzz/fuzzinput.h"
#include "photos/thumbnailcache.h"

namespace {

using namespace Vorel;

constexpr qint64 photoTime = 1000000000, photoSize = 100;

// The photo whose entries each run rewrites.
QString photo()
{
    static const QString path = [] {
        const QString written = Fuzz::writeFile(QByteArray(photoSize, 'x'), QStringLiteral("photo.jpg"));
        const utimbuf times{photoTime, photoTime};
        Fuzz::check(utime(QFile::encodeName(written).constData(), &times) == 0);
        return written;
    }();
    return path;
}

void store(const QByteArray &entry, const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    Fuzz::writeFile(entry, QDir(Fuzz::folder()).relativeFilePath(path));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const ThumbnailCache cache(Fuzz::folder() + QStringLiteral("/cache"));
    const QByteArray entry = Fuzz::bytes(data, size);
    store(entry, cache.thumbnailPath(photo(), ThumbnailSize::normal));
    store(entry, cache.failPath(photo()));
    if (const std::optional<QImage> found = cache.find(photo(), ThumbnailSize::normal))
        Fuzz::check(!found->isNull() && found->width() <= int(ThumbnailSize::normal) &&
                    found->height() <= int(ThumbnailSize::normal));
    cache.hasFailed(photo());
    return 0;
}
