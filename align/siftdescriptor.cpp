// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The 128-element gradient-histogram descriptor of each keypoint.
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "align/avx2clones.h"
#include "align/siftkernels.h"
#include "align/siftstages.h"
#include "align/siftvector.h"
#include "core/parallelrows.h"

namespace Vorel {

namespace {

using namespace SiftVector;

constexpr float cellSizeFactor = 3.0f;       // cell side hw in layerScale
constexpr float sqrt2 = 1.4142135f;
constexpr int windowCells = 5;               // window radius covers 5 cells of the rotated grid...
constexpr float cellOffset = 1.5f;           // ...centred: cell coordinate of the keypoint
constexpr double cellReach = 2.5;            // |x'|, |y'| below this land in a cell
constexpr float binsPerRadian = 1.2732395f;  // 8 / 2pi
constexpr float weightFactor = 0.125f;       // exp(-(x'^2 + y'^2) / 8): sigma of 2 cells
constexpr float twoPi = 6.2831855f;
constexpr float clipRatio = 0.2f;            // elements are clipped at 0.2 of the vector norm
constexpr float normFloor = 1e-8f;           // squared norms below this count as 0
constexpr float descriptorLength = 512.0f;

// Accumulator (X, Y, O) at X*60 + Y*10 + O: X, Y in 0..5 (cells 1..4 are read out), O in
// 0..9 (8 angle bins plus spill-over slots).
constexpr int accumulatorStrideX = 60;
constexpr int accumulatorStrideY = 10;
using Accumulator = std::array<float, 6 * 6 * 10>;

// The columns of one row that can fall inside the 4x4 cells, with a pixel to spare on either
// side (the exact test is still made per pixel): both rotated coordinates x' = dx c + dy s
// and y' = dy c - dx s must lie in (-2.5, 2.5). `offset` = ci - C0, so dx = dc - offset.
std::pair<int64_t, int64_t> columnsInsideCells(float dy, float sinT, float cosT, float offset, int64_t first,
                                               int64_t last)
{
    double lo = static_cast<double>(first), hi = static_cast<double>(last);
    auto limit = [&](double slope, double intercept) {
        if (std::abs(slope) < 1e-9)
            return;
        double a = (-cellReach - intercept) / slope, b = (cellReach - intercept) / slope;
        if (a > b)
            std::swap(a, b);
        lo = std::max(lo, std::floor(a + offset) - 1);
        hi = std::min(hi, std::ceil(b + offset) + 1);
    };
    limit(cosT, static_cast<double>(dy) * sinT);
    limit(-static_cast<double>(sinT), static_cast<double>(dy) * cosT);
    return {static_cast<int64_t>(lo), static_cast<int64_t>(hi)};
}

// The per-pixel terms of one row of a keypoint's window, for all its columns at once.
struct RowTerms {
    std::vector<int32_t> slot; // accumulator index of the (X, Y, O) corner; -1 outside the cells
    std::vector<float> fx, fy, fo, exponent;

