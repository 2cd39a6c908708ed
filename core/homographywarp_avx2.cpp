// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// AVX2 kernel of the display warp (4-byte pixels). Only mul, add, sub and div are used, each
// lane in the order of the scalar formula, and no fused multiply-add: every pixel equals the
// scalar kernel's bit for bit. Compiled with -mavx2 alone; chosen at run time.
#include "core/homographywarpspan.h"

#include <immintrin.h>

namespace Vorel::WarpDetail {

void warpRowsBgrxAvx2(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &inv, int64_t x0,
                      int64_t y0, int64_t width, int64_t rowBegin, int64_t rowEnd, uint8_t *destination,
                      int64_t destinationRowStride)
{
    const __m256d maxX = _mm256_set1_pd(static_cast<double>(src.w - 1));
    const __m256d maxY = _mm256_set1_pd(static_cast<double>(src.h - 1));
    const __m256d zero = _mm256_setzero_pd(), one = _mm256_set1_pd(1.0), half = _mm256_set1_pd(0.5);
    const __m256d limit = _mm256_set1_pd(singularLimit);
    const __m256d absMask = _mm256_castsi256_pd(_mm256_set1_epi64x(0x7fffffffffffffffLL));
    const __m256d laneOffsets = _mm256_set_pd(3, 2, 1, 0);
    __m256d m[9];
    for (int k = 0; k < 9; ++k)
        m[k] = _mm256_set1_pd(inv[k]);
    const __m256i byteMask = _mm256_set1_epi64x(0xff);
    const __m128i max255 = _mm_set1_epi32(255);
    const __m256i rowStride = _mm256_set1_epi64x(src.rowStride);
    const int *base = reinterpret_cast<const int *>(source);

    for (int64_t row = rowBegin; row < rowEnd; ++row) {
        const __m256d y = _mm256_set1_pd(static_cast<double>(y0 + row));
        const __m256d m1y = _mm256_mul_pd(m[1], y), m4y = _mm256_mul_pd(m[4], y), m7y = _mm256_mul_pd(m[7], y);
        uint8_t *outRow = destination + row * destinationRowStride;
        int64_t col = 0;
        for (; col + 4 <= width; col += 4) {
            const __m256d x = _mm256_add_pd(_mm256_set1_pd(static_cast<double>(x0 + col)), laneOffsets);
            const __m256d wh = _mm256_add_pd(_mm256_add_pd(_mm256_mul_pd(m[6], x), m7y), m[8]);
            const __m256d sx = _mm256_div_pd(_mm256_add_pd(_mm256_add_pd(_mm256_mul_pd(m[0], x), m1y), m[2]), wh);
            const __m256d sy = _mm256_div_pd(_mm256_add_pd(_mm256_add_pd(_mm256_mul_pd(m[3], x), m4y), m[5]), wh);
            __m256d ok = _mm256_cmp_pd(_mm256_and_pd(wh, absMask), limit, _CMP_GE_OQ);
            ok = _mm256_and_pd(ok, _mm256_cmp_pd(sx, zero, _CMP_GE_OQ));
            ok = _mm256_and_pd(ok, _mm256_cmp_pd(sx, maxX, _CMP_LT_OQ));
            ok = _mm256_and_pd(ok, _mm256_cmp_pd(sy, zero, _CMP_GE_OQ));
            ok = _mm256_and_pd(ok, _mm256_cmp_pd(sy, maxY, _CMP_LT_OQ));
            const int lanes = _mm256_movemask_pd(ok);
            if (lanes == 0)
                continue;
            // Lanes that sample nothing read pixel (0, 0) harmlessly and are not stored.
            const __m256d sxOk = _mm256_blendv_pd(zero, sx, ok), syOk = _mm256_blendv_pd(zero, sy, ok);
            const __m128i ix = _mm256_cvttpd_epi32(sxOk), iy = _mm256_cvttpd_epi32(syOk);
            const __m256d fx = _mm256_sub_pd(sxOk, _mm256_cvtepi32_pd(ix));
            const __m256d fy = _mm256_sub_pd(syOk, _mm256_cvtepi32_pd(iy));
            const __m256d gx = _mm256_sub_pd(one, fx), gy = _mm256_sub_pd(one, fy);
            const __m256d w00 = _mm256_mul_pd(gx, gy), w10 = _mm256_mul_pd(fx, gy);
            const __m256d w01 = _mm256_mul_pd(gx, fy), w11 = _mm256_mul_pd(fx, fy);

            const __m256i offset00 = _mm256_add_epi64(_mm256_mul_epi32(_mm256_cvtepi32_epi64(iy), rowStride),
                                                      _mm256_slli_epi64(_mm256_cvtepi32_epi64(ix), 2));
            const __m256i offset01 = _mm256_add_epi64(offset00, rowStride);
            const __m256i four = _mm256_set1_epi64x(4);
            // Pixels as 64-bit lanes (upper half zero) so channels convert straight to double.
            const __m256i p00 = _mm256_cvtepu32_epi64(_mm256_i64gather_epi32(base, offset00, 1));
            const __m256i p10 = _mm256_cvtepu32_epi64(_mm256_i64gather_epi32(base, _mm256_add_epi64(offset00, four), 1));
            const __m256i p01 = _mm256_cvtepu32_epi64(_mm256_i64gather_epi32(base, offset01, 1));
            const __m256i p11 = _mm256_cvtepu32_epi64(_mm256_i64gather_epi32(base, _mm256_add_epi64(offset01, four), 1));

            __m128i packed = _mm_setzero_si128();
            for (int c = 0; c < 3; ++c) {
                const auto channel = [&](__m256i p) {
                    const __m256i v = _mm256_and_si256(_mm256_srli_epi64(p, 8 * c), byteMask);
                    // 64-bit integers below 2^52 convert exactly through the 2^52 bias trick.
                    const __m256d bias = _mm256_set1_pd(4503599627370496.0);
                    return _mm256_sub_pd(_mm256_castsi256_pd(_mm256_or_si256(v, _mm256_castpd_si256(bias))), bias);
                };
                const __m256d v = _mm256_add_pd(
                    _mm256_add_pd(_mm256_add_pd(_mm256_add_pd(_mm256_mul_pd(w00, channel(p00)),
                                                              _mm256_mul_pd(w10, channel(p10))),
                                                _mm256_mul_pd(w01, channel(p01))),
                                  _mm256_mul_pd(w11, channel(p11))),
                    half);
                const __m128i byte = _mm_min_epi32(_mm256_cvttpd_epi32(v), max255);
                packed = _mm_or_si128(packed, _mm_slli_epi32(byte, 8 * c));
            }
            auto *out = reinterpret_cast<uint32_t *>(outRow + col * 4);
            alignas(16) uint32_t values[4];
            _mm_store_si128(reinterpret_cast<__m128i *>(values), packed);
            for (int k = 0; k < 4; ++k)
                if (lanes & (1 << k))
                    out[k] = (out[k] & 0xff000000u) | values[k];
        }
        warpSpan<3, 4, 4>(source, src, inv, x0 + col, y0 + row, width - col, outRow + col * 4);
    }
}

} // namespace Vorel::WarpDetail
