// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The 128-element gradient-histogram descriptor of each keypoint.
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "align/siftkernels.h"
#include "align/siftstages.h"
#include "core/parallelrows.h"

namespace Vorel {

namespace {

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

void describe(SiftKeypoint &k, const SiftImage<float> &magnitude, const SiftImage<float> &orientation)
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
        const float *ori = orientation.row(row);
        const auto [firstDc, lastDc] =
            columnsInsideCells(dy, sinT, cosT, k.ci - static_cast<float>(c0), std::max(1 - c0, -radius),
                               std::min(w - 2 - c0, radius));
        for (int64_t dc = firstDc; dc <= lastDc; ++dc) {
            const int64_t col = c0 + dc;
            const float dx = static_cast<float>(col) - k.ci;
            const float xr = dx * cosT + dy * sinT;
            const float yr = dy * cosT - dx * sinT;
            const float xb = xr + cellOffset;
            const float yb = yr + cellOffset;
            if (xb <= -1 || xb >= 4 || yb <= -1 || yb >= 4)
                continue;
            float angle = ori[col] - theta;
            if (angle < 0)
                angle += twoPi;
            const float ob = angle * binsPerRadian;
            const float weight = std::exp(-(xr * xr + yr * yr) * weightFactor);
            const float v = mag[col] * weight;

            const float fxFloor = std::floor(xb), fyFloor = std::floor(yb), foFloor = std::floor(ob);
            const int X = static_cast<int>(fxFloor) + 1, Y = static_cast<int>(fyFloor) + 1;
            const int O = static_cast<int>(foFloor);
            const float fx = xb - fxFloor, fy = yb - fyFloor, fo = ob - foFloor;
            for (int ix = 0; ix < 2; ++ix) {
                const float wx = ix ? fx : 1 - fx;
                for (int iy = 0; iy < 2; ++iy) {
                    const float wy = iy ? fy : 1 - fy;
                    float *cell = acc.data() + (X + ix) * accumulatorStrideX + (Y + iy) * accumulatorStrideY + O;
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
        for (int64_t i = first; i < end; ++i)
            describe(keypoints[static_cast<size_t>(i)], gradients.magnitude, gradients.orientation);
    });
}

} // namespace Vorel
