// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The per-pixel kernels of the SIFT scale space: the separable blur passes, the gradient
// images and the extremum candidates. Vectorised across output pixels, each lane doing exactly the scalar arithmetic.
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

// The two passes of a separable blur of a w x h image with `kernel`, edges replicated:
// out[r][c] = sum over p of in[r][c + p - radius] * kernel[p] (rows) or
// in[r + p - radius][c] * kernel[p] (columns), p ascending from 0. A blur is the row pass
// followed by the column pass; the column pass gives the same bits as correlating the rows
// of the transposed image and transposing back, without moving the pixels twice.
void blurRows(const float *in, int64_t w, int64_t h, const std::vector<float> &kernel, float *out);
void blurColumns(const float *in, int64_t w, int64_t h, const std::vector<float> &kernel, float *out);

// Gradient magnitude and orientation (radians, 0..2pi) of every pixel, clamped neighbours.
// Both outputs have the size of `gaussian`.
void gradientImages(const SiftImage<float> &gaussian, SiftImage<float> &magnitude, SiftImage<float> &orientation);

// marks[i] = 1 when row[i] passes the cheap tests an extremum needs, 0 otherwise: |row[i]| at
// least `threshold` and strictly beyond its 8 neighbours in rows `previous` and `next` of the
// same layer (strictly above all of them when positive, below when negative). Reads one
// column on either side of 0..count-1.
void markExtremumCandidates(const float *previous, const float *row, const float *next, int64_t count,
                            float threshold, uint8_t *marks);

} // namespace Vorel
