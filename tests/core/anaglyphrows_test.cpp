// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Each anaglyph kernel, scalar and vector, and the composed picture against the formulas
// written out here, bit for bit.
#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "core/anaglyphrows.h"
#include "core/displaycomposition.h"
#include "tests/core/noiseimage.h"

using namespace Vorel;
using namespace Vorel::AnaglyphDetail;
using TestReference::noiseImage;

namespace {

uint32_t byteOf(float v) { return uint32_t(std::clamp(int(v), 0, 255)); }

uint32_t reference(uint32_t p, uint32_t q, int kind)
{
    const float l[3] = {float(p >> 16 & 255), float(p >> 8 & 255), float(p & 255)};
    const float r[3] = {float(q >> 16 & 255), float(q >> 8 & 255), float(q & 255)};
    uint32_t c[3];
    if (kind == 1) {
        c[0] = uint32_t(l[0]), c[1] = uint32_t(r[1]), c[2] = uint32_t(r[2]);
    } else if (kind == 2) {
        const float v[6] = {l[0] / 255.0f, l[1] / 255.0f, l[2] / 255.0f, r[0] / 255.0f, r[1] / 255.0f, r[2] / 255.0f};
        for (int k = 0; k < 3; ++k) {
            float sum = dubois[k][0] * v[0];
            for (int i = 1; i < 6; ++i)
                sum += dubois[k][i] * v[i];
            c[k] = byteOf(sum * 255.0f + 0.5f);
        }
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
    for (const int kind : {0, 1, 2, 7})
        for (const auto [w, h] : {std::pair{1, 1}, {4, 3}, {15, 2}, {17, 5}, {33, 3}, {1001, 7}, {640, 480}})
            all.push_back({w, h, kind});
    return all;
}

INSTANTIATE_TEST_SUITE_P(SizesAndKinds, AnaglyphKernels, testing::ValuesIn(cases()),
                         [](const testing::TestParamInfo<Case> &info) {
                             return std::to_string(info.param.w) + "x" + std::to_string(info.param.h) + "_kind" +
                                    std::to_string(info.param.kind);
                         });

} // namespace
