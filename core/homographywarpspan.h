// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The scalar per-pixel warp of one row span (the formula every kernel reproduces bit for bit)
// and the row kernels of 4-byte pixels, each in a file compiled for its instruction set.
#pragma once

#include <cmath>
#include <cstdint>

#include "core/homographywarp.h"

namespace Vorel::WarpDetail {

inline constexpr double singularLimit = 1e-12;

// Output pixels x = xBegin .. xBegin+count-1 of row y, written from `out` on. Writes only the
// sampled channels of the pixels that sample something.
template <int Channels, int SourceStride, int DestinationStride>
inline void warpSpan(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv, int64_t xBegin,
                     int64_t yRow, int64_t count, uint8_t *out)
{
    const double maxX = static_cast<double>(src.w - 1);
    const double maxY = static_cast<double>(src.h - 1);
    const double y = static_cast<double>(yRow);
    for (int64_t col = 0; col < count; ++col, out += DestinationStride) {
        const double x = static_cast<double>(xBegin + col);
        const double wh = inv[6] * x + inv[7] * y + inv[8];
        if (std::fabs(wh) < singularLimit)
            continue;
        const double sx = (inv[0] * x + inv[1] * y + inv[2]) / wh;
        const double sy = (inv[3] * x + inv[4] * y + inv[5]) / wh;
        if (!(sx >= 0 && sx < maxX && sy >= 0 && sy < maxY))
            continue;
        const int64_t ix = static_cast<int64_t>(sx);
        const int64_t iy = static_cast<int64_t>(sy);
        const double fx = sx - static_cast<double>(ix);
        const double fy = sy - static_cast<double>(iy);
        const double w00 = (1 - fx) * (1 - fy);
        const double w10 = fx * (1 - fy);
        const double w01 = (1 - fx) * fy;
        const double w11 = fx * fy;
        const uint8_t *p00 = source + iy * src.rowStride + ix * SourceStride;
        const uint8_t *p01 = p00 + src.rowStride;
        for (int c = 0; c < Channels; ++c) {
            const double v =
                w00 * p00[c] + w10 * p00[c + SourceStride] + w01 * p01[c] + w11 * p01[c + SourceStride] + 0.5;
            out[c] = v >= 255 ? 255 : static_cast<uint8_t>(v);
        }
    }
}

// One output row of 4-byte pixels, 3 channels sampled: pixels x0 .. x0+width-1 of row y into
// out[0 .. width-1]. Every pixel is written: `background` where nothing is sampled, else the
// three sampled bytes and the fourth byte of `background`. `inv` is the inverse matrix.
using BgrxRowKernel = void (*)(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv,
                               int64_t x0, int64_t y, int64_t width, uint32_t *out, uint32_t background);

void warpRowBgrxScalar(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv, int64_t x0,
                       int64_t y, int64_t width, uint32_t *out, uint32_t background);
// Four pixels at a time; compiled with -mavx2, defined only on x86-64.
void warpRowBgrxAvx2(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv, int64_t x0,
                     int64_t y, int64_t width, uint32_t *out, uint32_t background);
// Eight pixels at a time; compiled with AVX-512 F/DQ/BW/VL, defined only on x86-64.
void warpRowBgrxAvx512(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv, int64_t x0,
                       int64_t y, int64_t width, uint32_t *out, uint32_t background);

} // namespace Vorel::WarpDetail
