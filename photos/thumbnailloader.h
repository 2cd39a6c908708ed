// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Thumbnails for a grid, made on worker threads (one per core, asleep while there is no work).
// The grid says which items it shows; those are made first, in the order given.
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include <QImage>
#include <QObject>
#include <QStringList>

#include "photos/thumbnailcache.h"

namespace Vorel {

class ThumbnailLoader : public QObject {
    Q_OBJECT
public:
    explicit ThumbnailLoader(ThumbnailCache cache = ThumbnailCache(), QObject *parent = nullptr);
    ~ThumbnailLoader() override; // drops the queue and waits for the files at hand

    // Replaces the queue with `paths`, in that order (visible items first). A path being made
    // in that size already is not queued again; its result still arrives.
    void request(const QStringList &paths, ThumbnailSize size);
    void cancel(); // empties the queue

signals:
    void thumbnailReady(const QString &path, const QImage &image);
    void thumbnailBroken(const QString &path); // unreadable or undecodable: show a "broken" marker

private:
    void work();

    const ThumbnailCache cache;
    std::mutex mutex;
    std::condition_variable wake;
    std::deque<QString> queue;
    std::set<std::pair<QString, ThumbnailSize>> inProgress;
    ThumbnailSize queueSize = ThumbnailSize::normal;
    bool stopping = false;
    std::vector<std::thread> workers;
};

} // namespace Vorel
