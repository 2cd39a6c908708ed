// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The photo library scanned on a worker thread of its own. Results arrive as signals queued to
// the thread this object lives in (the window's), in batches, so the window never waits.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

#include <QList>
#include <QObject>

#include "photos/photoasset.h"
#include "photos/photolibrary.h"

namespace Vorel {

class LibraryScan : public QObject {
    Q_OBJECT
public:
    explicit LibraryScan(PhotoLibrary library, QObject *parent = nullptr);
    ~LibraryScan() override; // cancels and waits for the file at hand

    // Each call cancels the scan under way: no signal of it arrives after the call returns.
    void scanAlbums();               // then albumsListed
    void scanAlbum(const QString &id); // then photosFound batches, in order, then albumScanned
    void cancel();

signals:
    void albumsListed(const QList<Vorel::PhotoAlbum> &albums);
    void photosFound(const QString &album, const QList<Vorel::PhotoAsset> &batch);
    void albumScanned(const QString &album);

private:
    void run();
    void start(std::function<void(quint64)> job); // the job gets its scan's generation
    bool isCurrent(quint64 scan) const;
    void deliver(quint64 scan, std::function<void()> emitter);

    const PhotoLibrary library;
    mutable std::mutex mutex;
    std::condition_variable wake;
    std::function<void(quint64)> pending;
    quint64 generation = 0; // counts started scans; only the latest may deliver
    bool stopping = false;
    std::thread worker; // last: starts once the members above exist
};

} // namespace Vorel
