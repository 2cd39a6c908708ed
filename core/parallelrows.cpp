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

// Qt's AVX fills and blends may leave the upper halves of the vector registers dirty. The
// scalar SSE loops that follow then pay a merge penalty on every instruction on some CPUs
// (measured here: a warp 3.3x slower). Clearing them before each block of rows avoids that.
void clearUpperVectorState()
{
#if defined(__x86_64__)
    static const bool hasAvx = __builtin_cpu_supports("avx");
    if (hasAvx)
        asm volatile("vzeroupper" ::: "memory");
#endif
}

void runRows(const std::function<void(int64_t, int64_t)> &fn, int64_t begin, int64_t end)
{
    clearUpperVectorState();
    fn(begin, end);
}
} // namespace

void parallelRows(int64_t height, const std::function<void(int64_t, int64_t)> &fn)
{
    if (height <= 0)
        return;
    const int64_t cores = std::max(1u, std::thread::hardware_concurrency());
    const int64_t parts = std::clamp<int64_t>(height / minRowsPerThread, 1, cores);
    if (parts == 1) {
        runRows(fn, 0, height);
        return;
    }
    std::vector<std::thread> workers;
    workers.reserve(static_cast<size_t>(parts - 1));
    for (int64_t i = 1; i < parts; ++i)
        workers.emplace_back(runRows, std::cref(fn), height * i / parts, height * (i + 1) / parts);
    runRows(fn, 0, height / parts);
    for (auto &worker : workers)
        worker.join();
}

} // namespace Vorel
