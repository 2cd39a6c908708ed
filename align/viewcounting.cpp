// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "align/luminancesum.h"

namespace Vorel {

double addLuminanceInOrder(double sum, const uint8_t *pixels, int64_t n, ChannelLayout layout)
{
    for (int64_t i = 0; i < n; ++i, pixels += layout.pixelStride)
        sum += 0.299 * pixels[layout.red] + 0.587 * pixels[layout.green] + 0.114 * pixels[layout.blue];
    return sum;
}

bool luminanceAvx512Available()
{
    static const bool runs = __builtin_cpu_supports("avx512f");
    return runs;
}

double addLuminance(double sum, const uint8_t *pixels, int64_t n, ChannelLayout layout)
{
    if (layout == bgrxWords && luminanceAvx512Available())
        return addLuminanceAvx512(sum, pixels, n);
    return addLuminanceInOrder(sum, pixels, n, layout);
}

} // namespace Vorel
