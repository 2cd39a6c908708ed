// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/largebuffer.h"

#include <cstdint>
#include <cstdlib>
#include <limits>

#include <sys/mman.h>

namespace Vorel {

namespace {
constexpr std::size_t hugePage = std::size_t{2} << 20;
}

void *allocateLargeBuffer(std::size_t bytes)
{
    if (bytes < hugePage)
        return std::malloc(bytes);
    const std::size_t rounded = (bytes + hugePage - 1) / hugePage * hugePage;
    void *p = std::aligned_alloc(hugePage, rounded);
    if (p)
        madvise(p, rounded, MADV_HUGEPAGE); // a hint: without huge pages it still works
    return p;
}

QImage newLargeImage(int width, int height, QImage::Format format)
{
    if (width <= 0 || height <= 0)
        return QImage();
    const int64_t bitsPerPixel = QImage::toPixelFormat(format).bitsPerPixel();
    const int64_t bytesPerLine = (width * bitsPerPixel + 31) / 32 * 4; // rows 32-bit aligned, as QImage's own
    if (bitsPerPixel == 0 || bytesPerLine > std::numeric_limits<int>::max() / height)
        return QImage();
    void *pixels = allocateLargeBuffer(static_cast<std::size_t>(bytesPerLine * height));
    if (!pixels)
        return QImage();
    return QImage(static_cast<uchar *>(pixels), width, height, static_cast<qsizetype>(bytesPerLine), format, std::free,
                  pixels);
}

} // namespace Vorel
