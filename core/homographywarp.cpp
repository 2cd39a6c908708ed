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
#include <atomic>
#include <cmath>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "core/parallelrows.h"
#include "core/homographywarpspan.h"

namespace Vorel {

namespace WarpDetail {

void warpRowBgrxScalar(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv, int64_t x0,
                       int64_t y, int64_t width, uint32_t *out, uint32_t background)
{
    std::fill_n(out, width, background);
    warpSpan<3, 4, 4>(source, src, inv, x0, y, width, reinterpret_cast<uint8_t *>(out));
}

} // namespace WarpDetail

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

bool cpuRunsAvx2()
{
#if defined(__x86_64__)
    static const bool runs = __builtin_cpu_supports("avx2");
    return runs;
#else
    return false;
#endif
}

bool cpuRunsAvx512()
{
#if defined(__x86_64__)
    // The checks include the operating system's saving of the AVX-512 registers.
    static const bool runs = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
                             __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl");
    return runs;
#else
    return false;
#endif
}

WarpDetail::BgrxRowKernel bgrxKernel(WarpKernel kernel)
{
    if (kernel == WarpKernel::automatic)
        kernel = cpuRunsAvx512() ? WarpKernel::avx512 : cpuRunsAvx2() ? WarpKernel::avx2 : WarpKernel::scalar;
    if (!warpKernelAvailable(kernel))
        return nullptr;
    switch (kernel) {
#if defined(__x86_64__)
    case WarpKernel::avx512:
        return WarpDetail::warpRowBgrxAvx512;
    case WarpKernel::avx2:
        return WarpDetail::warpRowBgrxAvx2;
#endif
    default:
        return WarpDetail::warpRowBgrxScalar;
    }
}

// The scalar formula for the packed layouts of the alignment (RGB and gray).
using PackedRowKernel = void (*)(const uint8_t *, const PixelLayout &, const PerspectiveMatrix &, int64_t, int64_t,
                                 int64_t, uint8_t *);

PackedRowKernel packedKernel(const PixelLayout &src, const PixelLayout &dst)
{
    if (src.channels == 3 && src.pixelStride == 3 && dst.pixelStride == 3)
        return WarpDetail::warpSpan<3, 3, 3>;
    if (src.channels == 1 && src.pixelStride == 1 && dst.pixelStride == 1)
        return WarpDetail::warpSpan<1, 1, 1>;
    return nullptr;
}

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

// An inverse (1 0 tx; 0 1 ty; 0 0 1) with whole tx, ty maps (x, y) to exactly (x + tx, y + ty)
// with w' = 1: the weights are 1, 0, 0, 0 and the value p00 + 0.5 truncates to p00. So each
// sampled pixel is the source pixel's bytes, and a row is a copy.
struct Translation {
    int64_t dx = 0, dy = 0;
};

bool integerTranslation(const PerspectiveMatrix &inv, Translation &translation)
{
    // Far below 2^53, so that every coordinate sum stays exact.
    constexpr double limit = 1ull << 40;
    if (!(inv[0] == 1 && inv[1] == 0 && inv[3] == 0 && inv[4] == 1 && inv[6] == 0 && inv[7] == 0 && inv[8] == 1))
        return false;
    if (!(std::fabs(inv[2]) <= limit && std::fabs(inv[5]) <= limit) || std::trunc(inv[2]) != inv[2] ||
        std::trunc(inv[5]) != inv[5])
        return false;
    translation = {static_cast<int64_t>(inv[2]), static_cast<int64_t>(inv[5])};
    return true;
}

// `count` source pixels to the destination: the sampled bytes of each, the rest of its bytes
// from the background.
void copyPixels(const uint8_t *in, uint8_t *out, int64_t count, int channels, int pixelStride, uint32_t background)
{
    if (pixelStride == channels) {
        std::memcpy(out, in, static_cast<size_t>(count * pixelStride));
        return;
    }
    if (pixelStride == 4) {
        const uint32_t keep = channels >= 4 ? ~0u : (1u << (8 * channels)) - 1;
        const uint32_t rest = background & ~keep;
        int64_t i = 0;
#if defined(__SSE2__)
        const __m128i keepVector = _mm_set1_epi32(static_cast<int>(keep));
        const __m128i restVector = _mm_set1_epi32(static_cast<int>(rest));
        for (; i + 4 <= count; i += 4) {
            const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i *>(in + i * 4));
            _mm_storeu_si128(reinterpret_cast<__m128i *>(out + i * 4),
                             _mm_or_si128(_mm_and_si128(v, keepVector), restVector));
        }
#endif
        for (; i < count; ++i) {
            uint32_t v;
            std::memcpy(&v, in + i * 4, 4);
            v = (v & keep) | rest;
            std::memcpy(out + i * 4, &v, 4);
        }
        return;
    }
    uint8_t bytes[4];
    std::memcpy(bytes, &background, sizeof bytes);
    for (int64_t i = 0; i < count; ++i, in += pixelStride, out += pixelStride) {
        std::copy_n(in, channels, out);
        std::copy_n(bytes + channels, pixelStride - channels, out + channels);
    }
}

