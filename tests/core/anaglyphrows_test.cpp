// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Each anaglyph kernel, scalar and vector, and the composed picture against the formulas
// written out here, bit for bit; the matrices against their white balance and hand-checked
// pixels.
#include <algorithm>

#include <gtest/gtest.h>

#include "core/anaglyphrows.h"
#include "core/displaycomposition.h"
#include "core/stereotypes.h"
#include "tests/core/noiseimage.h"

using namespace Vorel;
using namespace Vorel::AnaglyphDetail;
using TestReference::noiseImage;

namespace {

const std::pair<int, const AnaglyphMatrix *> matrices[] = {
    {AnaglyphKind::duboisRedCyan, &dubois},
    {AnaglyphKind::duboisAmberBlue, &duboisAmberBlue},
    {AnaglyphKind::duboisGreenMagenta, &duboisGreenMagenta},
    {AnaglyphKind::halfColour, &halfColour},
    {AnaglyphKind::optimised, &optimised},
};

uint32_t byteOf(float v) { return uint32_t(std::clamp(int(v), 0, 255)); }

// The formulas in full: all six products of a matrix, zero ones included.
uint32_t reference(uint32_t p, uint32_t q, int kind)
{
    const float l[3] = {float(p >> 16 & 255), float(p >> 8 & 255), float(p & 255)};
    const float r[3] = {float(q >> 16 & 255), float(q >> 8 & 255), float(q & 255)};
    uint32_t c[3];
    const AnaglyphMatrix *m = nullptr;
    for (const auto &[k, matrix] : matrices)
        m = k == kind ? matrix : m;
    if (m) {
        const float v[6] = {l[0] / 255.0f, l[1] / 255.0f, l[2] / 255.0f, r[0] / 255.0f, r[1] / 255.0f, r[2] / 255.0f};
        for (int k = 0; k < 3; ++k) {
            float sum = (*m)[k][0] * v[0];
            for (int i = 1; i < 6; ++i)
                sum += (*m)[k][i] * v[i];
            c[k] = byteOf(sum * 255.0f + 0.5f);
        }
    } else if (kind == AnaglyphKind::colour) {
        c[0] = uint32_t(l[0]), c[1] = uint32_t(r[1]), c[2] = uint32_t(r[2]);
    } else {
        c[0] = byteOf(0.299f * l[0] + 0.587f * l[1] + 0.114f * l[2]);
        c[1] = c[2] = byteOf(0.299f * r[0] + 0.587f * r[1] + 0.114f * r[2]);
    }
    return 0xff000000u | c[0] << 16 | c[1] << 8 | c[2];
}

struct Case {
    int w, h, kind;
};

class AnaglyphKernels : public testing::TestWithParam<Case> {};

TEST_P(AnaglyphKernels, MatchFormula)
{
    const Case c = GetParam();
    const QImage a = noiseImage(c.w, c.h, 1), b = noiseImage(c.w, c.h, 2);
    const std::optional<QImage> composed = composeAnaglyph(a, b, c.kind);
    ASSERT_TRUE(composed);
    ASSERT_EQ(composed->size(), a.size());
    std::vector<uint32_t> rows[2] = {std::vector<uint32_t>(size_t(c.w)), std::vector<uint32_t>(size_t(c.w))};
    for (int y = 0; y < c.h; ++y) {
        const auto *p = reinterpret_cast<const uint32_t *>(a.constScanLine(y));
        const auto *q = reinterpret_cast<const uint32_t *>(b.constScanLine(y));
        anaglyphRow(c.kind, false)(p, q, rows[0].data(), c.w);
        anaglyphRow(c.kind, true)(p, q, rows[1].data(), c.w);
        const auto *out = reinterpret_cast<const uint32_t *>(composed->constScanLine(y));
        for (int x = 0; x < c.w; ++x) {
            const uint32_t want = reference(p[x], q[x], c.kind);
            const auto where = [&] {
                return testing::Message() << c.w << "x" << c.h << " kind " << c.kind << " at (" << x << "," << y
                                          << ") from " << std::hex << p[x] << " and " << q[x] << ": want " << want;
            };
            ASSERT_EQ(rows[0][x], want) << where() << " (scalar)";
            ASSERT_EQ(rows[1][x], want) << where() << " (vector)";
            ASSERT_EQ(out[x], want) << where() << " (composed)";
        }
    }
}

std::vector<Case> cases()
{
    std::vector<Case> all;
    for (int kind = 0; kind <= 7; ++kind) // 7: unknown, drawn gray
        for (const auto [w, h] : {std::pair{1, 1}, {15, 2}, {17, 5}, {33, 3}, {1001, 7}, {640, 480}})
            all.push_back({w, h, kind});
    return all;
}

INSTANTIATE_TEST_SUITE_P(SizesAndKinds, AnaglyphKernels, testing::ValuesIn(cases()),
                         [](const testing::TestParamInfo<Case> &info) {
                             return std::to_string(info.param.w) + "x" + std::to_string(info.param.h) + "_kind" +
                                    std::to_string(info.param.kind);
                         });

// White in both views stays white: catches a transposed matrix or a slipped digit.
TEST(AnaglyphMatrices, EveryOutputChannelSumsToOne)
{
    for (const auto &[kind, m] : matrices)
        for (int k = 0; k < 3; ++k) {
            float sum = 0;
            for (int i = 0; i < 6; ++i)
                sum += (*m)[k][i];
            EXPECT_NEAR(sum, 1.0f, 0.002f) << "kind " << kind << " output channel " << k;
        }
}

TEST(AnaglyphMatrices, HandCheckedPixels)
{
    const QRgb red = qRgb(255, 0, 0), green = qRgb(0, 255, 0), blue = qRgb(0, 0, 255), cyan = qRgb(0, 255, 255),
               white = qRgb(255, 255, 255), black = qRgb(0, 0, 0);
    struct Row {
        int kind;
        QRgb left, right, expected;
    } rows[] = {
        {AnaglyphKind::gray, red, blue, qRgb(76, 29, 29)},
        {AnaglyphKind::colour, qRgb(10, 20, 30), qRgb(40, 50, 60), qRgb(10, 50, 60)},
        // amber-blue, pure red: red 1.062 - 0.016, green -0.026 + 0.006, blue -0.038 + 0.094.
        {AnaglyphKind::duboisAmberBlue, red, red, qRgb(255, 0, 14)},
        {AnaglyphKind::duboisAmberBlue, green, green, qRgb(0, 247, 3)},
        {AnaglyphKind::duboisAmberBlue, blue, blue, qRgb(72, 13, 238)},
        {AnaglyphKind::duboisAmberBlue, red, cyan, qRgb(235, 5, 255)},
        {AnaglyphKind::duboisGreenMagenta, red, red, qRgb(119, 68, 0)},
        {AnaglyphKind::duboisGreenMagenta, green, green, qRgb(139, 167, 12)},
        {AnaglyphKind::duboisGreenMagenta, blue, blue, qRgb(0, 20, 244)},
        {AnaglyphKind::duboisGreenMagenta, cyan, red, qRgb(85, 203, 1)},
        {AnaglyphKind::halfColour, red, blue, qRgb(76, 0, 255)},
        {AnaglyphKind::halfColour, green, green, qRgb(150, 255, 0)},
        {AnaglyphKind::halfColour, cyan, red, qRgb(179, 0, 0)},
        // optimised: nothing of the first view's red; 0.7 x 255 lands on 178.5 in float.
        {AnaglyphKind::optimised, red, cyan, qRgb(0, 255, 255)},
        {AnaglyphKind::optimised, green, green, qRgb(179, 255, 0)},
        {AnaglyphKind::optimised, blue, blue, qRgb(77, 0, 255)},
    };
    const auto check = [](int kind, QRgb left, QRgb right, QRgb expected) {
        QImage a(1, 1, QImage::Format_RGB32), b(1, 1, QImage::Format_RGB32);
        a.setPixel(0, 0, left);
        b.setPixel(0, 0, right);
        EXPECT_EQ(composeAnaglyph(a, b, kind)->pixel(0, 0), expected)
            << "kind " << kind << " from " << std::hex << left << " and " << right;
    };
    for (const Row &row : rows)
        check(row.kind, row.left, row.right, row.expected);
    for (const auto &[kind, m] : matrices) {
        check(kind, white, white, white);
        check(kind, black, black, black);
    }
}

} // namespace
