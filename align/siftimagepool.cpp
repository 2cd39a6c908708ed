// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "align/siftimagepool.h"

#include <utility>

namespace Vorel {

SiftImage<float> SiftImagePool::take(int64_t w, int64_t h)
{
    const size_t size = w > 0 && h > 0 ? static_cast<size_t>(w * h) : 0;
    // The smallest spare buffer that fits keeps the large ones for the large requests.
    auto best = spare_.end();
    for (auto it = spare_.begin(); it != spare_.end(); ++it)
        if (it->capacity() >= size && (best == spare_.end() || it->capacity() < best->capacity()))
            best = it;
    SiftImage<float> image;
    image.w = w;
    image.h = h;
    if (best != spare_.end()) {
        image.data = std::move(*best);
        spare_.erase(best);
    }
    image.data.resize(size); // default-initialised: no zero fill
    return image;
}

void SiftImagePool::recycle(SiftImage<float> &image)
{
    if (image.data.capacity() > 0)
        spare_.push_back(std::move(image.data));
    image = SiftImage<float>();
}

} // namespace Vorel
