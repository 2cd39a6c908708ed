// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <atomic>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "core/parallelrows.h"

using namespace Vorel;

namespace {

// Every row visited exactly once, by blocks that neither overlap nor leave gaps.
void expectEachRowOnce(int64_t height)
{
    std::vector<std::atomic<int>> visits(static_cast<size_t>(height));
    parallelRows(height, [&](int64_t first, int64_t end) {
        for (int64_t r = first; r < end; ++r)
            ++visits[static_cast<size_t>(r)];
    });
    for (int64_t r = 0; r < height; ++r)
        ASSERT_EQ(visits[static_cast<size_t>(r)], 1) << "row " << r << " of " << height;
}

TEST(ParallelRows, CoversEveryRowOnce)
{
    for (const int64_t height : {0, 1, 63, 64, 127, 128, 129, 1000, 4001})
        expectEachRowOnce(height);
}

// Calls from inside a block and from several threads at once must finish: a waiting caller
// runs queued blocks itself instead of waiting for a busy worker.
TEST(ParallelRows, NestedAndConcurrentCallsFinish)
{
    std::atomic<int64_t> rows = 0, outerBlocks = 0;
    auto nested = [&] {
        for (int i = 0; i < 50; ++i)
            parallelRows(256, [&](int64_t first, int64_t end) {
                parallelRows(512, [&](int64_t a, int64_t b) { rows += b - a; });
                rows += end - first;
                ++outerBlocks;
            });
    };
    std::vector<std::thread> callers;
    for (int i = 0; i < 3; ++i)
        callers.emplace_back(nested);
    nested();
    for (std::thread &caller : callers)
        caller.join();
    // Each outer call covers 256 rows, each of its blocks another 512.
    EXPECT_EQ(rows.load(), 4 * 50 * 256 + outerBlocks * 512);
    expectEachRowOnce(1000);
}

} // namespace
