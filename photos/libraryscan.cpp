// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "photos/libraryscan.h"

#include <QMetaObject>

namespace Vorel {

namespace {

// The first batch is small so that the grid fills at once; later ones are larger so that the
// window handles fewer signals.
constexpr qsizetype firstBatch = 48;
constexpr qsizetype laterBatch = 400;

} // namespace

LibraryScan::LibraryScan(PhotoLibrary library, QObject *parent)
    : QObject(parent), library(std::move(library)), worker([this] { run(); })
{
}

LibraryScan::~LibraryScan()
{
    {
        const std::lock_guard lock(mutex);
        stopping = true;
        ++generation;
    }
    wake.notify_all();
    worker.join();
}

void LibraryScan::cancel() { start({}); }

void LibraryScan::scanAlbums()
{
    start([this](quint64 scan) {
        const std::vector<PhotoAlbum> albums = library.albums();
        const QList<PhotoAlbum> list(albums.begin(), albums.end());
        deliver(scan, [this, list] { emit albumsListed(list); });
    });
}

void LibraryScan::scanAlbum(const QString &id)
{
    start([this, id](quint64 scan) {
        const PhotoDescriber describer(listAlbumFiles(id, [this, scan] { return !isCurrent(scan); }), id);
        QList<PhotoAsset> batch;
        for (qsizetype i = 0; i < describer.count() && isCurrent(scan); ++i) {
            batch.append(describer.describe(i));
            if (batch.size() == (i < firstBatch ? firstBatch : laterBatch)) {
                deliver(scan, [this, id, batch] { emit photosFound(id, batch); });
                batch.clear();
            }
        }
        if (!batch.isEmpty())
            deliver(scan, [this, id, batch] { emit photosFound(id, batch); });
        deliver(scan, [this, id] { emit albumScanned(id); });
    });
}

void LibraryScan::start(std::function<void(quint64)> job)
{
    {
        const std::lock_guard lock(mutex);
        ++generation;
        pending = std::move(job);
    }
    wake.notify_one();
}

bool LibraryScan::isCurrent(quint64 scan) const
{
    const std::lock_guard lock(mutex);
    return scan == generation && !stopping;
}

// Queued to this object's thread and dropped there when another scan started meanwhile, so no
// signal of a cancelled scan arrives. The destructor joins the worker first, keeping `this` alive.
void LibraryScan::deliver(quint64 scan, std::function<void()> emitter)
{
    QMetaObject::invokeMethod(
        this,
        [this, scan, emitter = std::move(emitter)] {
            if (isCurrent(scan))
                emitter();
        },
        Qt::QueuedConnection);
}

void LibraryScan::run()
{
    std::unique_lock lock(mutex);
    for (;;) {
        wake.wait(lock, [this] { return stopping || pending; });
        if (stopping)
            return;
        const std::function<void(quint64)> job = std::exchange(pending, {});
        const quint64 scan = generation;
        lock.unlock();
        job(scan);
        lock.lock();
    }
}

} // namespace Vorel
