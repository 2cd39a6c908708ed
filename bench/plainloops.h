// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Yardsticks for the compose benchmarks: the anaglyph formulas as plain loops over 32-bit
// pixels, compiled with -O3 -march=native in a file of their own.
#pragma once

#include <cstdint>

namespace Vorel::Bench {

// kind 0 gray, 1 colour, 2 Dubois, over `count` pixels of two pictures into `out`.
void plainAnaglyphLoop(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t count, int kind);

} // namespace Vorel::Bench
