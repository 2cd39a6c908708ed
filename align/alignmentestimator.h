// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Estimates, from point correspondences of a pair, the vertical offset, rotation, scale,
// two perspective tilts and horizontal placement that put corresponding points on the
// same rows. One object per alignment run holds all working state.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "align/sifttypes.h"
#include "core/displaycomposition.h"

namespace Vorel {

// Corrections, each split between the images: left by +, right by -.
struct AlignmentCorrection {
    double verticalOffset = 0;   // pixels subtracted from the right points' y
    double rotation = 0;         // degrees, +r/2 on the left, -r/2 on the right
    double scale = 0;            // left x (1 + s/2), right x (1 - s/2)
    double verticalTilt = 0;     // degrees about the horizontal axis, +t left, -t right
    double horizontalTilt = 0;   // degrees about the vertical axis, +t left, -t right
    double horizontalOffset = 0; // pixels subtracted from the right points' x
};

// Horizontal disparities x2 - x1 of the inliers and the mean |y2 - y1| (the residual).
struct DisparityStatistics {
    int64_t count = 0;
    int64_t maximum = 0; // mean of the 5 largest when there are at least 51, truncated
    int64_t minimum = 0;
    int64_t spread = 0;  // |maximum - minimum|
    double residual = 0;
};

class AlignmentEstimator {
public:
    static constexpr size_t capacity = 10000;   // correspondences beyond this are dropped
    static constexpr int fieldOfViewTenths = 272; // 27.2 degrees, the tilt model's field of view

    // `w` x `h`: full-resolution size of the pair.
    AlignmentEstimator(int64_t w, int64_t h);

    // Appends a correspondence (full-resolution pixels, origin at the centre); false when
    // the table is full.
    bool add(double x1, double y1, double x2, double y2);
    const std::vector<PointData> &points() const { return m_points; }

    // The whole estimation; none without points.
    std::optional<AlignmentCorrection> estimate();
    // Frame corners of each image moved by `correction`, in pixels: top-left, top-right,
    // bottom-right, bottom-left.
    std::pair<CornerPoints, CornerPoints> movedCorners(const AlignmentCorrection &correction) const;

    // The estimator's steps, in the order the estimation uses them.
    void disparityPrefilter();
    double meanVerticalOffset() const; // mean of y2 - y1 over inliers, 0 without any
    void shift(double offset);         // subtracted from every y2
    double rotationSearch() const;
    void rotate(double degrees);
    double scaleSearch() const;
    void rescale(double scale);
    double verticalTiltSearch() const;
    void applyVerticalTilt(double degrees);
    double horizontalTiltSearch() const;
    void applyHorizontalTilt(double degrees);
    void reflagOutliers(int innerPass);
    DisparityStatistics disparityStatistics() const;

private:
    double tiltSearch(bool vertical) const;
    void applyTilt(bool vertical, double degrees);
    void applyTotals(const AlignmentCorrection &totals);

    std::vector<PointData> m_points;
    int64_t m_w;
    int64_t m_h;
};

} // namespace Vorel
