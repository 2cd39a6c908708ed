// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// AVX-512 counting pass. The in-order luminance sum is a chain of dependent double additions
// (four cycles a pixel); this kernel reaches the same bits without the chain. While the
// running sum s stays in one binade [2^e, 2^(e+1)), every sum is a multiple of its ulp
// u = 2^(e-52) and s + Y rounds to s + (Y rounded to a multiple of u), unless Y lies exactly
// halfway (then the parity of s decides). So a block of pixels adds exactly
// sum(round_u(Y)) * u when no Y is a tie and the total keeps s below 2^(e+1); round_u(Y) is
// read from the bits of 2^e + Y, which the hardware rounds to the same grid, and a tie shows
// as 2^e + Y and 2^e + u + Y rounding in different directions. Blocks that fail these
// checks, and sums below 256 (where 2^e + Y could leave the binade), are added in order
// instead. The level counts (scalar increments, the port-bound part) run in the same loop as
// the vector luminance, so the two overlap. Compiled with -mavx512f alone (no fused
// multiply-add); chosen at run time.
#include "align/viewcounting.h"

#include <bit>
#include <optional>

#include <immintrin.h>

// GCC 12 takes the deliberately undefined pass-through registers inside the intrinsics
// (shifts, conversions) for uninitialised variables.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"

namespace Vorel {

namespace {

constexpr int64_t blockPixels = 1024;        // pixels whose rounded luminances are summed at once
constexpr double smallestBinadeSum = 256;     // from here on every Y (at most 255) is below 2^e
constexpr uint64_t exponentBits = 0x7ff0000000000000ull;
constexpr uint64_t mantissaBits = 0x000fffffffffffffull;
constexpr uint64_t binadeEnd = 1ull << 53;   // 2^(e+1) / u: sums at or past it round on a coarser grid

inline __m512d channel(__m256i pixels, int shift)
{
    const __m256i byte = _mm256_and_si256(_mm256_srli_epi32(pixels, shift), _mm256_set1_epi32(0xff));
    return _mm512_cvtepi32_pd(byte);
}

// Counts the levels of two pixels read as one 64-bit word, into sets `set` and `set + 1`.
inline void countPixelPair(LevelCounts &levels, int set, uint64_t pair)
{
#pragma GCC unroll 2
    for (int half = 0; half < 2; ++half, pair >>= 32) {
        ++levels.counts[set + half][0][(pair >> 16) & 0xff];
        ++levels.counts[set + half][1][(pair >> 8) & 0xff];
        ++levels.counts[set + half][2][pair & 0xff];
    }
}

// The sum of the eight lanes modulo 2^64. GCC's _mm512_reduce_add_epi64 adds them as signed
// integers, where wrapping is undefined behaviour; here the wrap is the point.
inline uint64_t wrappingLaneSum(__m512i v)
{
    alignas(64) uint64_t lanes[8];
    _mm512_store_si512(lanes, v);
    uint64_t sum = 0;
    for (const uint64_t lane : lanes)
        sum += lane;
    return sum;
}

// sum plus the block's luminances, or nothing where the block cannot be added at once. With
// Counting the block's levels are counted either way.
template <bool Counting>
std::optional<double> addBlockInUlps(double sum, const uint8_t *bgrx, LevelCounts *levels)
{
    const uint64_t bits = std::bit_cast<uint64_t>(sum);
    const double binade = std::bit_cast<double>(bits & exponentBits); // 2^e
    const double ulp = binade * 0x1p-52;
    const __m512d lowGrid = _mm512_set1_pd(binade);      // even multiple of u
    const __m512d highGrid = _mm512_set1_pd(binade + ulp); // odd multiple of u
    const __m512i one = _mm512_set1_epi64(1);
    __m512i units = _mm512_setzero_si512();
    __mmask8 ties = 0;
    for (int64_t i = 0; i < blockPixels; i += 8) {
        const uint8_t *step = bgrx + 4 * i;
        const __m256i pixels = _mm256_loadu_si256(reinterpret_cast<const __m256i *>(step));
        const __m512d y = _mm512_add_pd(
            _mm512_add_pd(_mm512_mul_pd(_mm512_set1_pd(0.299), channel(pixels, 16)),
                          _mm512_mul_pd(_mm512_set1_pd(0.587), channel(pixels, 8))),
            _mm512_mul_pd(_mm512_set1_pd(0.114), channel(pixels, 0)));
        const __m512i low = _mm512_castpd_si512(_mm512_add_pd(lowGrid, y)); // 2^e + round_u(Y)
        const __m512i high = _mm512_castpd_si512(_mm512_add_pd(highGrid, y));
        units = _mm512_add_epi64(units, low);
        ties |= _mm512_cmpneq_epi64_mask(_mm512_sub_epi64(high, low), one);
        if constexpr (Counting) {
#pragma GCC unroll 4
            for (int pair = 0; pair < 4; ++pair) {
                uint64_t word;
                __builtin_memcpy(&word, step + 8 * pair, sizeof word);
                countPixelPair(*levels, 2 * (pair % 2), word);
            }
        }
    }
    if (ties)
        return std::nullopt;
    // The bits of 2^e + k u are those of 2^e plus k; sums wrap modulo 2^64 to the exact count.
    const uint64_t count =
        wrappingLaneSum(units) - static_cast<uint64_t>(blockPixels) * std::bit_cast<uint64_t>(binade);
    // Every partial sum plus the next Y stays below sum + (count + 1/2) u; keep it in the binade.
    const uint64_t mantissa = (bits & mantissaBits) | (1ull << 52); // sum / u
    if (mantissa + count + 1 >= binadeEnd)
        return std::nullopt;
    return sum + static_cast<double>(count) * ulp;
}

bool allBlack(const uint8_t *bgrx)
{
    __m512i any = _mm512_setzero_si512();
    for (int64_t i = 0; i < blockPixels; i += 16)
        any = _mm512_or_si512(any, _mm512_loadu_si512(bgrx + 4 * i));
    return _mm512_test_epi32_mask(any, _mm512_set1_epi32(0x00ffffff)) == 0;
}

} // namespace

double countViewAvx512(double sum, const uint8_t *bgrx, int64_t n, LevelCounts *counts)
{
    int64_t i = 0;
    for (; i + blockPixels <= n; i += blockPixels) {
        const uint8_t *block = bgrx + 4 * i;
        if (sum >= smallestBinadeSum) {
            const std::optional<double> added =
                counts ? addBlockInUlps<true>(sum, block, counts) : addBlockInUlps<false>(sum, block, nullptr);
            if (added) {
                sum = *added;
                continue;
            }
        } else {
            if (counts)
                countLevels(*counts, block, blockPixels, bgrxWords);
            if (allBlack(block))
                continue; // s + 0 is s
        }
        sum = addLuminanceInOrder(sum, block, blockPixels, bgrxWords);
    }
    if (counts)
        countLevels(*counts, bgrx + 4 * i, n - i, bgrxWords);
    return addLuminanceInOrder(sum, bgrx + 4 * i, n - i, bgrxWords);
}

} // namespace Vorel
