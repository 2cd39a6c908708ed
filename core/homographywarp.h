// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The inverse-mapping bilinear warp shared by the display composition (32-bit pixels of a
// QImage) and the alignment (tightly packed RGB or gray buffers).
#pragma once

#include <array>
#include <cstdint>

namespace Vorel {

using PerspectiveMatrix = std::array<double, 9>;

// Describes pixels in memory: `pixelStride` bytes per pixel, of which the first
// `channels` are sampled; rows `rowStride` bytes apart.
struct PixelLayout {
    int64_t w = 0;
    int64_t h = 0;
    int64_t rowStride = 0;
    int pixelStride = 0;
    int channels = 0;
};

// The per-pixel kernels of 4-byte pixels with 3 sampled channels. Every kernel computes the
// same IEEE operations in the same order, so they all give the same bits; `automatic` takes
// the widest one this processor runs. Other layouts always use the scalar kernel.
enum class WarpKernel { automatic, scalar, avx2, avx512 };

// Whether this processor (and its operating system) runs the kernel.
bool warpKernelAvailable(WarpKernel kernel);

struct WarpOptions {
    WarpKernel kernel = WarpKernel::automatic;
    // Where the inverse matrix is exactly the identity or an exact integer translation, the
    // formula samples each pixel with weight 1 at a whole source pixel: rows are copied
    // instead (same bits, no arithmetic). Off only to check that claim.
    bool rowCopy = true;
};

// Whether the warp of this matrix is a row copy (with WarpOptions::rowCopy): its inverse is
// exactly the identity or an exact integer translation.
bool warpCopiesRows(const PerspectiveMatrix &matrix);

// Warps the output rectangle [x0, x0+width) x [y0, y0+height) of a source-sized frame:
// each output pixel (x, y) samples the source at inverse x (x, y, 1). `destination` holds
// `height` rows of `width` pixels in `destinationLayout` (its w/h are ignored); pixels
// that sample nothing get the first `pixelStride` bytes of `background` (little-endian), and
// the bytes of sampled pixels past `channels` get those of `background` as well, so every
// destination byte is written, each row by the core that warps it.
// Returns false (nothing written) when the matrix cannot be inverted, or when the layouts
// have no kernel or `options.kernel` does not run here.
bool warpPerspectiveRegion(const uint8_t *source, const PixelLayout &sourceLayout, const PerspectiveMatrix &matrix,
                           int64_t x0, int64_t y0, int64_t width, int64_t height, uint8_t *destination,
                           const PixelLayout &destinationLayout, uint32_t background, const WarpOptions &options = {});

} // namespace Vorel
