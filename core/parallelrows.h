// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Splits a per-row loop over the machine's cores. Every call of `fn` must write only its
// own rows, so the result is bit-identical to a serial run.
#pragma once

#include <cstdint>
#include <functional>

namespace Vorel {

// Calls fn(firstRow, endRow) on disjoint, contiguous row ranges covering [0, height).
void parallelRows(int64_t height, const std::function<void(int64_t, int64_t)> &fn);

} // namespace Vorel
