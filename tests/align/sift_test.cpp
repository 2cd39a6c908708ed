// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <bit>
#include <cmath>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "align/analysisimage.h"
#include "align/sift.h"
#include "align/siftkernels.h"
#include "align/siftstages.h"
#include "core/displaycomposition.h"
#include "formats/imagereader.h"

using namespace Vorel;

namespace {

SiftImage<uint8_t> grayFile(const char *name)
{
    const std::optional<QImage> image = loadCorrectImageOriented(QString(VOREL_TEST_DATA "/stereo/") + name);
    if (!image)
        return {};
    return grayImage(*imageToRGB(*image));
}

TEST(Sift, OctaveCounts)
{
    struct Row {
        int64_t w, h;
        int octaves;
    } rows[] = {{800, 600, 7}, {8, 8, 1}, {7, 100, 0}, {100, 7, 0}, {15, 15, 1}, {16, 16, 2},
                {1282, 1110, 8}, {0, 0, 0}, {4000, 3000, 9}};
    for (const Row &row : rows)
        EXPECT_EQ(siftOctaveCount(row.w, row.h), row.octaves) << row.w << "x" << row.h;
}

TEST(Sift, OctaveSizesOf800x600)
{
    SiftImage<uint8_t> input(800, 600);
    std::fill(input.data.begin(), input.data.end(), 0);
    std::vector<std::array<int64_t, 4>> visited; // octave, layer, w, h
    walkScaleSpace(upsampleTwice(input), siftOctaveCount(800, 600), [&](const SiftScaleLayer &layer) {
        for (const SiftImage<float> *image : {&layer.below, &layer.above, &layer.gradients.magnitude})
            EXPECT_TRUE(image->w == layer.at.w && image->h == layer.at.h);
        visited.push_back({layer.octave, layer.layer, layer.at.w, layer.at.h});
    });
    const int64_t sizes[][2] = {{1600, 1200}, {800, 600}, {400, 300}, {200, 150}, {100, 75}, {50, 37}, {25, 18}};
    std::vector<std::array<int64_t, 4>> expected;
    for (int64_t o = 0; o < int64_t(std::size(sizes)); ++o)
        for (int64_t layer = 1; layer <= 3; ++layer)
            expected.push_back({o, layer, sizes[o][0], sizes[o][1]});
    EXPECT_EQ(visited, expected);
}

// On the last row and column missing samples fall back to the top-left one, the
// bottom-right one too: with the bottom-left one, (R=1, C=3) would be 30 instead of 25
// and (R=3, C=1) 35 instead of 32.
TEST(Sift, UpsamplingEdgeRule)
{
    SiftImage<uint8_t> in(2, 2);
    in.data = {10, 20, 30, 40};
    const std::vector<uint8_t, ScratchAllocator<uint8_t>> expected = {10, 15, 20, 20, //
                                           20, 25, 30, 25, //
                                           30, 35, 40, 40, //
                                           30, 32, 40, 40};
    const SiftImage<uint8_t> out = upsampleTwice(in);
    EXPECT_EQ(out.w, 4);
    EXPECT_EQ(out.h, 4);
    EXPECT_EQ(out.data, expected);
}

TEST(Sift, BlurKernels)
{
    const std::vector<std::vector<float>> kernels = siftBlurKernels();
    const int radii[] = {4, 4, 5, 6, 8, 10};
    const double sigmas[] = {1.2489997, 1.2262735, 1.5450076, 1.9465878, 2.4525316, 3.0900151};
    ASSERT_EQ(kernels.size(), 6u);
    for (size_t i = 0; i < kernels.size(); ++i) {
        const std::vector<float> &k = kernels[i];
        ASSERT_EQ(k.size(), static_cast<size_t>(2 * radii[i] + 1)) << i;
        double sum = 0;
        for (const float tap : k)
            sum += tap;
        EXPECT_NEAR(sum, 1.0, 1e-6) << i;
        // Ratio of neighbouring taps is exp(-0.5 (2x+1)/sigma^2): checks sigma_i itself.
        const double ratio = k[static_cast<size_t>(radii[i]) + 1] / k[static_cast<size_t>(radii[i])];
        EXPECT_NEAR(ratio, std::exp(-0.5 / (sigmas[i] * sigmas[i])), 2e-6) << i;
    }
}

// Expected values worked out separately in single precision from the stated formulas.
TEST(Sift, GradientMagnitudeAndOrientation)
{
    struct Row {
        float dr, dc;
        float magnitude, orientation;
    } rows[] = {
        {4, 3, 0x1.3fffb4p+2f, 0x1.d89e26p-1f},     {0, 2, 0x1.ffff6ep+0f, -0x1.ep-20f},
        {0, -2, 0x1.ffff6ep+0f, 0x1.921fc4p+1f},    {-4, 3, 0x1.3fffb4p+2f, 0x1.570bf2p+2f},
        {2, -6, 0x1.94c50ep+2f, 0x1.68996cp+1f},    {-1.5f, -0.5f, 0x1.94c50ep+0f, 0x1.18d4a4p+2f},
        {0, 0, 0.0f, 0x1.921fd4p+0f},               {6, 0, 0x1.7fffccp+2f, 0x1.921fd4p+0f},
    };
    for (const Row &row : rows) {
        // G(r, c) = r dr/2 + c dc/2: every pixel away from the edges has exactly (dr, dc).
        SiftImage<float> g(21, 4);
        for (int64_t r = 0; r < g.h; ++r)
            for (int64_t c = 0; c < g.w; ++c)
                g.row(r)[c] = 100 + static_cast<float>(r) * row.dr / 2 + static_cast<float>(c) * row.dc / 2;
        SiftImage<float> magnitude(g.w, g.h), orientation(g.w, g.h);
        gradientImages(g, magnitude, orientation);
        for (int64_t c = 1; c < g.w - 1; ++c) { // vector lanes and the scalar tail
            EXPECT_EQ(std::bit_cast<uint32_t>(magnitude.at(1, c)), std::bit_cast<uint32_t>(row.magnitude))
                << row.dr << "," << row.dc << " column " << c;
            EXPECT_EQ(std::bit_cast<uint32_t>(orientation.at(1, c)), std::bit_cast<uint32_t>(row.orientation))
                << row.dr << "," << row.dc << " column " << c;
        }
    }
}

TEST(Sift, ImagesWithoutKeypoints)
{
    struct Row {
        const char *name;
        int64_t w, h;
        uint8_t value;
    } rows[] = {{"uniform", 200, 150, 128}, {"black", 64, 64, 0}, {"side below 8", 7, 300, 0}, {"empty", 0, 0, 0}};
    for (const Row &row : rows) {
        SiftImage<uint8_t> image(row.w, row.h);
        std::fill(image.data.begin(), image.data.end(), row.value);
        if (row.h == 300) // texture that would give keypoints on a large enough image
            for (size_t i = 0; i < image.data.size(); ++i)
                image.data[i] = static_cast<uint8_t>((i * 7919) % 251);
        EXPECT_TRUE(computeSiftFeatures(image).empty()) << row.name;
    }
}

// Keypoint invariants that every stage must keep, on a real photograph.
TEST(Sift, KeypointInvariantsOnRealImage)
{
    const SiftImage<uint8_t> gray = grayFile("left.jpg");
    ASSERT_GT(gray.w, 0);
    const std::vector<SiftKeypoint> keypoints = computeSiftFeatures(gray);
    ASSERT_GT(keypoints.size(), 100u);
    for (size_t i = 0; i < keypoints.size(); ++i) {
        const SiftKeypoint &k = keypoints[i];
        SCOPED_TRACE(i);
        ASSERT_GE(k.layer, 1);
        ASSERT_LE(k.layer, 3);
        EXPECT_LT(std::abs(k.rlayer - static_cast<float>(k.layer)), 1.5f);
        EXPECT_GE(k.ori, 0.0f);
        EXPECT_LT(k.ori, 6.2831855f);
        EXPECT_FLOAT_EQ(k.r, std::ldexp(k.ri, static_cast<int>(k.octave) - 1));
        if (i > 0) { // detection order: octave, layer, row
            const SiftKeypoint &p = keypoints[i - 1];
            EXPECT_LE(std::tuple(p.octave, p.layer, static_cast<int64_t>(p.ri + 2)),
                      std::tuple(k.octave, k.layer, static_cast<int64_t>(k.ri + 4)));
        }
        double norm = 0;
        for (const float d : k.descriptors)
            norm += static_cast<double>(d) * d;
        if (std::isfinite(norm))
            EXPECT_NEAR(std::sqrt(norm), 512.0, 0.5);
    }
}

// Keypoints of tests/data/stereo/left01.jpg: count, a hash over every field and descriptor
// bit, and the first keypoints in full. Regenerate only after checking a change by hand.
std::string fingerprint(const std::vector<SiftKeypoint> &keypoints, size_t listed)
{
    uint64_t hash = 1469598103934665603ull;
    auto mix = [&](uint32_t v) {
        for (int i = 0; i < 4; ++i) {
            hash ^= (v >> (8 * i)) & 0xFF;
            hash *= 1099511628211ull;
        }
    };
    std::ostringstream out;
    out << "count " << keypoints.size() << "\n";
    for (size_t i = 0; i < keypoints.size(); ++i) {
        const SiftKeypoint &k = keypoints[i];
        const float fields[] = {k.rlayer, k.r, k.c, k.scale, k.ri, k.ci, k.layerScale, k.ori, k.mag};
        mix(static_cast<uint32_t>(k.octave));
        mix(static_cast<uint32_t>(k.layer));
        for (const float f : fields)
            mix(std::bit_cast<uint32_t>(f));
        for (const float d : k.descriptors)
            mix(std::bit_cast<uint32_t>(d));
        if (i < listed) {
            char line[256];
            std::snprintf(line, sizeof line, "%ld %ld %a %a %a %a %a\n", static_cast<long>(k.octave),
                          static_cast<long>(k.layer), k.r, k.c, k.scale, k.ori, k.mag);
            out << line;
        }
    }
    out << "hash " << std::hex << hash << "\n";
    return out.str();
}

TEST(Sift, StoredResultsOfRealImage)
{
    const SiftImage<uint8_t> gray = grayFile("left01.jpg");
    ASSERT_EQ(gray.w, 640);
    const std::string actual = fingerprint(computeSiftFeatures(gray), 12);
    std::ifstream file(VOREL_TEST_DATA "/align/left01_sift.txt");
    std::stringstream stored;
    stored << file.rdbuf();
    EXPECT_EQ(actual, stored.str()) << "now:\n" << actual;
    // Deterministic across runs (and thread splits).
    EXPECT_EQ(fingerprint(computeSiftFeatures(gray), 0), fingerprint(computeSiftFeatures(gray), 0));
}

} // namespace
