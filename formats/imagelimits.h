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

inline bool isDecodableSize(int64_t w, int64_t h)
{
    return w > 0 && h > 0 && w <= maxDecodedSide && h <= maxDecodedSide && w * h <= maxDecodedPixels;
}

} // namespace Vorel
