// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The working pixel format of warp, anaglyphs, colour matching and alignment.
//
// Conventions (docs/conventions.md has the full page):
//  - 8-bit channels, `channels` bytes per pixel (3 = R,G,B; 1 = gray), rows top-down,
//    no row padding: pixel (x, y) starts at data[(y * w + x) * channels].
//  - Pixel (x, y) covers [x, x+1) x [y, y+1); coordinates are measured from the top-left
//    corner of pixel (0, 0), y grows downwards.
//  - Every float-to-byte conversion adds 0.5, truncates and clamps to 0..255 unless the
//    routine documents otherwise.
#pragma once

#include <cstdint>
#include <vector>

namespace Vorel {

struct RgbBuffer {
    static constexpr int pixelStride = 3;

    int64_t w = 0;
    int64_t h = 0;
    std::vector<uint8_t> data;

    RgbBuffer() = default;
    RgbBuffer(int64_t width, int64_t height)
        : w(width), h(height), data(static_cast<size_t>(width * height * pixelStride), 0) {}

    int64_t rowStride() const { return w * pixelStride; }
    uint8_t *row(int64_t y) { return data.data() + y * rowStride(); }
    const uint8_t *row(int64_t y) const { return data.data() + y * rowStride(); }
    bool isEmpty() const { return w <= 0 || h <= 0; }
};

} // namespace Vorel
