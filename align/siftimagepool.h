// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Float images of one scale-space walk. An image handed back is handed out again for the
// next request that fits in it, so a walk touches fresh memory only for its first, largest
// octave: page faults on fresh memory cost more than the blur arithmetic.
#pragma once

#include <vector>

#include "align/sifttypes.h"

namespace Vorel {

class SiftImagePool {
public:
    // A w x h image with uninitialised elements.
    SiftImage<float> take(int64_t w, int64_t h);
    // Keeps the image's memory for later requests; leaves `image` empty.
    void recycle(SiftImage<float> &image);

private:
    std::vector<std::vector<float, ScratchAllocator<float>>> spare_;
};

} // namespace Vorel
