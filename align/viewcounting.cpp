// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "align/viewcounting.h"

namespace Vorel {

namespace {

template <ChannelLayout layout>
void countLevels(LevelCounts &levels, const uint8_t *pixels, int64_t n)
{
    auto &sets = levels.counts;
    const auto add = [&](int set, const uint8_t *p) {
        ++sets[set][0][p[layout.red]];
        ++sets[set][1][p[layout.green]];
        ++sets[set][2][p[layout.blue]];
    };
    int64_t i = 0;
    for (; i + LevelCounts::sets <= n; i += LevelCounts::sets, pixels += LevelCounts::sets * layout.pixelStride)
        for (int set = 0; set < LevelCounts::sets; ++set)
            add(set, pixels + set * layout.pixelStride);
    for (; i < n; ++i, pixels += layout.pixelStride)
        add(0, pixels);
}

} // namespace

int64_t LevelCounts::total(int channel, int level) const
{
    int64_t sum = 0;
    for (const auto &set : counts)
        sum += set[channel][level];
    return sum;
}

void countLevels(LevelCounts &counts, const uint8_t *pixels, int64_t n, ChannelLayout layout)
{
    if (layout == bgrxWords)
        countLevels<bgrxWords>(counts, pixels, n);
    else
        countLevels<rgbBytes>(counts, pixels, n);
}

double addLuminanceInOrder(double sum, const uint8_t *pixels, int64_t n, ChannelLayout layout)
{
    for (int64_t i = 0; i < n; ++i, pixels += layout.pixelStride)
        sum += 0.299 * pixels[layout.red] + 0.587 * pixels[layout.green] + 0.114 * pixels[layout.blue];
    return sum;
}

bool countViewAvx512Available()
{
    static const bool runs = __builtin_cpu_supports("avx512f");
    return runs;
}

double countView(double sum, const uint8_t *pixels, int64_t n, ChannelLayout layout, LevelCounts *counts)
{
    if (layout == bgrxWords && countViewAvx512Available())
        return countViewAvx512(sum, pixels, n, counts);
    if (counts)
        countLevels(*counts, pixels, n, layout);
    return addLuminanceInOrder(sum, pixels, n, layout);
}

} // namespace Vorel
