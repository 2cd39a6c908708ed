// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Row kernels of the anaglyphs over 32-bit pixels (0xffRRGGBB): the scalar formulas and an
// AVX-512 twin that gives the same bits, chosen at run time.
#pragma once

#include <cstdint>

namespace Vorel::AnaglyphDetail {

// Rows give the output (R, G, B), columns act on the 0..1 values (Lr, Lg, Lb) of the first
// picture, then (Rr, Rg, Rb) of the second. For every row, the six entries sum to 1 (within
// the rounding of the published digits): white in both views stays white.
using AnaglyphMatrix = float[3][6];

// Dubois red-cyan.
inline constexpr AnaglyphMatrix dubois = {{0.4561f, 0.500484f, 0.176381f, -0.0434706f, -0.0879388f, -0.00155529f},
                                          {-0.0400822f, -0.0378246f, -0.0157589f, 0.378476f, 0.73364f, -0.0184503f},
                                          {-0.0152161f, -0.0205971f, -0.00546856f, -0.0721527f, -0.112961f, 1.2264f}};
// Eric Dubois's published least-squares matrices for amber-blue and green-magenta glasses, to
// the three decimals he gives.
inline constexpr AnaglyphMatrix duboisAmberBlue = {{1.062f, -0.205f, 0.299f, -0.016f, -0.123f, -0.017f},
                                                   {-0.026f, 0.908f, 0.068f, 0.006f, 0.062f, -0.017f},
                                                   {-0.038f, -0.173f, 0.022f, 0.094f, 0.185f, 0.911f}};
inline constexpr AnaglyphMatrix duboisGreenMagenta = {{-0.062f, -0.158f, -0.039f, 0.529f, 0.705f, 0.024f},
                                                      {0.284f, 0.668f, 0.143f, -0.016f, -0.015f, -0.065f},
                                                      {-0.015f, -0.027f, 0.021f, 0.009f, 0.075f, 0.937f}};
// The half-colour and optimised red-cyan anaglyphs of the usual comparison of anaglyph methods:
// red from the first picture's gray (half colour) or from its green and blue only (optimised,
// which spares the eyes the rivalry of saturated reds); green and blue from the second picture.
inline constexpr AnaglyphMatrix halfColour = {{0.299f, 0.587f, 0.114f, 0, 0, 0}, {0, 0, 0, 0, 1, 0}, {0, 0, 0, 0, 0, 1}};
inline constexpr AnaglyphMatrix optimised = {{0, 0.7f, 0.3f, 0, 0, 0}, {0, 0, 0, 0, 1, 0}, {0, 0, 0, 0, 0, 1}};

// Gray weights of (R, G, B), applied to the 0..255 values.
inline constexpr float grayWeights[3] = {0.299f, 0.587f, 0.114f};

// Writes `width` output pixels from the matching pixels of `first` and `second`.
using AnaglyphRow = void (*)(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);

void grayRow(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);
void colourRow(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);
// Each value divided by 255, the products summed in float in column order, then x 255 + 0.5,
// truncated and clamped to 0..255.
template <const AnaglyphMatrix &matrix>
void matrixRow(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);

void grayRowAvx512(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);
void colourRowAvx512(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);
template <const AnaglyphMatrix &matrix>
void matrixRowAvx512(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width);

// The kernel for an AnaglyphKind (anything unknown: gray), the AVX-512 one where the
// processor has it and `allowVector` is true.
AnaglyphRow anaglyphRow(int kind, bool allowVector = true);

} // namespace Vorel::AnaglyphDetail
