// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The perspective warp written out as plainly as its formula, for the tests to compare with.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "core/homographywarp.h"

namespace Vorel::TestReference {

// Straight from the formula: inverse through the adjugate, then per output pixel.
// Writes the whole region: background, or the sampled channels and the background's other
// bytes.
inline std::vector<uint8_t> referenceWarp(const std::vector<uint8_t> &source, const PixelLayout &src,
                                   const PerspectiveMatrix &m, int64_t x0, int64_t y0, int64_t width, int64_t height,
                                   const PixelLayout &dst, uint32_t background)
{
    uint8_t fill[4];
    std::memcpy(fill, &background, 4);
    std::vector<uint8_t> out(static_cast<size_t>(height * dst.rowStride), 0);
    for (int64_t y = 0; y < height; ++y)
        for (int64_t x = 0; x < width; ++x)
            std::memcpy(&out[static_cast<size_t>(y * dst.rowStride + x * dst.pixelStride)], fill,
                        static_cast<size_t>(dst.pixelStride));
    const double c00 = m[4] * m[8] - m[5] * m[7], c01 = m[5] * m[6] - m[3] * m[8], c02 = m[3] * m[7] - m[4] * m[6];
    const double det = m[0] * c00 + m[1] * c01 + m[2] * c02;
    if (std::fabs(det) < 1e-12)
        return {};
    const double inv[9] = {c00 / det,
                           (m[2] * m[7] - m[1] * m[8]) / det,
                           (m[1] * m[5] - m[2] * m[4]) / det,
                           c01 / det,
                           (m[0] * m[8] - m[2] * m[6]) / det,
                           (m[2] * m[3] - m[0] * m[5]) / det,
                           c02 / det,
                           (m[1] * m[6] - m[0] * m[7]) / det,
                           (m[0] * m[4] - m[1] * m[3]) / det};
    for (int64_t row = 0; row < height; ++row)
        for (int64_t col = 0; col < width; ++col) {
            const double X = double(x0 + col), Y = double(y0 + row);
            const double w = inv[6] * X + inv[7] * Y + inv[8];
            if (std::fabs(w) < 1e-12)
                continue;
            const double sx = (inv[0] * X + inv[1] * Y + inv[2]) / w;
            const double sy = (inv[3] * X + inv[4] * Y + inv[5]) / w;
            if (!(sx >= 0 && sx < double(src.w - 1) && sy >= 0 && sy < double(src.h - 1)))
                continue;
            const int64_t ix = int64_t(sx), iy = int64_t(sy);
            const double fx = sx - double(ix), fy = sy - double(iy);
            for (int c = 0; c < src.channels; ++c) {
                auto p = [&](int64_t xx, int64_t yy) {
                    return double(source[static_cast<size_t>(yy * src.rowStride + xx * src.pixelStride + c)]);
                };
                const double v = (1 - fx) * (1 - fy) * p(ix, iy) + fx * (1 - fy) * p(ix + 1, iy) +
                                 (1 - fx) * fy * p(ix, iy + 1) + fx * fy * p(ix + 1, iy + 1) + 0.5;
                out[static_cast<size_t>(row * dst.rowStride + col * dst.pixelStride + c)] =
                    v >= 255 ? 255 : uint8_t(v);
            }
        }
    return out;
}

} // namespace Vorel::TestReference
