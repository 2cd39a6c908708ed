// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// AVX-512 kernel of the display warp (4-byte pixels), eight output pixels per step, one per
// double lane. Only mul, add, sub, div, exact truncation and exact integer-to-double
// conversion are used, each lane in the order of the scalar formula, and no fused
// multiply-add: every pixel equals the scalar kernel's bit for bit. Compiled with AVX-512
// F/DQ/BW/VL alone (no FMA); chosen at run time.
#include "core/homographywarpspan.h"

#include <algorithm>

#include <immintrin.h>

// GCC 12 takes the deliberately undefined upper lanes inside the intrinsics (conversions,
// extractions) for uninitialised variables.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"

namespace Vorel::WarpDetail {

namespace {

// Byte shuffle that moves byte `first` of every 64-bit lane (and the byte 8 further in the
// odd lanes, since the shuffle works per 128-bit lane) into the lane's lowest byte and zeroes
// the other seven.
__m512i byteToLane(int first)
{
    const long long even = static_cast<long long>(0x8080808080808000ull | static_cast<unsigned>(first));
    const long long odd = static_cast<long long>(0x8080808080808000ull | static_cast<unsigned>(first + 8));
    return _mm512_set_epi64(odd, even, odd, even, odd, even, odd, even);
}

// Each 64-bit lane of `pixels` holds two neighbouring source pixels (left one low); the byte
// that `shuffle` picks in each lane, as a double.
inline __m512d channel(__m512i pixels, __m512i shuffle)
{
    return _mm512_cvtepi64_pd(_mm512_shuffle_epi8(pixels, shuffle));
}

// The 8 bytes at source + offset (lanes in `ok`) and at source + offset + rowStride, read with
// four plain 64-byte loads instead of gathers when the lanes fit in two windows: one from the
// first lane's offset on, one ending 8 bytes past the last lane's offset. Each lane's bytes
// are the same memory either way; false when they do not fit (the caller gathers then).
inline bool pixelsFromWindows(const uint8_t *source, __m512i offset, __mmask8 ok, int64_t windowLimit,
                              int64_t rowStride, __m512i &upper, __m512i &lower)
{
    const unsigned first = static_cast<unsigned>(__builtin_ctz(ok));
    const unsigned last = 31u - static_cast<unsigned>(__builtin_clz(ok));
    const __m512i startA = _mm512_permutexvar_epi64(_mm512_set1_epi64(first), offset);
    const __m512i startB = _mm512_sub_epi64(_mm512_permutexvar_epi64(_mm512_set1_epi64(last), offset),
                                            _mm512_set1_epi64(56));
    const int64_t a = _mm_cvtsi128_si64(_mm512_castsi512_si128(startA));
    const int64_t b = _mm_cvtsi128_si64(_mm512_castsi512_si128(startB));
    if (windowLimit < 0 || static_cast<uint64_t>(a) > static_cast<uint64_t>(windowLimit) ||
        static_cast<uint64_t>(b) > static_cast<uint64_t>(windowLimit))
        return false;
    const __m512i relA = _mm512_sub_epi64(offset, startA), relB = _mm512_sub_epi64(offset, startB);
    const __m512i span = _mm512_set1_epi64(56);
    const __mmask8 inA = _mm512_mask_cmple_epu64_mask(ok, relA, span);
    const __mmask8 inB = _mm512_mask_cmple_epu64_mask(ok & ~inA, relB, span);
    if (static_cast<__mmask8>(inA | inB) != ok)
        return false;
    // Pixel index within the 32 of both windows, then the pair (q, q+1) as two 32-bit indices.
    const __m512i fromB = _mm512_add_epi64(relB, _mm512_set1_epi64(64));
    const __m512i q = _mm512_srli_epi64(_mm512_mask_blend_epi64(inA, fromB, relA), 2);
    const __m512i pairs =
        _mm512_add_epi64(_mm512_add_epi64(q, _mm512_slli_epi64(q, 32)), _mm512_set1_epi64(int64_t{1} << 32));
    const uint8_t *pa = source + a, *pb = source + b;
    upper = _mm512_permutex2var_epi32(_mm512_loadu_si512(pa), pairs, _mm512_loadu_si512(pb));
    lower = _mm512_permutex2var_epi32(_mm512_loadu_si512(pa + rowStride), pairs, _mm512_loadu_si512(pb + rowStride));
    return true;
}

// Affine: the inverse's last row is exactly (0, 0, 1), so w' is exactly 1 in every lane and
// dividing by it would change nothing; the divisions are left out.
template <bool Affine>
void warpRow(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv, int64_t x0, int64_t y,
             int64_t width, uint32_t *out, uint32_t background)
{
    const __m512d maxX = _mm512_set1_pd(static_cast<double>(src.w - 1));
    const __m512d maxY = _mm512_set1_pd(static_cast<double>(src.h - 1));
    const __m512d zero = _mm512_setzero_pd(), one = _mm512_set1_pd(1.0), half = _mm512_set1_pd(0.5);
    const __m512d limit = _mm512_set1_pd(singularLimit);
    const double yd = static_cast<double>(y);
    // m[1]*y, m[4]*y and m[7]*y are the same for the whole row (scalar products, same bits).
    const __m512d m0 = _mm512_set1_pd(inv[0]), m1y = _mm512_set1_pd(inv[1] * yd), m2 = _mm512_set1_pd(inv[2]);
    const __m512d m3 = _mm512_set1_pd(inv[3]), m4y = _mm512_set1_pd(inv[4] * yd), m5 = _mm512_set1_pd(inv[5]);
    const __m512d m6 = _mm512_set1_pd(inv[6]), m7y = _mm512_set1_pd(inv[7] * yd), m8 = _mm512_set1_pd(inv[8]);
    const __m512d rowBytes = _mm512_set1_pd(static_cast<double>(src.rowStride)), pixelBytes = _mm512_set1_pd(4.0);
    const __m512i nextRow = _mm512_set1_epi64(src.rowStride);
    const int64_t rowStride = src.rowStride;
    // Windows of 64 bytes may start anywhere up to here: their row and the row below then lie
    // inside the picture's bytes (the last row ends at its last pixel).
    const int64_t windowLimit = src.rowStride % 4 == 0 ? (src.h - 2) * src.rowStride + src.w * 4 - 64 : -1;
    const __m512i left[3] = {byteToLane(0), byteToLane(1), byteToLane(2)};
    const __m512i right[3] = {byteToLane(4), byteToLane(5), byteToLane(6)};
    const __m256i fill = _mm256_set1_epi32(static_cast<int>(background));
    const __m256i fourthByte = _mm256_set1_epi32(static_cast<int>(background & 0xff000000u));
    const __m512d eight = _mm512_set1_pd(8.0);

    // Two passes over chunks of the row: the source coordinates of a chunk (with their
    // divisions), then its pixels. Each pass is a short chain of dependent operations, so the
    // processor overlaps many blocks of eight pixels instead of waiting on one long chain.
    constexpr int blocksPerChunk = 8;
    alignas(64) double chunkX[blocksPerChunk][8], chunkY[blocksPerChunk][8];
    __mmask8 chunkOk[blocksPerChunk];
    alignas(64) double weights[blocksPerChunk][4][8];
    alignas(64) int64_t pairs[blocksPerChunk][2][8];
    // Lane k holds x0 + col + k: integers far below 2^53, so the sums are exact.
    __m512d x = _mm512_add_pd(_mm512_set1_pd(static_cast<double>(x0)), _mm512_set_pd(7, 6, 5, 4, 3, 2, 1, 0));
    for (int64_t chunk = 0; chunk < width; chunk += 8 * blocksPerChunk) {
        const int blocks = static_cast<int>(std::min<int64_t>(blocksPerChunk, (width - chunk + 7) / 8));
        for (int b = 0; b < blocks; ++b, x = _mm512_add_pd(x, eight)) {
            const int64_t col = chunk + 8 * b;
            const __mmask8 active = width - col >= 8 ? __mmask8(0xff) : __mmask8((1u << (width - col)) - 1);
            const __m512d sxh = _mm512_add_pd(_mm512_add_pd(_mm512_mul_pd(m0, x), m1y), m2);
            const __m512d syh = _mm512_add_pd(_mm512_add_pd(_mm512_mul_pd(m3, x), m4y), m5);
            __m512d sx, sy;
            __mmask8 ok = active;
            if constexpr (Affine) {
                sx = sxh;
                sy = syh;
            } else {
                const __m512d wh = _mm512_add_pd(_mm512_add_pd(_mm512_mul_pd(m6, x), m7y), m8);
                ok = _mm512_mask_cmp_pd_mask(ok, _mm512_abs_pd(wh), limit, _CMP_GE_OQ);
                sx = _mm512_div_pd(sxh, wh);
                sy = _mm512_div_pd(syh, wh);
            }
            ok = _mm512_mask_cmp_pd_mask(ok, sx, zero, _CMP_GE_OQ);
            ok = _mm512_mask_cmp_pd_mask(ok, sx, maxX, _CMP_LT_OQ);
            ok = _mm512_mask_cmp_pd_mask(ok, sy, zero, _CMP_GE_OQ);
            ok = _mm512_mask_cmp_pd_mask(ok, sy, maxY, _CMP_LT_OQ);
            _mm512_store_pd(chunkX[b], sx);
            _mm512_store_pd(chunkY[b], sy);
            chunkOk[b] = ok;
        }
        // The pixels of each block: weights and the two source rows' pixel pairs, then the sums.
        for (int b = 0; b < blocks; ++b) {
            const __mmask8 ok = chunkOk[b];
            if (ok == 0)
                continue;
            const __m512d sx = _mm512_load_pd(chunkX[b]), sy = _mm512_load_pd(chunkY[b]);
            // 0 <= s < 2^31 in the lanes that sample: truncation toward zero as a double is the
            // integer part exactly.
            const __m512d ix = _mm512_roundscale_pd(sx, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
            const __m512d iy = _mm512_roundscale_pd(sy, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
            const __m512d fx = _mm512_sub_pd(sx, ix), fy = _mm512_sub_pd(sy, iy);
            const __m512d gx = _mm512_sub_pd(one, fx), gy = _mm512_sub_pd(one, fy);
            _mm512_store_pd(weights[b][0], _mm512_mul_pd(gx, gy));
            _mm512_store_pd(weights[b][1], _mm512_mul_pd(fx, gy));
            _mm512_store_pd(weights[b][2], _mm512_mul_pd(gx, fy));
            _mm512_store_pd(weights[b][3], _mm512_mul_pd(fx, fy));
            // Byte offset iy*rowStride + 4*ix: exact in double (far below 2^53).
            const __m512i offset =
                _mm512_cvttpd_epi64(_mm512_add_pd(_mm512_mul_pd(iy, rowBytes), _mm512_mul_pd(ix, pixelBytes)));
            // Pixels (ix, iy) and (ix+1, iy) as one 64-bit lane, likewise the row below.
            __m512i upper, lower;
            if (!pixelsFromWindows(source, offset, ok, windowLimit, rowStride, upper, lower)) {
                // Lanes that sample nothing load nothing.
                upper = _mm512_mask_i64gather_epi64(_mm512_setzero_si512(), ok, offset, source, 1);
                lower = _mm512_mask_i64gather_epi64(_mm512_setzero_si512(), ok, _mm512_add_epi64(offset, nextRow),
                                                    source, 1);
            }
            _mm512_store_si512(pairs[b][0], upper);
            _mm512_store_si512(pairs[b][1], lower);
        }
        for (int b = 0; b < blocks; ++b) {
            const int64_t col = chunk + 8 * b;
            const __mmask8 active = width - col >= 8 ? __mmask8(0xff) : __mmask8((1u << (width - col)) - 1);
            const __mmask8 ok = chunkOk[b];
            if (ok == 0) {
                _mm256_mask_storeu_epi32(out + col, active, fill);
                continue;
            }
            const __m512d w00 = _mm512_load_pd(weights[b][0]), w10 = _mm512_load_pd(weights[b][1]);
            const __m512d w01 = _mm512_load_pd(weights[b][2]), w11 = _mm512_load_pd(weights[b][3]);
            const __m512i upper = _mm512_load_si512(pairs[b][0]), lower = _mm512_load_si512(pairs[b][1]);
            const auto value = [&](int c) {
                const __m512d v = _mm512_add_pd(
                    _mm512_add_pd(_mm512_add_pd(_mm512_add_pd(_mm512_mul_pd(w00, channel(upper, left[c])),
                                                              _mm512_mul_pd(w10, channel(upper, right[c]))),
                                                _mm512_mul_pd(w01, channel(lower, left[c]))),
                                  _mm512_mul_pd(w11, channel(lower, right[c]))),
                    half);
                // The weights sum to at most 1 + 2^-50 after rounding, so v < 256 and its integer
                // part is what the scalar formula's "v >= 255 gives 255" yields.
                return _mm512_cvttpd_epi32(v);
            };
            const __m256i b0 = value(0), b1 = value(1), b2 = value(2);
            const __m256i pixel =
                _mm256_ternarylogic_epi32(b0, _mm256_slli_epi32(b1, 8), _mm256_slli_epi32(b2, 16), 0xfe);
            _mm256_mask_storeu_epi32(out + col, active, _mm256_mask_or_epi32(fill, ok, pixel, fourthByte));
        }
    }
}

} // namespace

void warpRowBgrxAvx512(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv, int64_t x0,
                       int64_t y, int64_t width, uint32_t *out, uint32_t background)
{
    if (inv[6] == 0 && inv[7] == 0 && inv[8] == 1)
        warpRow<true>(source, src, inv, x0, y, width, out, background);
    else
        warpRow<false>(source, src, inv, x0, y, width, out, background);
}

} // namespace Vorel::WarpDetail
