// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Costs of the estimator's grid searches: for every candidate, the sum over the inliers (in
// point order, double precision) of |y2' - y1'| after moving the points by that candidate.
#pragma once

#include <vector>

namespace Vorel {

// The inliers' coordinates, one array per coordinate, in point order.
struct InlierCoordinates {
    std::vector<double> x1, y1, x2, y2;
};

// Per candidate c, the left point is moved by coefficients (a[c], b[c]) and the right by
// (d[c], e[c]); cost[c] receives the sum. Candidates are evaluated several at a time, each
// with its own sequential sum, so costs equal a one-by-one evaluation.
enum class CostModel {
    rotation,       // y' = x a + y b           (a = sin, b = cos of the half angle)
    scale,          // y' = y a                 (a = 1 +- s/2; b unused)
    verticalTilt,   // y' = f y b / (f + y a)   (a = sin, b = cos of the tilt)
    horizontalTilt, // y' = f y b / (f + x a)
};

void searchCosts(CostModel model, const InlierCoordinates &points, double focal, const std::vector<double> &a,
                 const std::vector<double> &b, const std::vector<double> &d, const std::vector<double> &e,
                 std::vector<double> &cost);

} // namespace Vorel
