// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "align/autoalign.h"

#include "align/analysisimage.h"
#include "align/keypointmatcher.h"
#include "align/sift.h"
#include "core/displaycomposition.h"

namespace Vorel {

namespace {

std::vector<SiftKeypoint> analysisKeypoints(const QImage &image, int64_t width, int64_t height)
{
    return computeSiftFeatures(grayImage(resampleBilinear(image, width, height)));
}

} // namespace

std::optional<AlignmentEstimator> findCorrespondences(const QImage &left, const QImage &right)
{
    if (left.isNull() || right.isNull() || left.size() != right.size())
        return std::nullopt;
    const int64_t w = left.width(), h = left.height();
    const double scale = analysisScale(w, h);
    const int64_t analysisW = static_cast<int64_t>(static_cast<double>(w) * scale);
    const int64_t analysisH = static_cast<int64_t>(static_cast<double>(h) * scale);
    if (analysisW <= 0 || analysisH <= 0)
        return std::nullopt;

    const std::vector<MatchPair> matches = matchKeypoints(analysisKeypoints(left, analysisW, analysisH),
                                                          analysisKeypoints(right, analysisW, analysisH));
    AlignmentEstimator estimator(w, h);
    const double halfW = static_cast<double>(w) / 2, halfH = static_cast<double>(h) / 2;
    for (const MatchPair &m : matches)
        if (!estimator.add(m.c1 / scale - halfW, m.r1 / scale - halfH, m.c2 / scale - halfW, m.r2 / scale - halfH))
            break;
    return estimator;
}

std::optional<QImage> autoAlign(const QImage &left, const QImage &right)
{
    std::optional<AlignmentEstimator> estimator = findCorrespondences(left, right);
    if (!estimator)
        return std::nullopt;
    const std::optional<AlignmentCorrection> correction = estimator->estimate();
    if (!correction)
        return std::nullopt;

    const auto [leftCorners, rightCorners] = estimator->movedCorners(*correction);
    const std::optional<ImagePair> aligned = warpToCommonArea(left, right, leftCorners, rightCorners);
    if (!aligned)
        return std::nullopt;
    const QImage sideBySide = composeSideBySide(aligned->left, aligned->right).convertToFormat(QImage::Format_RGB32);
    if (sideBySide.isNull())
        return std::nullopt;
    return sideBySide;
}

} // namespace Vorel
