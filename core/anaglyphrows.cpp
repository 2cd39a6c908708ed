// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/anaglyphrows.h"

namespace Vorel::AnaglyphDetail {

namespace {

inline uint32_t red(uint32_t p) { return p >> 16 & 0xff; }
inline uint32_t green(uint32_t p) { return p >> 8 & 0xff; }
inline uint32_t blue(uint32_t p) { return p & 0xff; }
inline uint32_t opaque(uint32_t r, uint32_t g, uint32_t b) { return 0xff000000u | r << 16 | g << 8 | b; }

// Truncates toward zero and clamps to 0..255.
inline uint32_t toByte(float v)
{
    if (v <= 0)
        return 0;
    return v >= 255 ? 255 : static_cast<uint32_t>(v);
}

// Gray weights on the 0..255 values, truncated without rounding.
inline uint32_t grayOf(uint32_t p)
{
    return toByte(grayWeights[0] * static_cast<float>(red(p)) + grayWeights[1] * static_cast<float>(green(p)) +
                  grayWeights[2] * static_cast<float>(blue(p)));
}

} // namespace

void grayRow(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width)
{
    for (int64_t x = 0; x < width; ++x) {
        const uint32_t g = grayOf(second[x]);
        out[x] = opaque(grayOf(first[x]), g, g);
    }
}

void colourRow(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width)
{
    for (int64_t x = 0; x < width; ++x)
        out[x] = opaque(red(first[x]), green(second[x]), blue(second[x]));
}

// Each value divided by 255, the sums formed in float in column order, then x 255 + 0.5.
// Every product depends on one byte only, so it is tabulated once:
// table[out][input][byte] = coefficient * (byte / 255); summing the entries in column order
// gives exactly the bits of the direct formula.
void duboisRow(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width)
{
    struct Products {
        float of[3][6][256];
        Products()
        {
            for (int v = 0; v < 256; ++v)
                for (int k = 0; k < 3; ++k)
                    for (int i = 0; i < 6; ++i)
                        of[k][i][v] = dubois[k][i] * (static_cast<float>(v) / 255.0f);
        }
    };
    static const Products table;
    const auto channel = [](const float (&t)[6][256], uint32_t p, uint32_t q) {
        const float sum = t[0][red(p)] + t[1][green(p)] + t[2][blue(p)] + t[3][red(q)] + t[4][green(q)] + t[5][blue(q)];
        return toByte(sum * 255.0f + 0.5f);
    };
    for (int64_t x = 0; x < width; ++x) {
        const uint32_t p = first[x], q = second[x];
        out[x] = opaque(channel(table.of[0], p, q), channel(table.of[1], p, q), channel(table.of[2], p, q));
    }
}

AnaglyphRow anaglyphRow(int kind, bool allowVector)
{
    static const bool hasAvx512 = __builtin_cpu_supports("avx512f");
    const bool vector = allowVector && hasAvx512;
    if (kind == 1)
        return vector ? colourRowAvx512 : colourRow;
    if (kind == 2)
        return vector ? duboisRowAvx512 : duboisRow;
    return vector ? grayRowAvx512 : grayRow;
}

} // namespace Vorel::AnaglyphDetail
