// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Memory for large pixel buffers. Blocks of 2 MiB or more are mapped on their own and kept for
// reuse when released: a batch converting thousands of files maps and zeroes its pictures once,
// and its memory stays that of one job instead of growing in the allocator's heap.
#pragma once

#include <cstddef>

#include <QImage>

namespace Vorel {

// Uninitialised memory, released with releaseLargeBuffer; nullptr when there is none.
void *allocateLargeBuffer(std::size_t bytes);
void releaseLargeBuffer(void *buffer);

// A picture with uninitialised pixels in such memory; null when it cannot be allocated.
QImage newLargeImage(int width, int height, QImage::Format format);

} // namespace Vorel
