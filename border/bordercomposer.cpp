// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/bordercomposer.h"

#include <QMetaObject>

namespace Vorel {

BorderComposer::BorderComposer(QObject *parent) : QObject(parent) {}

BorderComposer::~BorderComposer() { workers.waitForDone(); }

void BorderComposer::request(Work work)
{
    const quint64 number = ++issued;
    workers.start([this, number, work = std::move(work)] {
        const std::optional<QImage> picture = work();
        // This object outlives its workers; a result still queued when it goes is dropped with it.
        QMetaObject::invokeMethod(this, [this, number, picture] { deliver(number, picture); }, Qt::QueuedConnection);
    });
}

void BorderComposer::discardPending() { delivered = ++issued; }

void BorderComposer::deliver(quint64 number, const std::optional<QImage> &picture)
{
    if (number < delivered || !picture)
        return; // older than what is shown, or nothing composed: the view stays as it was
    delivered = number;
    emit composed(*picture);
}

} // namespace Vorel
