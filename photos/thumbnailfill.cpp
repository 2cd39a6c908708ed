// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "photos/thumbnailfill.h"

#include <atomic>
#include <thread>
#include <vector>

#include <QThread>

namespace Vorel {

QStringList fillThumbnails(const ThumbnailCache &cache, const QStringList &paths,
                           std::initializer_list<ThumbnailSize> sizes)
{
    // Files differ much in cost, so each thread takes the next file rather than a fixed share.
    std::vector<char> broken(size_t(paths.size()), 0);
    std::atomic<qsizetype> next = 0;
    auto work = [&] {
        for (qsizetype i = next++; i < paths.size(); i = next++)
            broken[size_t(i)] = !cache.fill(paths[i], sizes);
    };
    const int threads = int(std::min<qsizetype>(std::max(1, QThread::idealThreadCount()), paths.size()));
    std::vector<std::thread> helpers;
    for (int i = 1; i < threads; ++i)
        helpers.emplace_back(work);
    work();
    for (std::thread &helper : helpers)
        helper.join();
    QStringList failed;
    for (qsizetype i = 0; i < paths.size(); ++i)
        if (broken[size_t(i)])
            failed.append(paths[i]);
    return failed;
}

} // namespace Vorel
