// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Scale-invariant keypoints with 128-element descriptors of one 8-bit gray image.
// Deterministic: the same image gives the same keypoints in the same order.
#pragma once

#include <vector>

#include "align/sifttypes.h"

namespace Vorel {

// Empty when the smaller side is below 8 pixels.
std::vector<SiftKeypoint> computeSiftFeatures(const SiftImage<uint8_t> &image);

// Number of octaves for a w x h input (0: too small for any).
int siftOctaveCount(int64_t w, int64_t h);

// 2x bilinear enlargement sampling the input at (R/2, C/2); the last row and column
// replicate the top-left sample of their 2x2 cell, truncated toward zero.
SiftImage<uint8_t> upsampleTwice(const SiftImage<uint8_t> &image);

} // namespace Vorel
