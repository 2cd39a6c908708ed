// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// AVX2 kernel of the display warp (4-byte pixels), four output pixels per step, one per
// double lane. Only mul, add, sub, div, exact truncation and exact integer-to-double
// conversion are used, each lane in the order of the scalar formula, and no fused
// multiply-add: every pixel equals the scalar kernel's bit for bit. Compiled with -mavx2
// alone; chosen at run time.
#include "core/homographywarpspan.h"

#include <algorithm>

#include <immintrin.h>

// GCC 12 takes the deliberately undefined upper lanes inside the intrinsics (conversions,
// extractions) for uninitialised variables.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"

namespace Vorel::WarpDetail {

namespace {

// Byte shuffle that moves byte `first` of every 64-bit lane (the byte 8 further in the odd
// lanes, since the shuffle works per 128-bit lane) into the lane's lowest byte and zeroes the
// other seven.
__m256i byteToLane(int first)
{
    const long long even = static_cast<long long>(0x8080808080808000ull | static_cast<unsigned>(first));
    const long long odd = static_cast<long long>(0x8080808080808000ull | static_cast<unsigned>(first + 8));
    return _mm256_set_epi64x(odd, even, odd, even);
}

// The byte picked by `shuffle` as a double: with the bits of 2^52 around it, a byte b is the
// double 2^52 + b, so subtracting 2^52 leaves b exactly.
inline __m256d channel(__m256i pixels, __m256i shuffle)
{
    const __m256d bias = _mm256_set1_pd(4503599627370496.0);
    const __m256i byte = _mm256_shuffle_epi8(pixels, shuffle);
    return _mm256_sub_pd(_mm256_castsi256_pd(_mm256_or_si256(byte, _mm256_castpd_si256(bias))), bias);
}

template <bool Affine>
void warpRow(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv, int64_t x0, int64_t y,
             int64_t width, uint32_t *out, uint32_t background)
{
    const __m256d maxX = _mm256_set1_pd(static_cast<double>(src.w - 1));
    const __m256d maxY = _mm256_set1_pd(static_cast<double>(src.h - 1));
    const __m256d zero = _mm256_setzero_pd(), one = _mm256_set1_pd(1.0), half = _mm256_set1_pd(0.5);
    const __m256d limit = _mm256_set1_pd(singularLimit);
    const __m256d absMask = _mm256_castsi256_pd(_mm256_set1_epi64x(0x7fffffffffffffffLL));
    const double yd = static_cast<double>(y);
    // m[1]*y, m[4]*y and m[7]*y are the same for the whole row (scalar products, same bits).
    const __m256d m0 = _mm256_set1_pd(inv[0]), m1y = _mm256_set1_pd(inv[1] * yd), m2 = _mm256_set1_pd(inv[2]);
    const __m256d m3 = _mm256_set1_pd(inv[3]), m4y = _mm256_set1_pd(inv[4] * yd), m5 = _mm256_set1_pd(inv[5]);
    const __m256d m6 = _mm256_set1_pd(inv[6]), m7y = _mm256_set1_pd(inv[7] * yd), m8 = _mm256_set1_pd(inv[8]);
    const __m256i rowStride = _mm256_set1_epi64x(src.rowStride);
    const __m256i left[3] = {byteToLane(0), byteToLane(1), byteToLane(2)};
    const __m256i right[3] = {byteToLane(4), byteToLane(5), byteToLane(6)};
    // The low 32 bits of each 64-bit lane, in order.
    const __m256i lowHalves = _mm256_setr_epi32(0, 2, 4, 6, 1, 3, 5, 7);
    const __m128i fill = _mm_set1_epi32(static_cast<int>(background));
    const __m128i fourthByte = _mm_set1_epi32(static_cast<int>(background & 0xff000000u));
    const __m256d four = _mm256_set1_pd(4.0);
    const auto *base = reinterpret_cast<const long long *>(source);

    // Two passes over chunks of the row, as in the AVX-512 kernel: the source coordinates of a
    // chunk (with their divisions), then its pixels; short dependency chains overlap better.
    constexpr int blocksPerChunk = 16;
    alignas(32) double chunkX[blocksPerChunk][4], chunkY[blocksPerChunk][4], chunkOk[blocksPerChunk][4];
    const int64_t whole = width / 4 * 4;
    // Lane k holds x0 + col + k: integers far below 2^53, so the sums are exact.
    __m256d x = _mm256_add_pd(_mm256_set1_pd(static_cast<double>(x0)), _mm256_setr_pd(0, 1, 2, 3));
    for (int64_t chunk = 0; chunk < whole; chunk += 4 * blocksPerChunk) {
        const int blocks = static_cast<int>(std::min<int64_t>(blocksPerChunk, (whole - chunk) / 4));
        for (int b = 0; b < blocks; ++b, x = _mm256_add_pd(x, four)) {
            const __m256d sxh = _mm256_add_pd(_mm256_add_pd(_mm256_mul_pd(m0, x), m1y), m2);
            const __m256d syh = _mm256_add_pd(_mm256_add_pd(_mm256_mul_pd(m3, x), m4y), m5);
            __m256d sx, sy, ok;
            if constexpr (Affine) {
                // The inverse's last row is exactly (0, 0, 1): w' is exactly 1 and dividing by
                // it would change nothing.
                sx = sxh;
                sy = syh;
                ok = _mm256_cmp_pd(sx, zero, _CMP_GE_OQ);
            } else {
                const __m256d wh = _mm256_add_pd(_mm256_add_pd(_mm256_mul_pd(m6, x), m7y), m8);
                sx = _mm256_div_pd(sxh, wh);
                sy = _mm256_div_pd(syh, wh);
                ok = _mm256_and_pd(_mm256_cmp_pd(_mm256_and_pd(wh, absMask), limit, _CMP_GE_OQ),
                                   _mm256_cmp_pd(sx, zero, _CMP_GE_OQ));
            }
            ok = _mm256_and_pd(ok, _mm256_cmp_pd(sx, maxX, _CMP_LT_OQ));
            ok = _mm256_and_pd(ok, _mm256_cmp_pd(sy, zero, _CMP_GE_OQ));
            ok = _mm256_and_pd(ok, _mm256_cmp_pd(sy, maxY, _CMP_LT_OQ));
            _mm256_store_pd(chunkX[b], sx);
            _mm256_store_pd(chunkY[b], sy);
            _mm256_store_pd(chunkOk[b], ok);
        }
        for (int b = 0; b < blocks; ++b) {
            const __m256d ok = _mm256_load_pd(chunkOk[b]);
            auto *target = reinterpret_cast<__m128i *>(out + chunk + 4 * b);
            if (_mm256_testz_pd(ok, ok)) {
                _mm_storeu_si128(target, fill);
                continue;
            }
            const __m256d sx = _mm256_load_pd(chunkX[b]), sy = _mm256_load_pd(chunkY[b]);
            // 0 <= s < 2^31 in the lanes that sample: truncation toward zero as a double is the
            // integer part exactly.
            const __m256d ix = _mm256_round_pd(sx, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
            const __m256d iy = _mm256_round_pd(sy, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
            const __m256d fx = _mm256_sub_pd(sx, ix), fy = _mm256_sub_pd(sy, iy);
            const __m256d gx = _mm256_sub_pd(one, fx), gy = _mm256_sub_pd(one, fy);
            const __m256d w00 = _mm256_mul_pd(gx, gy), w10 = _mm256_mul_pd(fx, gy);
            const __m256d w01 = _mm256_mul_pd(gx, fy), w11 = _mm256_mul_pd(fx, fy);
            // Byte offsets iy*rowStride + 4*ix in 64-bit integers (lanes that sample nothing get
            // some value and load nothing).
            const __m256i offset =
                _mm256_add_epi64(_mm256_mul_epi32(_mm256_cvtepi32_epi64(_mm256_cvttpd_epi32(iy)), rowStride),
                                 _mm256_slli_epi64(_mm256_cvtepi32_epi64(_mm256_cvttpd_epi32(ix)), 2));
            // Pixels (ix, iy) and (ix+1, iy) in one 64-bit load, likewise the row below.
            const __m256i loadMask = _mm256_castpd_si256(ok);
            const __m256i upper = _mm256_mask_i64gather_epi64(_mm256_setzero_si256(), base, offset, loadMask, 1);
            const __m256i lower = _mm256_mask_i64gather_epi64(_mm256_setzero_si256(), base,
                                                              _mm256_add_epi64(offset, rowStride), loadMask, 1);
            __m128i pixel = fourthByte;
            for (int c = 0; c < 3; ++c) {
                const __m256d v = _mm256_add_pd(
                    _mm256_add_pd(_mm256_add_pd(_mm256_add_pd(_mm256_mul_pd(w00, channel(upper, left[c])),
                                                              _mm256_mul_pd(w10, channel(upper, right[c]))),
                                                _mm256_mul_pd(w01, channel(lower, left[c]))),
                                  _mm256_mul_pd(w11, channel(lower, right[c]))),
                    half);
                // The weights sum to at most 1 + 2^-50 after rounding, so v < 256 and its integer
                // part is what the scalar formula's "v >= 255 gives 255" yields.
                pixel = _mm_or_si128(pixel, _mm_slli_epi32(_mm256_cvttpd_epi32(v), 8 * c));
            }
            const __m128i sampled = _mm256_castsi256_si128(_mm256_permutevar8x32_epi32(loadMask, lowHalves));
            _mm_storeu_si128(target, _mm_blendv_epi8(fill, pixel, sampled));
        }
    }
    if (whole < width) {
        std::fill(out + whole, out + width, background);
        warpSpan<3, 4, 4>(source, src, inv, x0 + whole, y, width - whole, reinterpret_cast<uint8_t *>(out + whole));
    }
}

} // namespace

void warpRowBgrxAvx2(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv, int64_t x0,
                     int64_t y, int64_t width, uint32_t *out, uint32_t background)
{
    if (inv[6] == 0 && inv[7] == 0 && inv[8] == 1)
        warpRow<true>(source, src, inv, x0, y, width, out, background);
    else
        warpRow<false>(source, src, inv, x0, y, width, out, background);
}

} // namespace Vorel::WarpDetail
