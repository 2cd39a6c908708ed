// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/parallelrows.h"

#include <algorithm>
#include <thread>
#include <vector>

namespace Vorel {

namespace {
// Below this many rows a thread costs more than it saves.
constexpr int64_t minRowsPerThread = 64;
} // namespace

void parallelRows(int64_t height, const std::function<void(int64_t, int64_t)> &fn)
{
    if (height <= 0)
        return;
    const int64_t cores = std::max(1u, std::thread::hardware_concurrency());
    const int64_t parts = std::clamp<int64_t>(height / minRowsPerThread, 1, cores);
    if (parts == 1) {
        fn(0, height);
        return;
    }
    std::vector<std::thread> workers;
    workers.reserve(static_cast<size_t>(parts - 1));
    for (int64_t i = 1; i < parts; ++i)
        workers.emplace_back(fn, height * i / parts, height * (i + 1) / parts);
    fn(0, height / parts);
    for (auto &worker : workers)
        worker.join();
}

} // namespace Vorel
