// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/parallelrows.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
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

// The row blocks of one parallelRows call still running.
struct Batch {
    const std::function<void(int64_t, int64_t)> *fn;
    int64_t unfinished;
};

struct Block {
    Batch *batch;
    int64_t begin, end;
};

// Long-lived workers: starting a thread per call cost more than small images take to
// process (a keypoint search makes a few hundred calls). A caller waiting for its blocks
// runs queued blocks itself, so calls from inside a block, or from several threads at once,
// never wait on each other in a cycle.
class RowWorkers {
public:
    RowWorkers()
    {
        const unsigned helpers = std::max(1u, std::thread::hardware_concurrency()) - 1;
        for (unsigned i = 0; i < helpers; ++i)
            threads_.emplace_back([this] { serve(); });
    }

    ~RowWorkers()
    {
        {
            const std::lock_guard lock(mutex_);
            stopping_ = true;
        }
        queued_.notify_all();
        for (std::thread &thread : threads_)
            thread.join();
    }

    int64_t threadCount() const { return static_cast<int64_t>(threads_.size()) + 1; }

    void run(const std::function<void(int64_t, int64_t)> &fn, int64_t height, int64_t parts)
    {
        Batch batch{&fn, parts};
        {
            const std::lock_guard lock(mutex_);
            for (int64_t i = 1; i < parts; ++i)
                blocks_.push_back(Block{&batch, height * i / parts, height * (i + 1) / parts});
        }
        queued_.notify_all();
        execute(Block{&batch, 0, height / parts});
        std::unique_lock lock(mutex_);
        while (batch.unfinished > 0)
            if (!runQueuedBlock(lock))
                finished_.wait(lock);
    }

private:
    void serve()
    {
        std::unique_lock lock(mutex_);
        for (;;) {
            queued_.wait(lock, [this] { return stopping_ || !blocks_.empty(); });
            if (!runQueuedBlock(lock))
                return;
        }
    }

    // Runs the oldest queued block, if there is one, with the lock released meanwhile.
    bool runQueuedBlock(std::unique_lock<std::mutex> &lock)
    {
        if (blocks_.empty())
            return false;
        const Block block = blocks_.front();
        blocks_.pop_front();
        lock.unlock();
        execute(block);
        lock.lock();
        return true;
    }

    void execute(const Block &block)
    {
        clearUpperVectorState();
        (*block.batch->fn)(block.begin, block.end);
        {
            const std::lock_guard lock(mutex_);
            --block.batch->unfinished;
        }
        finished_.notify_all();
    }

    std::mutex mutex_;
    std::condition_variable queued_;
    std::condition_variable finished_;
    std::deque<Block> blocks_;
    bool stopping_ = false;
    std::vector<std::thread> threads_;
};

RowWorkers &rowWorkers()
{
    static RowWorkers workers;
    return workers;
}
} // namespace

void parallelRows(int64_t height, const std::function<void(int64_t, int64_t)> &fn)
{
    if (height <= 0)
        return;
    RowWorkers &workers = rowWorkers();
    const int64_t parts = std::clamp<int64_t>(height / minRowsPerThread, 1, workers.threadCount());
    if (parts == 1) {
        clearUpperVectorState();
        fn(0, height);
        return;
    }
    workers.run(fn, height, parts);
}

} // namespace Vorel
