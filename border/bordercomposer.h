// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Runs border compositions on worker threads and hands each result to the main thread. Only
// the newest request waits for a worker: one that no worker has taken yet is replaced, so
// dragging a slider never piles up stale compositions. A result that arrives after a newer
// one has been handed over is dropped, so the view never goes back to an older state.
#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <utility>

#include <QImage>
#include <QObject>
#include <QThreadPool>

namespace Vorel {

class BorderComposer : public QObject {
    Q_OBJECT
public:
    using Work = std::function<std::optional<QImage>()>;

    explicit BorderComposer(QObject *parent = nullptr);
    ~BorderComposer() override; // waits for running compositions

    // Starts `work` on a worker thread; `composed` follows on this object's thread.
    void request(Work work);
    // Drops the results of every request made so far, for when there is nothing to frame.
    void discardPending();

signals:
    void composed(const QImage &picture);
    void resultWaiting(QPrivateSignal); // from a worker, queued to this object's thread

private:
    void composeWaiting(); // on a worker
    void deliver();

    // Requests and results cross threads only under this lock, never inside Qt's own queues.
    std::mutex lock;
    std::optional<std::pair<quint64, Work>> waiting;   // newest request no worker has taken
    std::optional<std::pair<quint64, QImage>> finished; // newest composed picture not handed over
    quint64 issued = 0;    // number of the newest request
    quint64 delivered = 0; // number of the newest result handed over
    QThreadPool workers;
};

} // namespace Vorel
