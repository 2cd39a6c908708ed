// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/anaglyphrows.h"

#include <utility>

#include "core/stereotypes.h"

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

// Every product of the matrix formula depends on one byte only, so it is tabulated once per
// matrix: of[out][column][byte] = coefficient * (byte / 255).
template <const AnaglyphMatrix &matrix> struct Products {
    float of[3][6][256];
    Products()
    {
        for (int v = 0; v < 256; ++v)
            for (int k = 0; k < 3; ++k)
                for (int i = 0; i < 6; ++i)
                    of[k][i][v] = matrix[k][i] * (static_cast<float>(v) / 255.0f);
    }
};

// The sum of one output channel in column order. It starts from -0, which leaves the first
// term exactly as it is, and skips the zero columns: adding a zero product can only change the
// sign of a zero sum, which x 255 + 0.5 turns into the same 0.5. So it gives the bits of the
// full six-term formula.
template <const AnaglyphMatrix &matrix, int k, size_t... i>
inline uint32_t channelOf(const float (&products)[6][256], const uint32_t (&bytes)[6], std::index_sequence<i...>)
{
    float sum = -0.0f;
    ([&] {
        if constexpr (matrix[k][i] != 0.0f)
            sum += products[i][bytes[i]];
    }(), ...);
    return toByte(sum * 255.0f + 0.5f);
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

template <const AnaglyphMatrix &matrix>
void matrixRow(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width)
{
    static const Products<matrix> table;
    constexpr auto columns = std::make_index_sequence<6>();
    for (int64_t x = 0; x < width; ++x) {
        const uint32_t p = first[x], q = second[x];
        const uint32_t bytes[6] = {red(p), green(p), blue(p), red(q), green(q), blue(q)};
        out[x] = opaque(channelOf<matrix, 0>(table.of[0], bytes, columns),
                        channelOf<matrix, 1>(table.of[1], bytes, columns),
                        channelOf<matrix, 2>(table.of[2], bytes, columns));
    }
}

AnaglyphRow anaglyphRow(int kind, bool allowVector)
{
    static const bool hasAvx512 = __builtin_cpu_supports("avx512f");
    const bool vector = allowVector && hasAvx512;
    switch (kind) {
    case AnaglyphKind::colour:
        return vector ? colourRowAvx512 : colourRow;
    case AnaglyphKind::duboisRedCyan:
        return vector ? matrixRowAvx512<dubois> : matrixRow<dubois>;
    case AnaglyphKind::duboisAmberBlue:
        return vector ? matrixRowAvx512<duboisAmberBlue> : matrixRow<duboisAmberBlue>;
    case AnaglyphKind::duboisGreenMagenta:
        return vector ? matrixRowAvx512<duboisGreenMagenta> : matrixRow<duboisGreenMagenta>;
    case AnaglyphKind::halfColour:
        return vector ? matrixRowAvx512<halfColour> : matrixRow<halfColour>;
    case AnaglyphKind::optimised:
        return vector ? matrixRowAvx512<optimised> : matrixRow<optimised>;
    default:
        return vector ? grayRowAvx512 : grayRow;
    }
}

} // namespace Vorel::AnaglyphDetail
