// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <functional>

#include <gtest/gtest.h>

#include "align/colormatching.h"
#include "core/displaycomposition.h"
#include "core/stereoimageprocessor.h"
#include "formats/imagereader.h"

using namespace Vorel;

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
    RgbBuffer reference;
    RgbBuffer target;
    std::function<RgbBuffer(const RgbBuffer &reference, const RgbBuffer &target)> expected;
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
         [](const RgbBuffer &, const RgbBuffer &t) { return uniform(t.w, t.h, 30, 12, 250); }},
        {"white reference turns a grey target white (0^0 = 1)", uniform(3, 3, 255, 255, 255),
         uniform(3, 3, 128, 128, 128), [](const RgbBuffer &, const RgbBuffer &t) { return uniform(t.w, t.h, 255, 255, 255); }},
        {"reference with fewer pixels leaves the target alone", uniform(2, 2, 200, 10, 10), uniform(3, 2, 5, 6, 7),
         [](const RgbBuffer &, const RgbBuffer &t) { return t; }},
        {"larger reference: only its first n pixels count", uniform(5, 5, 77, 88, 99), uniform(2, 3, 1, 2, 3),
         [](const RgbBuffer &, const RgbBuffer &t) { return uniform(t.w, t.h, 77, 88, 99); }},
    };
    for (const EdgeCase &c : cases) {
        const RgbBuffer out = matchColors(c.reference, c.target);
        const RgbBuffer want = c.expected(c.reference, c.target);
        EXPECT_EQ(out.w, c.target.w) << c.name;
        EXPECT_EQ(out.h, c.target.h) << c.name;
        EXPECT_EQ(out.data, want.data) << c.name;
    }
}

TEST(MatchColors, IdenticalRealImageIsUnchanged)
{
    const std::optional<QImage> image = loadCorrectImageOriented(VOREL_TEST_DATA "/stereo/aloeL.jpg");
    ASSERT_TRUE(image);
    const RgbBuffer buffer = *imageToRGB(*image);
    EXPECT_EQ(matchColors(buffer, buffer).data, buffer.data);
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
        QImage left(4, 4, QImage::Format_RGB32), right(4, 4, QImage::Format_RGB32);
        left.fill(qRgb(20, 40, 60));
        right.fill(qRgb(200, 150, 100));
        proc.loadPair(left, right, true);
        proc.isSwap = row.swap;
        matchColours(proc, row.flag);
        const QRgb expectedLeft = row.rightChanges ? qRgb(20, 40, 60) : qRgb(200, 150, 100);
        const QRgb expectedRight = row.rightChanges ? qRgb(20, 40, 60) : qRgb(200, 150, 100);
        EXPECT_EQ(proc.leftOriginal->pixel(1, 1), expectedLeft) << row.flag << row.swap;
        EXPECT_EQ(proc.rightOriginal->pixel(1, 1), expectedRight) << row.flag << row.swap;
    }
}

} // namespace
