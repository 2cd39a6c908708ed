// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// For each output pixel (x, y):
//   (sx', sy', w') = inverse * (x, y, 1)          all in double, left-to-right sums
//   skip if |w'| < 1e-12; sx = sx'/w', sy = sy'/w'
//   sample only if 0 <= sx < W-1 and 0 <= sy < H-1 (strict: the last source row and column
//   are never the top-left sample, which leaves a black band along the right/bottom edge)
//   x0 = trunc(sx), fx = sx - x0 (same for y)
//   v = (1-fx)(1-fy) p00 + fx(1-fy) p10 + (1-fx)fy p01 + fx fy p11 + 0.5, truncated, <= 255
// Every output pixel depends only on its own coordinates, so any region of the frame can be
// computed alone and rows can be split over cores without changing a bit.
#include "core/homographywarp.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "core/parallelrows.h"
#include "core/homographywarpspan.h"

namespace Vorel {

namespace {

using WarpDetail::singularLimit;

// Inverse through the adjugate, divided by the determinant.
bool invert(const PerspectiveMatrix &m, PerspectiveMatrix &inverse)
{
    const double c00 = m[4] * m[8] - m[5] * m[7];
    const double c01 = m[5] * m[6] - m[3] * m[8];
    const double c02 = m[3] * m[7] - m[4] * m[6];
    const double det = m[0] * c00 + m[1] * c01 + m[2] * c02;
    if (std::fabs(det) < singularLimit)
        return false;
    inverse = {c00 / det,
               (m[2] * m[7] - m[1] * m[8]) / det,
               (m[1] * m[5] - m[2] * m[4]) / det,
               c01 / det,
               (m[0] * m[8] - m[2] * m[6]) / det,
               (m[2] * m[3] - m[0] * m[5]) / det,
               c02 / det,
               (m[1] * m[6] - m[0] * m[7]) / det,
               (m[0] * m[4] - m[1] * m[3]) / det};
    return true;
}

template <int Channels, int SourceStride, int DestinationStride>
void warpRows(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv, int64_t x0, int64_t y0,
              int64_t width, int64_t rowBegin, int64_t rowEnd, uint8_t *destination, int64_t destinationRowStride)
{
    for (int64_t row = rowBegin; row < rowEnd; ++row)
        WarpDetail::warpSpan<Channels, SourceStride, DestinationStride>(source, src, inv, x0, y0 + row, width,
                                                                       destination + row * destinationRowStride);
}

using RowKernel = void (*)(const uint8_t *, const PixelLayout &, const PerspectiveMatrix &, int64_t, int64_t,
                           int64_t, int64_t, int64_t, uint8_t *, int64_t);

RowKernel kernelFor(const PixelLayout &src, const PixelLayout &dst)
{
    if (src.channels != dst.channels)
        return nullptr;
    if (src.channels == 3 && src.pixelStride == 4 && dst.pixelStride == 4) {
#if defined(__x86_64__)
        static const bool hasAvx2 = __builtin_cpu_supports("avx2");
        if (hasAvx2)
            return WarpDetail::warpRowsBgrxAvx2;
#endif
        return warpRows<3, 4, 4>;
    }
    if (src.channels == 3 && src.pixelStride == 3 && dst.pixelStride == 3)
        return warpRows<3, 3, 3>;
    if (src.channels == 1 && src.pixelStride == 1 && dst.pixelStride == 1)
        return warpRows<1, 1, 1>;
    return nullptr;
}

// Filling a row just before warping it keeps the first touch of fresh pages (and the row
// itself) on the core that warps it.
void fillRow(uint8_t *out, int64_t width, int pixelStride, uint32_t background)
{
    if (pixelStride == 4) {
        std::fill_n(reinterpret_cast<uint32_t *>(out), width, background);
        return;
    }
    uint8_t bytes[4];
    std::memcpy(bytes, &background, sizeof bytes);
    for (int64_t i = 0; i < width; ++i, out += pixelStride)
        std::copy_n(bytes, pixelStride, out);
}

} // namespace

bool warpPerspectiveRegion(const uint8_t *source, const PixelLayout &sourceLayout, const PerspectiveMatrix &matrix,
                           int64_t x0, int64_t y0, int64_t width, int64_t height, uint8_t *destination,
                           const PixelLayout &destinationLayout, uint32_t background)
{
    PerspectiveMatrix inverse;
    const RowKernel kernel = kernelFor(sourceLayout, destinationLayout);
    if (!kernel || !invert(matrix, inverse))
        return false;
    const int64_t stride = destinationLayout.rowStride;
    parallelRows(height, [&](int64_t begin, int64_t end) {
        for (int64_t row = begin; row < end; ++row) {
            fillRow(destination + row * stride, width, destinationLayout.pixelStride, background);
            kernel(source, sourceLayout, inverse, x0, y0, width, row, row + 1, destination, stride);
        }
    });
    return true;
}

} // namespace Vorel
