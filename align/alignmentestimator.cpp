// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The estimator works on correspondences (x1, y1) left, (x2, y2) right, in full-resolution
// pixels about the image centre, and only inliers (nF = 0) enter its sums:
//
//  - Pre-filter: histograms of x2 - x1 in bins of W div 10 (20 bins, offset 10) and of
//    y2 - y1 in bins of H div 20 (40 bins, offset 20); points outside the 5-bin run with
//    the largest count (first run wins ties) of either histogram are rejected.
//  - Grid searches minimise sum |y2' - y1'| with strict improvement from 1e18:
//    rotation a in -10..10 step 0.1 degrees, points rotated by +a/2 (left) and -a/2 (right);
//    scale s in -0.1..0.1 step 0.001, left x (1 + s/2), right x (1 - s/2);
//    tilts t in -10..10 step 0.1 degrees, +t left, -t right, f = (side div 2) / tan 27.2deg:
//    y'' = f y cos t / (f + u sin t), u = y (vertical tilt) or x (horizontal tilt), and the
//    chosen tilt moves both coordinates by f cos t / (f + u sin t).
//  - Loop: up to 10 outer passes of 3 inner passes; an inner pass shifts by the mean
//    vertical offset, runs rotation, scale, vertical and horizontal tilt five times, and
//    takes a final mean offset. Totals are then applied afresh to the original points
//    (rotation, scale, horizontal tilt, vertical tilt, offset) and outliers re-flagged with
//    |y2 - y1| > 22, 12, 2 and a 201-bin horizontal histogram (bins of max(W div 100, 5),
//    5-bin run, keep the centre +-5). Stops when the mean |y2 - y1| changes by < 1e-7.
//  - Placement: the largest disparity (mean of the top 5 from 51 inliers on) less W/25
//    is subtracted from the right points' x.
#include "align/alignmentestimator.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "align/alignmentcosts.h"

