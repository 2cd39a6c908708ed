// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "align/keypointmatcher.h"

#include <limits>

#include <cblas.h>

#include "core/parallelrows.h"

namespace Vorel {

namespace {

// Every descriptor has length 512, so |a - b|^2 = 2 * 512^2 - 2 a.b.
constexpr float twiceSquaredLength = 524288.0f;
constexpr float squaredRatio = 0.5625f; // 0.75^2: ratio test on squared distances

// Descriptors as a row-major matrix, one row of 128 floats per keypoint.
std::vector<float> descriptorMatrix(const std::vector<SiftKeypoint> &keypoints)
{
    std::vector<float> m(keypoints.size() * siftDescriptorLength);
    for (size_t i = 0; i < keypoints.size(); ++i)
        std::copy(keypoints[i].descriptors.begin(), keypoints[i].descriptors.end(),
                  m.begin() + static_cast<std::ptrdiff_t>(i * siftDescriptorLength));
    return m;
}

} // namespace

std::vector<MatchPair> matchKeypoints(const std::vector<SiftKeypoint> &left, const std::vector<SiftKeypoint> &right)
{
    if (left.empty() || right.empty())
        return {};
    const int64_t rows = static_cast<int64_t>(left.size()), columns = static_cast<int64_t>(right.size());
    const std::vector<float> a = descriptorMatrix(left);
    const std::vector<float> b = descriptorMatrix(right);
    // dot[i * columns + j] = left i . right j, row-major: left times right transposed. One call on
    // one thread: the sums' rounding depends on how the product is split, so splitting it over
    // the cores would make the matches depend on the machine.
    std::vector<float> dot(static_cast<size_t>(rows * columns));
    cblas_sgemm(CblasRowMajor, CblasNoTrans, CblasTrans, static_cast<int>(rows), static_cast<int>(columns),
                siftDescriptorLength, 1.0f, a.data(), siftDescriptorLength, b.data(), siftDescriptorLength, 0.0f,
                dot.data(), static_cast<int>(columns));

    std::vector<int64_t> nearest(static_cast<size_t>(rows), -1);
    parallelRows(rows, [&](int64_t first, int64_t end) {
        for (int64_t i = first; i < end; ++i) {
            const float *d = dot.data() + i * columns;
            float best = std::numeric_limits<float>::max(), second = best;
            int64_t bestIndex = -1;
            for (int64_t j = 0; j < columns; ++j) {
                const float distance = twiceSquaredLength - 2 * d[j];
                if (distance < best) {
                    second = best;
                    best = distance;
                    bestIndex = j;
                } else if (distance < second) {
                    second = distance;
                }
            }
            if (bestIndex >= 0 && best < squaredRatio * second)
                nearest[static_cast<size_t>(i)] = bestIndex;
        }
    });

    std::vector<MatchPair> matches;
    for (int64_t i = 0; i < rows; ++i)
        if (const int64_t j = nearest[static_cast<size_t>(i)]; j >= 0)
            matches.push_back({left[i].r, left[i].c, right[static_cast<size_t>(j)].r, right[static_cast<size_t>(j)].c});
    return matches;
}

} // namespace Vorel
