// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Allocator for the large scratch images of the keypoint search: elements start
// uninitialised (every stage writes all of its output), in large-buffer memory (mapped once, reused).
// A run touches some 250 MB of fresh memory; with 4 KiB pages the page faults alone took
// longer than the arithmetic.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>
#include <utility>

#include "core/largebuffer.h"

namespace Vorel {

template <typename T> struct ScratchAllocator {
    using value_type = T;

    ScratchAllocator() = default;
    template <typename U> ScratchAllocator(const ScratchAllocator<U> &) noexcept {}

    T *allocate(size_t n)
    {
        void *p = allocateLargeBuffer(n * sizeof(T));
        if (!p)
            throw std::bad_alloc();
        return static_cast<T *>(p);
    }

    void deallocate(T *p, size_t) noexcept { releaseLargeBuffer(p); }

    // Default-initialisation leaves arithmetic types uninitialised.
    template <typename U> void construct(U *p) noexcept { ::new (static_cast<void *>(p)) U; }
    template <typename U, typename... Args> void construct(U *p, Args &&...args)
    {
        ::new (static_cast<void *>(p)) U(std::forward<Args>(args)...);
    }

    template <typename U> bool operator==(const ScratchAllocator<U> &) const noexcept { return true; }
};

} // namespace Vorel
