// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <cmath>
#include <optional>
#include <random>

#include <gtest/gtest.h>

#include "align/channeltables.h"
#include "align/colormatching.h"
#include "align/viewcounting.h"
#include "core/displaycomposition.h"
#include "core/stereoimageprocessor.h"
#include "formats/imagereader.h"
#include "tests/core/noiseimage.h"

using namespace Vorel;
using TestReference::filledImage;

namespace {

RgbBuffer uniform(int64_t w, int64_t h, uint8_t r, uint8_t g, uint8_t b)
{
    RgbBuffer buffer(w, h);
    for (int64_t i = 0; i < w * h; ++i) {
        buffer.data[3 * i] = r;
        buffer.data[3 * i + 1] = g;
        buffer.data[3 * i + 2] = b;
    }
    return buffer;
}

std::array<std::array<int64_t, 256>, 3> countLevels(const RgbBuffer &buffer)
{
    std::array<std::array<int64_t, 256>, 3> counts{};
    for (size_t i = 0; i < buffer.data.size(); ++i)
        ++counts[i % 3][buffer.data[i]];
    return counts;
}

struct EdgeCase {
    const char *name;
    RgbBuffer reference, target;
    std::optional<std::array<uint8_t, 3>> colour; // of every output pixel; none: the target unchanged
};

RgbBuffer blackTargetOnSpread()
{
    RgbBuffer reference = uniform(4, 2, 90, 40, 250);
    reference.data[3] = 30; // lowest red level
    reference.data[10] = 12; // lowest green level
    return reference;
}

TEST(MatchColors, EdgeCases)
{
    const EdgeCase cases[] = {
        {"black target takes each channel's lowest reference level", blackTargetOnSpread(), uniform(4, 2, 0, 0, 0),
         std::array<uint8_t, 3>{30, 12, 250}},
        {"white reference turns a grey target white (0^0 = 1)", uniform(3, 3, 255, 255, 255),
         uniform(3, 3, 128, 128, 128), std::array<uint8_t, 3>{255, 255, 255}},
        {"reference with fewer pixels leaves the target alone", uniform(2, 2, 200, 10, 10), uniform(3, 2, 5, 6, 7),
         std::nullopt},
        {"larger reference: only its first n pixels count", uniform(5, 5, 77, 88, 99), uniform(2, 3, 1, 2, 3),
         std::array<uint8_t, 3>{77, 88, 99}},
    };
    for (const EdgeCase &c : cases) {
        const RgbBuffer out = matchColors(c.reference, c.target);
        const auto &[r, g, b] = c.colour.value_or(std::array<uint8_t, 3>{});
        EXPECT_EQ(out.w, c.target.w) << c.name;
        EXPECT_EQ(out.h, c.target.h) << c.name;
        EXPECT_EQ(out.data, c.colour ? uniform(c.target.w, c.target.h, r, g, b).data : c.target.data) << c.name;
    }
}

// A target holding every level once per channel, with mean exactly 127.5 on both sides (so the
// gamma table is the identity): specification then reproduces the reference histogram exactly.
TEST(MatchColors, DistinctTargetLevelsReproduceTheReferenceHistogram)
{
    RgbBuffer target(16, 16), reference(16, 16);
    for (int i = 0; i < 256; ++i) {
        target.data[3 * i] = static_cast<uint8_t>(i);
        target.data[3 * i + 1] = static_cast<uint8_t>(255 - i);
        target.data[3 * i + 2] = static_cast<uint8_t>((i * 7) % 256);
        // Pairs v, 255 - v keep every reference channel's mean at 127.5.
        const int pair = i / 2;
        const int levels[3] = {(pair * 37) % 128, (pair * 11) % 128, (pair * 5) % 128};
        for (int c = 0; c < 3; ++c)
            reference.data[3 * i + c] = static_cast<uint8_t>(i % 2 ? 255 - levels[c] : levels[c]);
    }
    const RgbBuffer out = matchColors(reference, target);
    EXPECT_EQ(countLevels(out), countLevels(reference));
    // Order is kept: the darkest target red becomes the darkest reference level.
    EXPECT_LE(out.data[0], out.data[3]);
}

TEST(MatchColors, ProcessorFlagPicksTheTargetAgainstSwap)
{
    struct Row {
        bool flag, swap, rightChanges;
    } rows[] = {{false, false, true}, {true, false, false}, {false, true, false}, {true, true, true}};
    for (const Row &row : rows) {
        StereoImageProcessor proc;
        proc.loadPair(filledImage(4, 4, qRgb(20, 40, 60)), filledImage(4, 4, qRgb(200, 150, 100)), true);
        proc.isSwap = row.swap;
        matchColours(proc, row.flag);
        // Both sides end with the reference's colour: the left's when the right was the target.
        const QRgb both = row.rightChanges ? qRgb(20, 40, 60) : qRgb(200, 150, 100);
        EXPECT_EQ(proc.leftOriginal->pixel(1, 1), both) << row.flag << row.swap;
        EXPECT_EQ(proc.rightOriginal->pixel(1, 1), both) << row.flag << row.swap;
    }
}

// Pixels for the luminance sums: noise, a gray ramp (gray levels whose luminance is an exact
// integer make ties at large sums) and noise after a black band.
std::vector<uint8_t> bgrxPixels(int64_t n, int pattern)
{
    std::mt19937 random(static_cast<unsigned>(n * 3 + pattern));
    std::vector<uint8_t> bytes(static_cast<size_t>(4 * n));
    for (int64_t i = 0; i < n; ++i) {
        const auto level = static_cast<uint8_t>(i % 256);
        for (int c = 0; c < 4; ++c)
            bytes[4 * i + c] = pattern == 1 ? level : pattern == 2 && i < n / 2 ? 0 : static_cast<uint8_t>(random());
    }
    return bytes;
}

std::vector<int64_t> totals(const LevelCounts &counts)
{
    std::vector<int64_t> all;
    for (int c = 0; c < 3; ++c)
        for (int level = 0; level < 256; ++level)
            all.push_back(counts.total(c, level));
    return all;
}

TEST(ViewCounting, Avx512KernelGivesTheSumsAndCountsOfTheScalarLoops)
{
    if (!countViewAvx512Available())
        GTEST_SKIP() << "no AVX-512F here";
    const int64_t sizes[] = {0, 1, 7, 1023, 1024, 1025, 4099, 70000};
    // Empty, below the first binade, in a binade, just below a power of two, units of 2.
    const double starts[] = {0, 255.75, 256, 1000.3, std::ldexp(1.0, 31) - 3000.5, std::ldexp(1.0, 53)};
    for (const int64_t n : sizes)
        for (int pattern = 0; pattern < 3; ++pattern) {
            const std::vector<uint8_t> pixels = bgrxPixels(n, pattern);
            LevelCounts want;
            countLevels(want, pixels.data(), n, bgrxWords);
            for (const double start : starts) {
                const double sum = addLuminanceInOrder(start, pixels.data(), n, bgrxWords);
                LevelCounts counts;
                EXPECT_EQ(countViewAvx512(start, pixels.data(), n, &counts), sum)
                    << n << " pixels, pattern " << pattern << ", from " << start;
                EXPECT_EQ(totals(counts), totals(want)) << n << " pixels, pattern " << pattern << ", from " << start;
                EXPECT_EQ(countViewAvx512(start, pixels.data(), n, nullptr), sum) << "without counts";
            }
        }
}

TEST(ChannelTables, Avx512KernelMapsLikeTheScalarLoop)
{
    if (!mapChannelsAvx512Available())
        GTEST_SKIP() << "no AVX-512 VBMI here";
    std::mt19937 random(7);
    ChannelTables tables;
    for (LevelTable &table : tables)
        for (uint8_t &entry : table)
            entry = static_cast<uint8_t>(random());
    for (const int64_t n : {0, 1, 15, 16, 17, 1000})
        for (const int64_t offset : {0, 1, 7}) { // output start against the 64-byte lines
            std::vector<uint32_t> in(static_cast<size_t>(n)), want(in.size()), got(in.size() + 32);
            for (uint32_t &pixel : in)
                pixel = static_cast<uint32_t>(random()); // any alpha: the output is opaque
            uint32_t *out = got.data() + (-reinterpret_cast<intptr_t>(got.data()) & 63) / 4 + offset;
            mapChannelsScalar(want.data(), in.data(), n, tables);
            mapChannelsAvx512(out, in.data(), n, tables);
            EXPECT_EQ(std::vector<uint32_t>(out, out + n), want) << n << " pixels at " << offset;
        }
}

// Both stages written out one after the other, over whole buffers, on one core.
RgbBuffer stepwiseMatch(const RgbBuffer &reference, RgbBuffer target)
{
    const int64_t n = target.w * target.h;
    if (reference.data.size() < static_cast<size_t>(3 * n))
        return target;
    const double xr = addLuminanceInOrder(0, reference.data.data(), n, rgbBytes) / static_cast<double>(n) / 255;
    const double xt = addLuminanceInOrder(0, target.data.data(), n, rgbBytes) / static_cast<double>(n) / 255;
    if (xt > 0.01 && xt < 0.99 && xr > 0.01)
        for (uint8_t &byte : target.data) {
            const double v = std::pow(byte / 255.0, std::log(xr) / std::log(xt)) * 255 + 0.5;
            byte = v >= 255 ? 255 : v <= 0 ? 0 : static_cast<uint8_t>(v);
        }
    RgbBuffer head(reference.w, reference.h);
    head.data.assign(reference.data.begin(), reference.data.begin() + 3 * n);
    const auto r = countLevels(head), t = countLevels(target);
    // Level v of channel c goes to the first reference level whose running count exceeds the
    // target's count of the levels below v.
    std::array<std::array<uint8_t, 256>, 3> table{};
    for (int c = 0; c < 3; ++c)
        for (int v = 0, below = 0; v < 256; below += static_cast<int>(t[c][v++])) {
            int64_t cr = 0;
            int j = 0;
            while (j < 255 && (cr += r[c][j]) <= below)
                ++j;
            table[c][v] = static_cast<uint8_t>(j);
        }
    for (size_t i = 0; i < target.data.size(); ++i)
        target.data[i] = table[i % 3][target.data[i]];
    return target;
}

RgbBuffer crop(const RgbBuffer &photo, int64_t x0, int64_t w, int64_t h)
{
    RgbBuffer out(w, h);
    for (int64_t y = 0; y < h; ++y)
        std::copy_n(photo.row(y) + 3 * x0, 3 * w, out.row(y));
    return out;
}

// Sizes from one pixel to pairs whose counting pass is split over the cores; the reference is
// sometimes larger than the target. Both overloads give the stepwise result.
TEST(MatchColors, EqualsTheStepwiseStagesAtEverySize)
{
    const RgbBuffer left = *imageToRGB(*loadCorrectImageOriented(VOREL_TEST_DATA "/stereo/aloeL.jpg"));
    const RgbBuffer right = *imageToRGB(*loadCorrectImageOriented(VOREL_TEST_DATA "/stereo/aloeR.jpg"));
    EXPECT_EQ(matchColors(left, left).data, left.data) << "a photo matched to itself is unchanged";
    struct Size {
        int64_t w, h, referenceH;
    } sizes[] = {{1, 1, 1}, {3, 2, 2}, {17, 5, 9}, {401, 301, 301}, {1201, 1000, 1000}, {1282, 1110, 1110}};
    for (const Size &size : sizes) {
        const RgbBuffer reference = crop(right, 0, size.w, size.referenceH);
        const RgbBuffer target = crop(left, left.w - size.w, size.w, size.h);
        const RgbBuffer want = stepwiseMatch(reference, target);
        EXPECT_EQ(matchColors(reference, target).data, want.data) << size.w << "x" << size.h;
        const std::optional<QImage> image = matchColors(*rgbToImage(reference), *rgbToImage(target));
        ASSERT_TRUE(image);
        EXPECT_EQ(imageToRGB(*image)->data, want.data) << "32-bit pixels, " << size.w << "x" << size.h;
    }
}

} // namespace
