// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Runs border compositions on a worker thread and hands each result to the main thread. A
// result that arrives after a newer one has been handed over is dropped, so the view never
// goes back to an older state of the pair.
#pragma once

#include <functional>
#include <optional>

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

private:
    void deliver(quint64 number, const std::optional<QImage> &picture);

    QThreadPool workers;
    quint64 issued = 0;    // number of the newest request
    quint64 delivered = 0; // number of the newest result handed over
};

} // namespace Vorel
