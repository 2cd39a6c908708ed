// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "align/keypointmatcher.h"

using namespace Vorel;

namespace {

// A keypoint at (row, 0) whose descriptor has length 512 at angle theta in the plane of
// elements 0 and 1: squared distances between two of them are 2 * 512^2 * (1 - cos dtheta).
SiftKeypoint at(float row, double theta)
{
    SiftKeypoint k;
    k.r = row;
    k.descriptors[0] = static_cast<float>(512 * std::cos(theta));
    k.descriptors[1] = static_cast<float>(512 * std::sin(theta));
    return k;
}

SiftKeypoint withNaN(float row)
{
    SiftKeypoint k = at(row, 0);
    k.descriptors.fill(std::numeric_limits<float>::quiet_NaN());
    return k;
}

// Angle whose squared distance to angle 0 is `share` of the distance at 90 degrees.
double angleFor(double share) { return std::acos(1 - share); }

TEST(MatchKeypoints, RatioTestAndOrder)
{
    struct Case {
        const char *name;
        std::vector<SiftKeypoint> left, right;
        std::vector<std::pair<float, float>> expected; // (left row, right row) in order
    } cases[] = {
        {"identical lists match themselves", {at(1, 0), at(2, 1.5)}, {at(1, 0), at(2, 1.5)}, {{1, 1}, {2, 2}}},
        {"second best too close (ratio 0.6)", {at(1, 0)}, {at(10, angleFor(0.3)), at(11, -angleFor(0.5))}, {}},
        {"ratio just under 0.75 on distances", {at(1, 0)}, {at(10, angleFor(0.5 * 0.55)), at(11, -angleFor(0.5))},
         {{1, 10}}},
        {"best found after the second", {at(1, 0)}, {at(10, 1.5), at(11, 0.01)}, {{1, 11}}},
        {"two left points may take one right point", {at(1, 0), at(2, 0.02)}, {at(10, 0), at(11, 1.5)},
         {{1, 10}, {2, 10}}},
        {"a NaN descriptor never matches", {withNaN(1), at(2, 0)}, {at(10, 0), at(11, 1.5)}, {{2, 10}}},
        {"NaN on the right is skipped", {at(1, 0)}, {withNaN(10), at(11, 0), at(12, 1.5)}, {{1, 11}}},
        {"a single right keypoint has no second", {at(1, 0)}, {at(10, 0)}, {{1, 10}}},
        {"empty right list", {at(1, 0)}, {}, {}},
    };
    for (const Case &c : cases) {
        const std::vector<MatchPair> matches = matchKeypoints(c.left, c.right);
        ASSERT_EQ(matches.size(), c.expected.size()) << c.name;
        for (size_t i = 0; i < matches.size(); ++i) {
            EXPECT_EQ(matches[i].r1, c.expected[i].first) << c.name;
            EXPECT_EQ(matches[i].r2, c.expected[i].second) << c.name;
        }
    }
}

} // namespace
