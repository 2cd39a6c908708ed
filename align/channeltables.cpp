// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "align/channeltables.h"

namespace Vorel {

void mapChannelsScalar(uint32_t *out, const uint32_t *in, int64_t n, const ChannelTables &tables)
{
    // Each table shifted into its channel's place, alpha opaque.
    std::array<std::array<uint32_t, 256>, 3> shifted;
    for (int i = 0; i < 256; ++i) {
        shifted[0][i] = 0xff000000u | static_cast<uint32_t>(tables[0][i]) << 16;
        shifted[1][i] = static_cast<uint32_t>(tables[1][i]) << 8;
        shifted[2][i] = tables[2][i];
    }
    for (int64_t i = 0; i < n; ++i) {
        const uint32_t p = in[i];
        out[i] = shifted[0][(p >> 16) & 0xff] | shifted[1][(p >> 8) & 0xff] | shifted[2][p & 0xff];
    }
}

bool mapChannelsAvx512Available()
{
    static const bool runs = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                             __builtin_cpu_supports("avx512vbmi");
    return runs;
}

void mapChannels(uint32_t *out, const uint32_t *in, int64_t n, const ChannelTables &tables)
{
    if (mapChannelsAvx512Available())
        mapChannelsAvx512(out, in, n, tables);
    else
        mapChannelsScalar(out, in, n, tables);
}

} // namespace Vorel
