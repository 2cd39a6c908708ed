// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Row kernels of the three anaglyphs over 32-bit pixels (0xffRRGGBB): the scalar formulas and
// an AVX-512 twin that gives the same bits, chosen at run time.
#pragma once

#include <cstdint>

namespace Vorel::AnaglyphDetail {

// Dubois red-cyan; rows give the output (R, G, B), columns act on the 0..1 values
// (Lr, Lg, Lb) of the first picture, then (Rr, Rg, Rb) of the second. Each row sums to 1.
inline constexpr float dubois[3][6] = {{0.4561f, 0.500484f, 0.176381f, -0.0434706f, -0.0879388f, -0.00155529f},
                                       {-0.0400822f, -0.0378246f, -0.0157589f, 0.378476f, 0.73364f, -0.0184503f},
                                       {-0.0152161f, -0.0205971f, -0.00546856f, -0.0721527f, -0.112961f, 1.2264f}};
// Gray weights of (R, G, B), applied to the 0..255 values.
inline constexpr float grayWeights[3] = {0.299f, 0.587f, 0.114f};

// Writes `width` output pixels from the matching pixels of `first` and `second`.
using AnaglyphRow = void (*)(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);

void grayRow(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);
void colourRow(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);
void duboisRow(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);

void grayRowAvx512(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);
void colourRowAvx512(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);
void duboisRowAvx512(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);

// The kernel for `kind` (0 gray, 1 colour, 2 Dubois, anything else gray), the AVX-512 one
// where the processor has it and `allowVector` is true.
AnaglyphRow anaglyphRow(int kind, bool allowVector = true);

} // namespace Vorel::AnaglyphDetail
