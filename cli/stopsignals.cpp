// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/stopsignals.h"

#include <csignal>

#include <pthread.h>

namespace Vorel {

namespace {

sigset_t stopSignals()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    return set;
}

} // namespace

void blockStopSignals()
{
    const sigset_t set = stopSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

StopSignalWatcher::StopSignalWatcher(std::function<void()> onSignal)
    : waiter([this, onSignal = std::move(onSignal)] {
          const sigset_t set = stopSignals();
          int signal = 0;
          // The handler-free way: no code runs in signal context, so the callback may lock.
          if (sigwait(&set, &signal) == 0 && !finished.load()) {
              received.store(signal);
              onSignal();
          }
      })
{
}

StopSignalWatcher::~StopSignalWatcher()
{
    finished.store(true);
    // Directed at the waiter, where it is blocked and therefore taken by sigwait; a waiter that
    // already took a real signal has returned, and the call does nothing.
    if (!signalled())
        pthread_kill(waiter.native_handle(), SIGTERM);
    waiter.join();
}

} // namespace Vorel
