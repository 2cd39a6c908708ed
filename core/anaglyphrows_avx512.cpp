// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// AVX-512 anaglyph kernels, 16 pixels a step, the last step masked. Only div, mul, add and
// conversions, each lane in the order of the scalar formula and never fused: every pixel
// equals the scalar kernel's bit for bit. Compiled with -mavx512f alone. Masked stores are
// slow on some processors, so only the last step of a row uses them.
#include "core/anaglyphrows.h"

#include <utility>

#include <immintrin.h>

// GCC 12 takes the deliberately undefined pass-through registers inside the intrinsics
// (shifts, conversions) for uninitialised variables.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"

namespace Vorel::AnaglyphDetail {

namespace {

constexpr int lanes = 16;

[[gnu::always_inline]] inline __m512i channel(__m512i pixels, int shift)
{
    return _mm512_and_si512(_mm512_srli_epi32(pixels, shift), _mm512_set1_epi32(0xff));
}

// v / 255 in float, a true division as in the scalar formula.
[[gnu::always_inline]] inline __m512 unitOf(__m512i bytes)
{
    return _mm512_div_ps(_mm512_cvtepi32_ps(bytes), _mm512_set1_ps(255.0f));
}

// Truncation toward zero clamped to 0..255; the sums stay far inside the int32 range.
[[gnu::always_inline]] inline __m512i toByte(__m512 v)
{
    const __m512i i = _mm512_cvttps_epi32(v);
    return _mm512_min_epi32(_mm512_max_epi32(i, _mm512_setzero_si512()), _mm512_set1_epi32(255));
}

[[gnu::always_inline]] inline __m512i opaque(__m512i r, __m512i g, __m512i b)
{
    const __m512i rg = _mm512_or_si512(_mm512_slli_epi32(r, 16), _mm512_slli_epi32(g, 8));
    return _mm512_or_si512(_mm512_or_si512(rg, b), _mm512_set1_epi32(int(0xff000000u)));
}

[[gnu::always_inline]] inline __m512i grayOf(__m512i p)
{
    const __m512 r = _mm512_mul_ps(_mm512_set1_ps(grayWeights[0]), _mm512_cvtepi32_ps(channel(p, 16)));
    const __m512 g = _mm512_mul_ps(_mm512_set1_ps(grayWeights[1]), _mm512_cvtepi32_ps(channel(p, 8)));
    const __m512 b = _mm512_mul_ps(_mm512_set1_ps(grayWeights[2]), _mm512_cvtepi32_ps(channel(p, 0)));
    return toByte(_mm512_add_ps(_mm512_add_ps(r, g), b));
}

// Runs `Pixels::of(p, q)` over the row, 16 pixels a step.
template <typename Pixels>
inline void eachStep(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width)
{
    int64_t x = 0;
    for (; x + lanes <= width; x += lanes)
        _mm512_storeu_si512(out + x, Pixels::of(_mm512_loadu_si512(first + x), _mm512_loadu_si512(second + x)));
    if (x < width) {
        const auto m = static_cast<__mmask16>((1u << (width - x)) - 1);
        const __m512i p = _mm512_maskz_loadu_epi32(m, first + x);
        const __m512i q = _mm512_maskz_loadu_epi32(m, second + x);
        _mm512_mask_storeu_epi32(out + x, m, Pixels::of(p, q));
    }
}

struct Gray {
    [[gnu::always_inline]] static __m512i of(__m512i p, __m512i q)
    {
        const __m512i g = grayOf(q);
        return opaque(grayOf(p), g, g);
    }
};

struct Colour {
    // Bit select: red from the first picture, green and blue from the second.
    [[gnu::always_inline]] static __m512i of(__m512i p, __m512i q)
    {
        const __m512i rgb = _mm512_ternarylogic_epi32(_mm512_set1_epi32(0x00ff0000), p, q, 0xca);
        return _mm512_or_si512(rgb, _mm512_set1_epi32(int(0xff000000u)));
    }
};

// The matrix formula, each lane in the scalar kernel's order: the sum starts from -0 and skips
// the zero columns, as there (see matrixRow).
template <const AnaglyphMatrix &matrix> struct Matrix {
    template <int k, size_t... i>
    [[gnu::always_inline]] static __m512i channelOf(const __m512 (&v)[6], std::index_sequence<i...>)
    {
        __m512 sum = _mm512_set1_ps(-0.0f);
        ([&] {
            if constexpr (matrix[k][i] != 0.0f)
                sum = _mm512_add_ps(sum, _mm512_mul_ps(_mm512_set1_ps(matrix[k][i]), v[i]));
        }(), ...);
        return toByte(_mm512_add_ps(_mm512_mul_ps(sum, _mm512_set1_ps(255.0f)), _mm512_set1_ps(0.5f)));
    }

    [[gnu::always_inline]] static __m512i of(__m512i p, __m512i q)
    {
        const __m512 v[6] = {unitOf(channel(p, 16)), unitOf(channel(p, 8)), unitOf(channel(p, 0)),
                             unitOf(channel(q, 16)), unitOf(channel(q, 8)), unitOf(channel(q, 0))};
        constexpr auto columns = std::make_index_sequence<6>();
        return opaque(channelOf<0>(v, columns), channelOf<1>(v, columns), channelOf<2>(v, columns));
    }
};

} // namespace

void grayRowAvx512(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width)
{
    eachStep<Gray>(first, second, out, width);
}

void colourRowAvx512(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width)
{
    eachStep<Colour>(first, second, out, width);
}

template <const AnaglyphMatrix &matrix>
void matrixRowAvx512(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width)
{
    eachStep<Matrix<matrix>>(first, second, out, width);
}

template void matrixRowAvx512<dubois>(const uint32_t *, const uint32_t *, uint32_t *, int64_t);
template void matrixRowAvx512<duboisAmberBlue>(const uint32_t *, const uint32_t *, uint32_t *, int64_t);
template void matrixRowAvx512<duboisGreenMagenta>(const uint32_t *, const uint32_t *, uint32_t *, int64_t);
template void matrixRowAvx512<halfColour>(const uint32_t *, const uint32_t *, uint32_t *, int64_t);
template void matrixRowAvx512<optimised>(const uint32_t *, const uint32_t *, uint32_t *, int64_t);

} // namespace Vorel::AnaglyphDetail