    void resize(int64_t count)
    {
        const size_t n = static_cast<size_t>(count + lanes);
        slot.resize(n);
        fx.resize(n);
        fy.resize(n);
        fo.resize(n);
        exponent.resize(n);
    }
};

// Column `firstCol + i` lies dx = firstCol + i - ci from the keypoint; `dySin` = dy sinT and
// `dyCos` = dy cosT. Fills `terms` for i in 0..count-1 (and up to 7 more, unused).
VOREL_AVX2_CLONES void rowTerms(int64_t firstCol, int64_t count, float ci, float dySin, float dyCos, float sinT,
    float cosT, const float *orientation, float theta, RowTerms &terms)
{
    const IntVec laneIndex = {0, 1, 2, 3, 4, 5, 6, 7};
    for (int64_t i = 0; i < count; i += lanes) {
        const IntVec cols = static_cast<int32_t>(firstCol + i) + laneIndex;
        const FloatVec dx = __builtin_convertvector(cols, FloatVec) - ci;
        const FloatVec xr = dx * cosT + dySin;
        const FloatVec yr = dyCos - dx * sinT;
        const FloatVec xb = xr + cellOffset;
        const FloatVec yb = yr + cellOffset;
        const IntVec inside = (xb > -1.0f) & (xb < 4.0f) & (yb > -1.0f) & (yb < 4.0f);
        FloatVec angle;
        load(angle, orientation + firstCol + i);
        angle -= theta;
        angle = angle < 0 ? angle + twoPi : angle;
        const FloatVec ob = angle * binsPerRadian;
        FloatVec xFloor, yFloor, oFloor;
        floorOf(xFloor, xb);
        floorOf(yFloor, yb);
        floorOf(oFloor, ob);
        const IntVec slot = (__builtin_convertvector(xFloor, IntVec) + 1) * accumulatorStrideX +
                            (__builtin_convertvector(yFloor, IntVec) + 1) * accumulatorStrideY +
                            __builtin_convertvector(oFloor, IntVec);
        store(terms.slot.data() + i, inside ? slot : -1);
        store(terms.fx.data() + i, xb - xFloor);
        store(terms.fy.data() + i, yb - yFloor);
        store(terms.fo.data() + i, ob - oFloor);
        store(terms.exponent.data() + i, -(xr * xr + yr * yr) * weightFactor);
    }
}

void describe(SiftKeypoint &k, const SiftImage<float> &magnitude, const SiftImage<float> &orientation,
              RowTerms &terms)
{
    const int64_t w = magnitude.w, h = magnitude.h;
    const float hw = cellSizeFactor * k.layerScale;
    const int64_t radius = static_cast<int64_t>(hw * sqrt2 * windowCells * 0.5f + 0.5f);
    const int64_t r0 = static_cast<int64_t>(k.ri + 0.5f);
    const int64_t c0 = static_cast<int64_t>(k.ci + 0.5f);
    const float theta = k.ori;
    const float sinT = std::sin(theta) / hw;
    const float cosT = std::cos(theta) / hw;

    Accumulator acc{};
    for (int64_t dr = std::max(1 - r0, -radius); dr <= std::min(h - 2 - r0, radius); ++dr) {
        const int64_t row = r0 + dr;
        const float dy = static_cast<float>(row) - k.ri;
        const float *mag = magnitude.row(row);
        const auto [firstDc, lastDc] =
            columnsInsideCells(dy, sinT, cosT, k.ci - static_cast<float>(c0), std::max(1 - c0, -radius),
                               std::min(w - 2 - c0, radius));
        const int64_t firstCol = c0 + firstDc, count = lastDc - firstDc + 1;
        if (count <= 0)
            continue;
        // The vector pass may read up to 7 orientations past the window's last column; window
        // rows end at h - 2, so they stay inside the image.
        terms.resize(count);
        rowTerms(firstCol, count, k.ci, dy * sinT, dy * cosT, sinT, cosT, orientation.row(row), theta, terms);
        for (int64_t i = 0; i < count; ++i) {
            const int32_t slot = terms.slot[static_cast<size_t>(i)];
            if (slot < 0)
                continue;
            const float v = mag[firstCol + i] * std::exp(terms.exponent[static_cast<size_t>(i)]);
            const float fx = terms.fx[static_cast<size_t>(i)], fy = terms.fy[static_cast<size_t>(i)];
            const float fo = terms.fo[static_cast<size_t>(i)];
            for (int ix = 0; ix < 2; ++ix) {
                const float wx = ix ? fx : 1 - fx;
                for (int iy = 0; iy < 2; ++iy) {
                    const float wy = iy ? fy : 1 - fy;
                    float *cell = acc.data() + slot + ix * accumulatorStrideX + iy * accumulatorStrideY;
                    cell[0] += v * wx * wy * (1 - fo);
                    cell[1] += v * wx * wy * fo;
                }
            }
        }
    }

    // Read-out: slot 8 of each cell replaces its slot 0 (wrapped angle votes land there);
    // slot 9 is dropped. Element (X-1)*32 + (Y-1)*8 + O.
    std::array<float, siftDescriptorLength> &d = k.descriptors;
    for (int X = 1; X <= 4; ++X)
        for (int Y = 1; Y <= 4; ++Y) {
            const float *cell = acc.data() + X * accumulatorStrideX + Y * accumulatorStrideY;
            float *out = d.data() + (X - 1) * 32 + (Y - 1) * 8;
            out[0] = cell[8];
            for (int o = 1; o < 8; ++o)
                out[o] = cell[o];
        }

    float s1 = 0;
    for (const float x : d)
        s1 += x * x;
    const float threshold = s1 >= normFloor ? clipRatio * (s1 * fastInverseSqrt(s1)) : 0.0f;
    float s2 = 0;
    for (float &x : d) {
        x = std::min(x, threshold);
        s2 += x * x;
    }
    const float length = s2 >= normFloor ? s2 * fastInverseSqrt(s2) : 0.0f;
    const float factor = descriptorLength / length; // infinite for an empty vector: never matches
    for (float &x : d)
        x *= factor;
}

} // namespace

void computeDescriptors(std::span<SiftKeypoint> keypoints, const SiftGradients &gradients)
{
    parallelRows(static_cast<int64_t>(keypoints.size()), [&](int64_t first, int64_t end) {
        RowTerms terms;
        for (int64_t i = first; i < end; ++i)
            describe(keypoints[static_cast<size_t>(i)], gradients.magnitude, gradients.orientation, terms);
    });
}

} // namespace Vorel
