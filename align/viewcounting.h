// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What colour matching counts in a view: the pixels of every level of every channel, and the
// running luminance sum (Y = 0.299 R + 0.587 G + 0.114 B in double, added pixel after pixel,
// every addition rounded).
#pragma once

#include <array>
#include <cstdint>

namespace Vorel {

// Where the channels of one pixel lie: `pixelStride` bytes per pixel, channel byte offsets.
struct ChannelLayout {
    int pixelStride, red, green, blue;
    bool operator==(const ChannelLayout &) const = default;
};
inline constexpr ChannelLayout rgbBytes{3, 0, 1, 2};
inline constexpr ChannelLayout bgrxWords{4, 2, 1, 0}; // QImage 32-bit pixels on little-endian

// Level counts of R, G, B in four sets that take the pixels in turn: runs of equal levels,
// common in smooth photos, would otherwise chain each increment on the store before it.
// 32-bit counters: at most 2^32 - 1 pixels between two reads.
struct LevelCounts {
    static constexpr int sets = 4;
    std::array<std::array<std::array<uint32_t, 256>, 3>, sets> counts{};
    int64_t total(int channel, int level) const;
};

// Layouts are rgbBytes or bgrxWords.
void countLevels(LevelCounts &counts, const uint8_t *pixels, int64_t n, ChannelLayout layout);
// sum + Y(pixel 0) + Y(pixel 1) + ... + Y(pixel n-1), left to right.
double addLuminanceInOrder(double sum, const uint8_t *pixels, int64_t n, ChannelLayout layout);

// The luminance sum of bgrxWords pixels, the same bits as addLuminanceInOrder, and with
// `counts` also their levels, in one pass with AVX-512F (run only where the processor has it).
double countViewAvx512(double sum, const uint8_t *bgrx, int64_t n, LevelCounts *counts);
bool countViewAvx512Available();

// The same by the fastest of the above; `counts` may be null.
double countView(double sum, const uint8_t *pixels, int64_t n, ChannelLayout layout, LevelCounts *counts);

} // namespace Vorel
