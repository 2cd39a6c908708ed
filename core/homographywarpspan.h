// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The scalar per-pixel warp of one row span, shared by the plain kernel and the vector
// kernel's row tails so both compute every pixel with the same operations.
#pragma once

#include <cmath>
#include <cstdint>

#include "core/homographywarp.h"

namespace Vorel::WarpDetail {

inline constexpr double singularLimit = 1e-12;

// Output pixels x = xBegin .. xBegin+count-1 of row y, written from `out` on.
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

// Rows [rowBegin, rowEnd) of a region with 4-byte pixels, four output pixels at a time with
// AVX2 (same IEEE operations in the same order, so the same bits). Defined only on x86-64.
void warpRowsBgrxAvx2(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv, int64_t x0,
                      int64_t y0, int64_t width, int64_t rowBegin, int64_t rowEnd, uint8_t *destination,
                      int64_t destinationRowStride);

} // namespace Vorel::WarpDetail
