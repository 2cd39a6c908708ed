// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// One byte table per colour channel, applied to 32-bit pixels: the output pass of colour
// matching.
#pragma once

#include <array>
#include <cstdint>

namespace Vorel {

using LevelTable = std::array<uint8_t, 256>;
using ChannelTables = std::array<LevelTable, 3>; // R, G, B

// out[i] = 0xff000000 | R'<<16 | G'<<8 | B' with each channel of in[i] (0xAARRGGBB) through
// its table.
void mapChannelsScalar(uint32_t *out, const uint32_t *in, int64_t n, const ChannelTables &tables);
// The same with AVX-512 byte permutes (run only where the processor has VBMI).
void mapChannelsAvx512(uint32_t *out, const uint32_t *in, int64_t n, const ChannelTables &tables);
bool mapChannelsAvx512Available();

// The same by the fastest of the above.
void mapChannels(uint32_t *out, const uint32_t *in, int64_t n, const ChannelTables &tables);

} // namespace Vorel
