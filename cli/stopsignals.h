// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// SIGINT and SIGTERM end a batch run between stages instead of killing it mid-write: they are
// blocked in every thread, and one thread waits for them and asks the run to stop.
#pragma once

#include <atomic>
#include <functional>
#include <thread>

namespace Vorel {

// Blocks SIGINT and SIGTERM in the calling thread. Call it before any other thread exists, so
// that every thread inherits the blocked set and none of them is interrupted.
void blockStopSignals();

// A thread asleep in sigwait until SIGINT or SIGTERM arrives; then it calls `onSignal` once.
class StopSignalWatcher {
public:
    explicit StopSignalWatcher(std::function<void()> onSignal);
    ~StopSignalWatcher(); // wakes the waiting thread and joins it
    StopSignalWatcher(const StopSignalWatcher &) = delete;
    StopSignalWatcher &operator=(const StopSignalWatcher &) = delete;

    bool signalled() const { return received.load() != 0; }

private:
    std::atomic<bool> finished{false};
    std::atomic<int> received{0};
    std::thread waiter;
};

} // namespace Vorel
