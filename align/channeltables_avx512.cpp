// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// AVX-512 channel tables: 16 pixels a step. Every byte of the step is looked up in all three
// tables (each 256 bytes held in four registers, two-register permutes on the low seven
// index bits, the top bit choosing the pair), and each byte position keeps its own
// channel's result. Compiled with -mavx512f -mavx512bw -mavx512vbmi; chosen at run time.
#include "align/channeltables.h"

#include <algorithm>
#include <cstdint>

#include <immintrin.h>

namespace Vorel {

namespace {

struct TableRegisters {
    __m512i quarter[4];
};

TableRegisters load(const LevelTable &table)
{
    TableRegisters r;
    for (int q = 0; q < 4; ++q)
        r.quarter[q] = _mm512_loadu_si512(table.data() + 64 * q);
    return r;
}

inline __m512i lookUp(const TableRegisters &t, __m512i bytes, __mmask64 upperHalf)
{
    const __m512i lower = _mm512_permutex2var_epi8(t.quarter[0], bytes, t.quarter[1]);
    const __m512i upper = _mm512_permutex2var_epi8(t.quarter[2], bytes, t.quarter[3]);
    return _mm512_mask_blend_epi8(upperHalf, lower, upper);
}

} // namespace

void mapChannelsAvx512(uint32_t *out, const uint32_t *in, int64_t n, const ChannelTables &tables)
{
    const TableRegisters red = load(tables[0]), green = load(tables[1]), blue = load(tables[2]);
    constexpr __mmask64 greenBytes = 0x2222222222222222ull; // byte 1 of every pixel
    constexpr __mmask64 redBytes = 0x4444444444444444ull;   // byte 2
    const __m512i opaque = _mm512_set1_epi32(static_cast<int>(0xff000000u));
    // Streaming stores (the output is far larger than the caches and is not read back here)
    // skip reading the destination lines first; they need 64-byte aligned addresses.
    int64_t i = std::min<int64_t>(n, (-reinterpret_cast<intptr_t>(out) & 63) / 4);
    mapChannelsScalar(out, in, i, tables);
    for (; i + 16 <= n; i += 16) {
        const __m512i pixels = _mm512_loadu_si512(in + i);
        const __mmask64 upperHalf = _mm512_movepi8_mask(pixels);
        __m512i mapped = lookUp(blue, pixels, upperHalf);
        mapped = _mm512_mask_blend_epi8(greenBytes, mapped, lookUp(green, pixels, upperHalf));
        mapped = _mm512_mask_blend_epi8(redBytes, mapped, lookUp(red, pixels, upperHalf));
        _mm512_stream_si512(reinterpret_cast<__m512i *>(out + i), _mm512_or_si512(mapped, opaque));
    }
    _mm_sfence();
    mapChannelsScalar(out + i, in + i, n - i, tables);
}

} // namespace Vorel
