// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Nearest-neighbour matching of two keypoint lists by descriptor distance with a ratio test.
#pragma once

#include <vector>

#include "align/sifttypes.h"

namespace Vorel {

// For each left keypoint (in order) the nearest right keypoint, kept when its squared
// distance is below 0.5625 of the second nearest (distance ratio 0.75). Several left points
// may take the same right point; a descriptor with NaN never matches.
std::vector<MatchPair> matchKeypoints(const std::vector<SiftKeypoint> &left, const std::vector<SiftKeypoint> &right);

} // namespace Vorel
