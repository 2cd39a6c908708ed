// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Upper bounds checked against a file's declared size before any pixels are allocated, so
// a corrupt or hostile header cannot make the reader allocate without bound.
#pragma once

#include <cstdint>

namespace Vorel {

// Largest picture we decode: 400 megapixels (1.6 GB as 32-bit pixels), far above any camera.
inline constexpr int64_t maxDecodedPixels = int64_t(400) * 1000 * 1000;
// QImage addresses rows with int: keep both sides well inside it.
inline constexpr int64_t maxDecodedSide = 65535;

// A progressive JPEG costs the decoder a pass over every block per scan: at most 500 scans
// (TurboJPEG's own limit), and no more work than 16 passes over the largest picture; a
// camera's progressive file has about ten scans.
inline constexpr int maxJpegScans = 500;
inline constexpr int64_t maxJpegScanPixels = 16 * maxDecodedPixels;

// A HEIF grid decodes each of its tiles on its own: a camera's 48-megapixel grid has about
// 200 tiles, a file of 10,000 tiny ones costs seconds.
inline constexpr int maxHeifGridTiles = 4096;

inline bool isDecodableSize(int64_t w, int64_t h)
{
    return w > 0 && h > 0 && w <= maxDecodedSide && h <= maxDecodedSide && w * h <= maxDecodedPixels;
}

} // namespace Vorel
