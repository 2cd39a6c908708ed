// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Allocator for the large scratch images of the keypoint search: elements start
// uninitialised (every stage writes all of its output), and buffers of 2 MiB or more ask
// for transparent huge pages. A run touches some 250 MB of fresh memory; with 4 KiB pages
// the page faults alone took longer than the arithmetic.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>
#include <utility>

#include <sys/mman.h>

namespace Vorel {

template <typename T> struct ScratchAllocator {
    using value_type = T;
    static constexpr size_t hugePage = size_t{2} << 20;

    ScratchAllocator() = default;
    template <typename U> ScratchAllocator(const ScratchAllocator<U> &) noexcept {}

    T *allocate(size_t n)
    {
        const size_t bytes = n * sizeof(T);
        if (bytes < hugePage)
            return static_cast<T *>(::operator new(bytes));
        const size_t rounded = (bytes + hugePage - 1) / hugePage * hugePage;
        void *p = std::aligned_alloc(hugePage, rounded);
        if (!p)
            throw std::bad_alloc();
        madvise(p, rounded, MADV_HUGEPAGE); // a hint: without huge pages it still works
        return static_cast<T *>(p);
    }

    void deallocate(T *p, size_t n) noexcept
    {
        if (n * sizeof(T) < hugePage)
            ::operator delete(p);
        else
            std::free(p);
    }

    // Default-initialisation leaves arithmetic types uninitialised.
    template <typename U> void construct(U *p) noexcept { ::new (static_cast<void *>(p)) U; }
    template <typename U, typename... Args> void construct(U *p, Args &&...args)
    {
        ::new (static_cast<void *>(p)) U(std::forward<Args>(args)...);
    }

    template <typename U> bool operator==(const ScratchAllocator<U> &) const noexcept { return true; }
};

} // namespace Vorel
