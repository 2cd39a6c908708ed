// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "align/analysisimage.h"
#include "align/autoalign.h"
#include "core/displaycomposition.h"
#include "formats/imagereader.h"
#include "tests/core/noiseimage.h"

using namespace Vorel;
using TestReference::filledImage;

namespace {

QImage load(const char *name)
{
    return loadCorrectImageOriented(QString(VOREL_TEST_DATA "/stereo/") + name).value_or(QImage());
}

// An 800x600 piece of a real photograph: analysis at scale 1, so pixel shifts stay exact.
const QImage &photo800x600()
{
    static const QImage image = load("aloeL.jpg").copy(241, 255, 800, 600);
    return image;
}

// The image content moved by `m` (source pixel -> destination pixel).
QImage warped(const QImage &image, const PerspectiveMatrix &m)
{
    return *rgbToImage(warpPerspective(*imageToRGB(image), m));
}

PerspectiveMatrix aboutCentre(double degrees, double factor)
{
    const double a = degrees * std::numbers::pi / 180, c = std::cos(a) * factor, s = std::sin(a) * factor;
    const double cx = 400, cy = 300;
    return {c, -s, cx - c * cx + s * cy, s, c, cy - s * cx - c * cy, 0, 0, 1};
}

// Median |y2 - y1| of the inliers of a pair, in full-resolution pixels.
double medianVerticalDisparity(const QImage &left, const QImage &right)
{
    std::optional<AlignmentEstimator> e = findCorrespondences(left, right);
    if (!e)
        return INFINITY;
    e->disparityPrefilter();
    std::vector<double> dy;
    for (const PointData &p : e->points())
        if (p.nF == 0)
            dy.push_back(std::abs(p.y2 - p.y1));
    if (dy.empty())
        return INFINITY;
    std::nth_element(dy.begin(), dy.begin() + static_cast<std::ptrdiff_t>(dy.size() / 2), dy.end());
    return dy[dy.size() / 2];
}

struct KnownMotion {
    const char *name;
    PerspectiveMatrix motion;
    double firstOffset, rotation, scale; // what the estimator must find
    double tolerance;                    // on the parameter the motion is about
};

class RecoversKnownMotion : public testing::TestWithParam<KnownMotion> {};

TEST_P(RecoversKnownMotion, OfSyntheticPair)
{
    const KnownMotion &k = GetParam();
    const QImage &left = photo800x600();
    const QImage right = warped(left, k.motion);
    std::optional<AlignmentEstimator> e = findCorrespondences(left, right);
    ASSERT_TRUE(e);
    ASSERT_GT(e->points().size(), 100u);
    AlignmentEstimator first = *e;
    first.disparityPrefilter();
    const std::optional<AlignmentCorrection> c = e->estimate();
    ASSERT_TRUE(c);
    if (k.firstOffset != 0)
        EXPECT_NEAR(first.meanVerticalOffset(), k.firstOffset, k.tolerance);
    EXPECT_NEAR(c->rotation, k.rotation, k.rotation != 0 ? k.tolerance : 0.2);
    EXPECT_NEAR(c->scale, k.scale, k.scale != 0 ? k.tolerance : 0.003);
}

INSTANTIATE_TEST_SUITE_P(
    AutoAlign, RecoversKnownMotion,
    testing::Values(KnownMotion{"shift7", {1, 0, 0, 0, 1, 7, 0, 0, 1}, 7, 0, 0, 0.1},
                    KnownMotion{"shift20", {1, 0, 0, 0, 1, 20, 0, 0, 1}, 20, 0, 0, 0.1},
                    KnownMotion{"rotate2", aboutCentre(2, 1), 0, 2, 0, 0.1},
                    KnownMotion{"rotateMinus1", aboutCentre(-1, 1), 0, -1, 0, 0.1},
                    KnownMotion{"scale102", aboutCentre(0, 1.02), 0, 0, 2 * 0.02 / 2.02, 0.002}),
    [](const testing::TestParamInfo<KnownMotion> &info) { return std::string(info.param.name); });

TEST(AutoAlign, IdenticalImagesNeedNoCorrection)
{
    std::optional<AlignmentEstimator> e = findCorrespondences(photo800x600(), photo800x600());
    ASSERT_TRUE(e);
    const std::optional<AlignmentCorrection> c = e->estimate();
    ASSERT_TRUE(c);
    // The grids step by a repeatedly added 0.1 (0.001), so "zero" is a few ulps off.
    EXPECT_NEAR(c->rotation, 0, 1e-9);
    EXPECT_NEAR(c->scale, 0, 1e-9);
    EXPECT_NEAR(c->verticalOffset, 0, 1e-9);
}

// After alignment the matched features of the result lie on the same rows.
TEST(AutoAlign, RealPairsEndOnTheSameRows)
{
    struct Pair {
        const char *left, *right;
        double before, after; // median |dy| must be at least `before` first, below `after` then
    } pairs[] = {{"left01.jpg", "right01.jpg", 5, 1.0}, {"motorcycle_left.png", "motorcycle_right.png", 0, 0.5}};
    for (const Pair &p : pairs) {
        const QImage left = load(p.left), right = load(p.right);
        EXPECT_GE(medianVerticalDisparity(left, right), p.before) << p.left;
        const std::optional<QImage> aligned = autoAlign(left, right);
        ASSERT_TRUE(aligned) << p.left;
        const int half = aligned->width() / 2;
        EXPECT_GT(half, left.width() * 3 / 4) << p.left;
        EXPECT_LT(medianVerticalDisparity(aligned->copy(0, 0, half, aligned->height()),
                                          aligned->copy(half, 0, half, aligned->height())),
                  p.after)
            << p.left;
    }
}

TEST(AutoAlign, NothingToAlign)
{
    const QImage uniform = filledImage(300, 200, qRgb(90, 90, 90));
    const QImage &photo = photo800x600();
    struct Case {
        const char *name;
        QImage left, right;
    } cases[] = {{"uniform", uniform, uniform},
                 {"null", QImage(), photo},
                 {"sizes differ", photo, photo.copy(0, 0, 799, 600)},
                 {"photo against uniform", photo, uniform.scaled(800, 600)}};
    for (const Case &c : cases)
        EXPECT_FALSE(autoAlign(c.left, c.right)) << c.name;
}

TEST(AutoAlign, TableKeepsTheFirst10000Correspondences)
{
    AlignmentEstimator e(100, 100);
    for (int i = 0; i < 10000; ++i)
        ASSERT_TRUE(e.add(i, 0, i, 0));
    EXPECT_FALSE(e.add(-1, 0, -1, 0));
    EXPECT_EQ(e.points().size(), 10000u);
    EXPECT_EQ(e.points().back().x1, 9999);
}

TEST(AutoAlign, AnalysisScale)
{
    struct Row {
        int64_t w, h;
        double scale;
    } rows[] = {{400, 300, 2}, {4000, 3000, 0.2}, {741, 500, 800.0 / 741}, {300, 1600, 0.5}};
    for (const Row &row : rows)
        EXPECT_DOUBLE_EQ(analysisScale(row.w, row.h), row.scale) << row.w << "x" << row.h;
}

} // namespace
