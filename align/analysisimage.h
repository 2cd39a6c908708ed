// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The reduced gray copies of a pair that the keypoint search works on.
#pragma once

#include "align/sifttypes.h"
#include <QImage>

#include "core/rgbbuffer.h"

namespace Vorel {

// Longer side of the analysis images; smaller pairs are enlarged to it.
inline constexpr double analysisSide = 800;

// Factor min(800/W, 800/H) from full-resolution to analysis pixels.
double analysisScale(int64_t w, int64_t h);

// Bilinear resampling of the image drawn over black to `width` x `height`: output (x, y)
// samples (x W/width, y H/height), no half-pixel shift, neighbours clamped to the last row
// and column. Empty for a null image or size.
RgbBuffer resampleBilinear(const QImage &image, int64_t width, int64_t height);

// g = 0.299 R + 0.587 G + 0.114 B + 0.5, truncated and clamped.
SiftImage<uint8_t> grayImage(const RgbBuffer &image);

} // namespace Vorel
