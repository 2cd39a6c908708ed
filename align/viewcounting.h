// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Running luminance sums of colour matching: Y = 0.299 R + 0.587 G + 0.114 B per pixel in
// double, added to the sum one pixel after the other, every addition rounded.
#pragma once

#include <cstdint>

namespace Vorel {

// Where the channels of one pixel lie: `pixelStride` bytes per pixel, channel byte offsets.
struct ChannelLayout {
    int pixelStride, red, green, blue;
    bool operator==(const ChannelLayout &) const = default;
};
inline constexpr ChannelLayout rgbBytes{3, 0, 1, 2};
inline constexpr ChannelLayout bgrxWords{4, 2, 1, 0}; // QImage 32-bit pixels on little-endian

// sum + Y(pixel 0) + Y(pixel 1) + ... + Y(pixel n-1), left to right.
double addLuminanceInOrder(double sum, const uint8_t *pixels, int64_t n, ChannelLayout layout);
// The same bits for bgrxWords with AVX-512F (run only where the processor has it).
double addLuminanceAvx512(double sum, const uint8_t *bgrx, int64_t n);
bool luminanceAvx512Available();

// The same bits by the fastest of the above.
double addLuminance(double sum, const uint8_t *pixels, int64_t n, ChannelLayout layout);

} // namespace Vorel
