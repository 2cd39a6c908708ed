// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "photos/thumbnailloader.h"

#include <QMetaObject>
#include <QThread>

namespace Vorel {

ThumbnailLoader::ThumbnailLoader(ThumbnailCache cache, QObject *parent) : QObject(parent), cache(std::move(cache))
{
    const int count = std::max(1, QThread::idealThreadCount());
    for (int i = 0; i < count; ++i)
        workers.emplace_back([this] { work(); });
}

ThumbnailLoader::~ThumbnailLoader()
{
    {
        const std::lock_guard lock(mutex);
        stopping = true;
        queue.clear();
    }
    wake.notify_all();
    for (std::thread &worker : workers)
        worker.join();
}

void ThumbnailLoader::request(const QStringList &paths, ThumbnailSize size)
{
    {
        const std::lock_guard lock(mutex);
        queue.clear();
        queueSize = size;
        for (const QString &path : paths)
            if (!inProgress.count({path, size}))
                queue.push_back(path);
    }
    wake.notify_all();
}

void ThumbnailLoader::cancel()
{
    const std::lock_guard lock(mutex);
    queue.clear();
}

void ThumbnailLoader::work()
{
    std::unique_lock lock(mutex);
    for (;;) {
        wake.wait(lock, [this] { return stopping || !queue.empty(); });
        if (stopping)
            return;
        const std::pair<QString, ThumbnailSize> item{queue.front(), queueSize};
        queue.pop_front();
        inProgress.insert(item);
        lock.unlock();
        const std::optional<QImage> image = cache.thumbnail(item.first, item.second);
        // Queued to this object's thread; the destructor joins the workers before the object
        // goes, so `this` is alive whenever this runs.
        QMetaObject::invokeMethod(
            this,
            [this, path = item.first, image] {
                if (image)
                    emit thumbnailReady(path, *image);
                else
                    emit thumbnailBroken(path);
            },
            Qt::QueuedConnection);
        lock.lock();
        inProgress.erase(item);
    }
}

} // namespace Vorel