// Output row y (frame coordinates) of a translation: pixels whose source (x + dx, y + dy)
// lies in [0, w-1) x [0, h-1) are copied, the others get the background.
void copyRow(const uint8_t *source, const PixelLayout &src, const Translation &t, int64_t x0, int64_t y,
             int64_t width, uint8_t *out, int pixelStride, uint32_t background)
{
    const int64_t sy = y + t.dy;
    if (sy < 0 || sy >= src.h - 1) {
        fillRow(out, width, pixelStride, background);
        return;
    }
    const int64_t begin = std::clamp(-t.dx, x0, x0 + width);
    const int64_t end = std::clamp(src.w - 1 - t.dx, begin, x0 + width);
    fillRow(out, begin - x0, pixelStride, background);
    copyPixels(source + sy * src.rowStride + (begin + t.dx) * src.pixelStride, out + (begin - x0) * pixelStride,
               end - begin, src.channels, pixelStride, background);
    fillRow(out + (end - x0) * pixelStride, x0 + width - end, pixelStride, background);
}

// Rows [0, height) over the cores in blocks taken in turn, so a core slowed by other work
// takes fewer of them instead of holding up the whole warp. Each row is written by one core.
template <typename RowFn>
void forEachRow(int64_t height, RowFn row)
{
    constexpr int64_t blockRows = 16;
    std::atomic<int64_t> next{0};
    parallelRows(height, [&](int64_t, int64_t) {
        for (int64_t begin; (begin = next.fetch_add(blockRows, std::memory_order_relaxed)) < height;) {
            const int64_t end = std::min(begin + blockRows, height);
            for (int64_t r = begin; r < end; ++r)
                row(r);
        }
    });
}

} // namespace

bool warpKernelAvailable(WarpKernel kernel)
{
    switch (kernel) {
    case WarpKernel::avx512:
        return cpuRunsAvx512();
    case WarpKernel::avx2:
        return cpuRunsAvx2();
    default:
        return true;
    }
}

bool warpCopiesRows(const PerspectiveMatrix &matrix)
{
    PerspectiveMatrix inverse;
    Translation translation;
    return invert(matrix, inverse) && integerTranslation(inverse, translation);
}

bool warpPerspectiveRegion(const uint8_t *source, const PixelLayout &sourceLayout, const PerspectiveMatrix &matrix,
                           int64_t x0, int64_t y0, int64_t width, int64_t height, uint8_t *destination,
                           const PixelLayout &destinationLayout, uint32_t background, const WarpOptions &options)
{
    if (sourceLayout.channels != destinationLayout.channels)
        return false;
    const bool bgrx = sourceLayout.channels == 3 && sourceLayout.pixelStride == 4 && destinationLayout.pixelStride == 4;
    const WarpDetail::BgrxRowKernel bgrxRow = bgrx ? bgrxKernel(options.kernel) : nullptr;
    const PackedRowKernel packedRow = bgrx ? nullptr : packedKernel(sourceLayout, destinationLayout);
    PerspectiveMatrix inverse;
    if ((!bgrxRow && !packedRow) || !invert(matrix, inverse))
        return false;
    if (width <= 0 || height <= 0)
        return true;
    const int64_t stride = destinationLayout.rowStride;
    const int pixelStride = destinationLayout.pixelStride;

    constexpr int64_t coordinateLimit = int64_t{1} << 40;
    Translation translation;
    if (options.rowCopy && integerTranslation(inverse, translation) && std::abs(x0) < coordinateLimit &&
        std::abs(y0) < coordinateLimit && width < coordinateLimit && height < coordinateLimit) {
        forEachRow(height, [&](int64_t row) {
            copyRow(source, sourceLayout, translation, x0, y0 + row, width, destination + row * stride, pixelStride,
                    background);
        });
        return true;
    }
    if (bgrxRow) {
        forEachRow(height, [&](int64_t row) {
            bgrxRow(source, sourceLayout, inverse, x0, y0 + row, width,
                    reinterpret_cast<uint32_t *>(destination + row * stride), background);
        });
        return true;
    }
    forEachRow(height, [&](int64_t row) {
        uint8_t *out = destination + row * stride;
        fillRow(out, width, pixelStride, background);
        packedRow(source, sourceLayout, inverse, x0, y0 + row, width, out);
    });
    return true;
}

} // namespace Vorel