namespace Vorel {

namespace {

constexpr double searchStartCost = 1e18;
constexpr double angleLimit = 10.0;  // degrees searched either way (rotation and tilts)
constexpr double angleStep = 0.1;
constexpr double scaleLimit = 0.1;   // relative scale searched either way
constexpr double scaleStep = 0.001;
constexpr double tanHalfFieldOfView = 0.5139301915110883; // tan 27.2 degrees
constexpr int outerPasses = 10;
constexpr int innerPasses = 3;
constexpr int searchRounds = 5;
constexpr double convergence = 1e-7;
constexpr int64_t runLength = 5;            // histogram runs of 5 bins
constexpr int64_t prefilterColumns = 10;    // horizontal pre-filter bin = W div 10
constexpr int64_t prefilterRows = 20;       // vertical pre-filter bin = H div 20
constexpr int64_t reflagBins = 201;         // horizontal re-flag histogram, centre bin 100
constexpr int64_t reflagBinDivisor = 100;   // bin width max(W div 100, 5)
constexpr int64_t reflagMinBinWidth = 5;
constexpr int64_t reflagHalfWindow = 5;     // bins kept either side of the run's centre
constexpr double firstTolerance = 22;       // vertical tolerance of inner pass p: 22 - 10 p
constexpr double toleranceStep = 10;
constexpr int64_t extremeCount = 5;         // disparities averaged at either end...
constexpr size_t extremeMinimum = 51;       // ...once there are this many
constexpr double placementDivisor = 25;     // largest disparity after placement: W / 25

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

// trunc(value / width) + offset, or a bin far outside any histogram when not finite.
int64_t binOf(double value, int64_t width, int64_t offset)
{
    const double q = value / static_cast<double>(width);
    if (!(std::abs(q) < 1e15))
        return std::numeric_limits<int32_t>::min();
    return static_cast<int64_t>(q) + offset;
}

// Centre of the 5-bin run with the largest total (first wins ties); `fallback` when empty.
int64_t busiestRunCentre(const std::vector<int64_t> &histogram, int64_t fallback)
{
    int64_t best = 0, centre = fallback;
    for (size_t start = 0; start + runLength <= histogram.size(); ++start) {
        int64_t total = 0;
        for (int64_t i = 0; i < runLength; ++i)
            total += histogram[start + static_cast<size_t>(i)];
        if (total > best) {
            best = total;
            centre = static_cast<int64_t>(start) + runLength / 2;
        }
    }
    return centre;
}

// Grid from `first` while <= `last`, the step added repeatedly.
std::vector<double> grid(double first, double last, double step)
{
    std::vector<double> values;
    for (double v = first; v <= last; v += step)
        values.push_back(v);
    return values;
}

double bestCandidate(const std::vector<double> &candidates, const std::vector<double> &costs)
{
    double bestCost = searchStartCost, best = 0;
    for (size_t i = 0; i < candidates.size(); ++i)
        if (costs[i] < bestCost) {
            bestCost = costs[i];
            best = candidates[i];
        }
    return best;
}

InlierCoordinates inliersOf(const std::vector<PointData> &points)
{
    InlierCoordinates c;
    for (const PointData &p : points)
        if (p.nF == 0) {
            c.x1.push_back(p.x1);
            c.y1.push_back(p.y1);
            c.x2.push_back(p.x2);
            c.y2.push_back(p.y2);
        }
    return c;
}

} // namespace

AlignmentEstimator::AlignmentEstimator(int64_t w, int64_t h) : m_w(w), m_h(h) { m_points.reserve(capacity); }

bool AlignmentEstimator::add(double x1, double y1, double x2, double y2)
{
    if (m_points.size() >= capacity)
        return false;
    m_points.push_back({0, x1, y1, x2, y2});
    return true;
}

void AlignmentEstimator::disparityPrefilter()
{
    const int64_t columnWidth = m_w / prefilterColumns, rowHeight = m_h / prefilterRows;
    std::vector<int64_t> horizontal(2 * prefilterColumns), vertical(2 * prefilterRows);
    for (PointData &p : m_points) {
        p.nF = 0;
        const int64_t bx = binOf(p.x2 - p.x1, columnWidth, prefilterColumns);
        const int64_t by = binOf(p.y2 - p.y1, rowHeight, prefilterRows);
        if (bx >= 0 && bx < 2 * prefilterColumns)
            ++horizontal[static_cast<size_t>(bx)];
        if (by >= 0 && by < 2 * prefilterRows)
            ++vertical[static_cast<size_t>(by)];
    }
    const int64_t cx = busiestRunCentre(horizontal, prefilterColumns);
    const int64_t cy = busiestRunCentre(vertical, prefilterRows);
    const int64_t half = runLength / 2;
    for (PointData &p : m_points) {
        const int64_t bx = binOf(p.x2 - p.x1, columnWidth, prefilterColumns);
        const int64_t by = binOf(p.y2 - p.y1, rowHeight, prefilterRows);
        if (bx < cx - half || bx > cx + half || by < cy - half || by > cy + half)
            p.nF = 1;
    }
}

double AlignmentEstimator::meanVerticalOffset() const
{
    double sum = 0;
    int64_t count = 0;
    for (const PointData &p : m_points)
        if (p.nF == 0) {
            sum += p.y2 - p.y1;
            ++count;
        }
    return count ? sum / static_cast<double>(count) : 0;
}

void AlignmentEstimator::shift(double offset)
{
    for (PointData &p : m_points)
        p.y2 -= offset;
}

double AlignmentEstimator::rotationSearch() const
{
    const std::vector<double> angles = grid(-angleLimit, angleLimit, angleStep);
    std::vector<double> sinL, cosL, sinR, cosR, costs;
    for (const double a : angles) {
        const double half = radians(a / 2);
        sinL.push_back(std::sin(half));
        cosL.push_back(std::cos(half));
        sinR.push_back(std::sin(-half));
        cosR.push_back(std::cos(-half));
    }
    searchCosts(CostModel::rotation, inliersOf(m_points), 0, sinL, cosL, sinR, cosR, costs);
    return bestCandidate(angles, costs);
}

void AlignmentEstimator::rotate(double degrees)
{
    auto turn = [](double &x, double &y, double phi) {
        const double c = std::cos(phi), s = std::sin(phi);
        const double nx = x * c - y * s;
        y = x * s + y * c;
        x = nx;
    };
    const double half = radians(degrees / 2);
    for (PointData &p : m_points) {
        turn(p.x1, p.y1, half);
        turn(p.x2, p.y2, -half);
    }
}

double AlignmentEstimator::scaleSearch() const
{
    const std::vector<double> scales = grid(-scaleLimit, scaleLimit, scaleStep);
    std::vector<double> left, right, unused(scales.size()), costs;
    for (const double s : scales) {
        left.push_back(1 + s / 2);
        right.push_back(1 - s / 2);
    }
    searchCosts(CostModel::scale, inliersOf(m_points), 0, left, unused, right, unused, costs);
    return bestCandidate(scales, costs);
}

void AlignmentEstimator::rescale(double scale)
{
    const double left = 1 + scale / 2, right = 1 - scale / 2;
    for (PointData &p : m_points) {
        p.x1 *= left;
        p.y1 *= left;
        p.x2 *= right;
        p.y2 *= right;
    }
}

double AlignmentEstimator::tiltSearch(bool vertical) const
{
    const double focal = static_cast<double>((vertical ? m_h : m_w) / 2) / tanHalfFieldOfView;
    const std::vector<double> angles = grid(-angleLimit, angleLimit, angleStep);
    std::vector<double> sinL, cosL, sinR, cosR, costs;
    for (const double t : angles) {
        sinL.push_back(std::sin(radians(t)));
        cosL.push_back(std::cos(radians(t)));
        sinR.push_back(std::sin(radians(-t)));
        cosR.push_back(std::cos(radians(-t)));
    }
    searchCosts(vertical ? CostModel::verticalTilt : CostModel::horizontalTilt, inliersOf(m_points), focal, sinL,
                cosL, sinR, cosR, costs);
    return bestCandidate(angles, costs);
}

void AlignmentEstimator::applyTilt(bool vertical, double degrees)
{
    const double focal = static_cast<double>((vertical ? m_h : m_w) / 2) / tanHalfFieldOfView;
    auto tilt = [&](double &x, double &y, double tau) {
        const double c = std::cos(tau), s = std::sin(tau);
        const double d = focal + (vertical ? y : x) * s;
        x = focal * x * c / d;
        y = focal * y * c / d;
    };
    const double tau = radians(degrees);
    for (PointData &p : m_points) {
        tilt(p.x1, p.y1, tau);
        tilt(p.x2, p.y2, -tau);
    }
}

double AlignmentEstimator::verticalTiltSearch() const { return tiltSearch(true); }
void AlignmentEstimator::applyVerticalTilt(double degrees) { applyTilt(true, degrees); }
double AlignmentEstimator::horizontalTiltSearch() const { return tiltSearch(false); }
void AlignmentEstimator::applyHorizontalTilt(double degrees) { applyTilt(false, degrees); }

void AlignmentEstimator::reflagOutliers(int innerPass)
{
    const double tolerance = firstTolerance - toleranceStep * innerPass;
    for (PointData &p : m_points)
        p.nF = std::abs(p.y2 - p.y1) > tolerance ? 1 : 0;
    const int64_t binWidth = std::max(m_w / reflagBinDivisor, reflagMinBinWidth);
    const int64_t centreBin = reflagBins / 2;
    std::vector<int64_t> histogram(reflagBins);
    for (const PointData &p : m_points)
        if (p.nF == 0)
            if (const int64_t b = binOf(p.x2 - p.x1, binWidth, centreBin); b >= 0 && b < reflagBins)
                ++histogram[static_cast<size_t>(b)];
    const int64_t centre = busiestRunCentre(histogram, centreBin);
    for (PointData &p : m_points) {
        const int64_t b = binOf(p.x2 - p.x1, binWidth, centreBin);
        if (b < centre - reflagHalfWindow || b > centre + reflagHalfWindow)
            p.nF = 1;
    }
}

DisparityStatistics AlignmentEstimator::disparityStatistics() const
{
    std::vector<double> disparities;
    double residual = 0;
    for (const PointData &p : m_points)
        if (p.nF == 0) {
            disparities.push_back(p.x2 - p.x1);
            residual += std::abs(p.y2 - p.y1);
        }
    DisparityStatistics stats;
    stats.count = static_cast<int64_t>(disparities.size());
    if (disparities.empty())
        return stats;
    std::sort(disparities.begin(), disparities.end());
    double maximum = disparities.back(), minimum = disparities.front();
    if (disparities.size() >= extremeMinimum) {
        maximum = minimum = 0;
        for (int64_t i = 0; i < extremeCount; ++i) { // both in ascending order
            maximum += disparities[disparities.size() - static_cast<size_t>(extremeCount - i)];
            minimum += disparities[static_cast<size_t>(i)];
        }
        maximum /= extremeCount;
        minimum /= extremeCount;
    }
    stats.maximum = static_cast<int64_t>(maximum);
    stats.minimum = static_cast<int64_t>(minimum);
    stats.spread = std::abs(stats.maximum - stats.minimum);
    stats.residual = residual / static_cast<double>(stats.count);
    return stats;
}

void AlignmentEstimator::applyTotals(const AlignmentCorrection &totals)
{
    rotate(totals.rotation);
    rescale(totals.scale);
    applyHorizontalTilt(totals.horizontalTilt);
    applyVerticalTilt(totals.verticalTilt);
    shift(totals.verticalOffset);
}

std::optional<AlignmentCorrection> AlignmentEstimator::estimate()
{
    if (m_points.empty())
        return std::nullopt;
    const std::vector<PointData> original = m_points;
    disparityPrefilter();
    AlignmentCorrection totals;
    double previousResidual = 0;
    for (int outer = 0; outer < outerPasses; ++outer) {
        DisparityStatistics stats;
        for (int pass = 0; pass < innerPasses; ++pass) {
            // The pass's own results are summed first and join the running totals together.
            AlignmentCorrection passResult;
            passResult.verticalOffset = meanVerticalOffset();
            shift(passResult.verticalOffset);
            for (int round = 0; round < searchRounds; ++round) {
                const double a = rotationSearch();
                rotate(a);
                passResult.rotation += a;
                const double s = scaleSearch();
                rescale(s);
                passResult.scale += s;
                const double tv = verticalTiltSearch();
                applyVerticalTilt(tv);
                passResult.verticalTilt += tv;
                const double th = horizontalTiltSearch();
                applyHorizontalTilt(th);
                passResult.horizontalTilt += th;
            }
            passResult.verticalOffset += meanVerticalOffset();
            totals.verticalOffset += passResult.verticalOffset;
            totals.rotation += passResult.rotation;
            totals.scale += passResult.scale;
            totals.verticalTilt += passResult.verticalTilt;
            totals.horizontalTilt += passResult.horizontalTilt;

            m_points = original;
            applyTotals(totals);
            reflagOutliers(pass);
            stats = disparityStatistics();
        }
        stats = disparityStatistics();
        const bool converged = previousResidual != 0 && std::abs(stats.residual - previousResidual) < convergence;
        previousResidual = stats.residual;
        if (converged)
            break;
    }
    totals.verticalOffset += meanVerticalOffset();
    const DisparityStatistics stats = disparityStatistics();
    totals.horizontalOffset = static_cast<double>(stats.maximum) - static_cast<double>(m_w) / placementDivisor;
    return totals;
}

std::pair<CornerPoints, CornerPoints> AlignmentEstimator::movedCorners(const AlignmentCorrection &correction) const
{
    const double halfW = static_cast<double>(m_w) / 2, halfH = static_cast<double>(m_h) / 2;
    AlignmentEstimator corners(m_w, m_h);
    for (const auto &[x, y] : {std::pair{-halfW, -halfH}, {halfW, -halfH}, {halfW, halfH}, {-halfW, halfH}})
        corners.add(x, y, x, y);
    corners.applyTotals(correction);
    std::pair<CornerPoints, CornerPoints> moved;
    for (size_t i = 0; i < 4; ++i) {
        const PointData &p = corners.m_points[i];
        moved.first[i] = {static_cast<float>(p.x1 + halfW), static_cast<float>(p.y1 + halfH)};
        moved.second[i] = {static_cast<float>(p.x2 - correction.horizontalOffset + halfW),
                           static_cast<float>(p.y2 + halfH)};
    }
    return moved;
}

} // namespace Vorel
