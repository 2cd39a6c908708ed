// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The per-pixel kernels of the SIFT scale space: one separable blur pass and the gradient
// images. Vectorised across output pixels, each lane doing exactly the scalar arithmetic.
#pragma once

#include <bit>
#include <cstdint>
#include <vector>

#include "align/sifttypes.h"

namespace Vorel {

// 1/sqrt(s) by the bit-level estimate 0x5F3759DF - bits/2 and two Newton steps:
// y1 = y0 (1.5 - (0.5 s) y0 y0), y2 = y1 (1.5 - y1 ((0.5 s) y1)).
inline float fastInverseSqrt(float s)
{
    const float half = 0.5f * s;
    const float y0 = std::bit_cast<float>(0x5F3759DF - (std::bit_cast<uint32_t>(s) >> 1));
    const float y1 = y0 * (1.5f - half * y0 * y0);
    return y1 * (1.5f - y1 * (half * y1));
}

// Correlates each of the `h` rows of `w` values with `kernel` (edges replicated) and writes
// the result transposed: `out` has `w` rows of `h` values.
void blurPassTransposed(const float *in, int64_t w, int64_t h, const std::vector<float> &kernel, float *out);

// Gradient magnitude and orientation (radians, 0..2pi) of every pixel, clamped neighbours.
void gradientImages(const SiftImage<float> &gaussian, SiftImage<float> &magnitude, SiftImage<float> &orientation);

} // namespace Vorel
