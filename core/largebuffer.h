// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Memory for large pixel buffers. Blocks of 2 MiB or more are aligned to and marked for
// transparent huge pages: a fresh 24-megapixel picture otherwise costs some 23,000 page
// faults, which took as long as warping it.
#pragma once

#include <cstddef>

#include <QImage>

namespace Vorel {

// Uninitialised memory, released with std::free; nullptr when there is none.
void *allocateLargeBuffer(std::size_t bytes);

// A picture with uninitialised pixels in such memory; null when it cannot be allocated.
QImage newLargeImage(int width, int height, QImage::Format format);

} // namespace Vorel
