// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/bordercomposer.h"

namespace Vorel {

BorderComposer::BorderComposer(QObject *parent) : QObject(parent)
{
    // One worker may finish an outdated composition while another starts the newest; more
    // would only compose states nobody will see.
    workers.setMaxThreadCount(2);
    connect(this, &BorderComposer::resultWaiting, this, &BorderComposer::deliver, Qt::QueuedConnection);
}

BorderComposer::~BorderComposer()
{
    {
        const std::lock_guard guard(lock);
        waiting.reset();
    }
    workers.waitForDone();
}

void BorderComposer::request(Work work)
{
    {
        const std::lock_guard guard(lock);
        waiting.emplace(++issued, std::move(work));
    }
    // One worker start per request: a start that finds the request taken by another worker
    // (or replaced and taken) simply ends.
    workers.start([this] { composeWaiting(); });
}

void BorderComposer::discardPending()
{
    const std::lock_guard guard(lock);
    waiting.reset();
    delivered = ++issued;
}

void BorderComposer::composeWaiting()
{
    std::optional<std::pair<quint64, Work>> taken;
    {
        const std::lock_guard guard(lock);
        taken.swap(waiting);
    }
    if (!taken)
        return;
    const std::optional<QImage> picture = taken->second();
    if (!picture)
        return; // nothing composed: the view stays as it was
    {
        const std::lock_guard guard(lock);
        if (finished && finished->first > taken->first)
            return;
        finished.emplace(taken->first, *picture);
    }
    emit resultWaiting(QPrivateSignal());
}

void BorderComposer::deliver()
{
    std::optional<std::pair<quint64, QImage>> result;
    {
        const std::lock_guard guard(lock);
        result.swap(finished);
        if (!result || result->first < delivered)
            return; // taken by an earlier delivery, or older than what is shown
        delivered = result->first;
    }
    emit composed(result->second);
}

} // namespace Vorel
