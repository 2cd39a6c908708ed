// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "align/siftkernels.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "align/avx2clones.h"
#include "align/siftvector.h"
#include "core/parallelrows.h"

namespace Vorel {

namespace {

using namespace SiftVector;

constexpr float gradientFloor = 1e-8f;       // squared gradients below this have magnitude 0
constexpr float atanEpsilon = 1.1920929e-7f; // keeps the atan2 ratio finite at dr = dc = 0
constexpr float quarterPi = 0.7853982f;
constexpr float threeQuarterPi = 2.3561945f;
constexpr float atanCubic = 0.1821f;  // atan(t) ~ t (0.1821 t^2 - 0.9675) + base
constexpr float atanLinear = 0.9675f;
constexpr float twoPi = 6.2831855f;

// out[n] = sum of sources[p][n] * kernel[p], p ascending from 0, for `vectors` x 8 consecutive
// outputs; each vector is its own dependency chain, so several keep the adders busy.
template <int vectors>
__attribute__((always_inline)) inline void correlateBlock(const float *const *sources, const float *kernel,
                                                          int64_t length, int64_t n, float *out)
{
    FloatVec sums[vectors] = {};
    for (int64_t p = 0; p < length; ++p) {
        const FloatVec k = FloatVec{} + kernel[p];
        for (int v = 0; v < vectors; ++v) {
            FloatVec x;
            load(x, sources[p] + n + v * lanes);
            sums[v] += x * k;
        }
    }
    for (int v = 0; v < vectors; ++v)
        store(out + n + v * lanes, sums[v]);
}

// out[n] = sum over p of sources[p][n] * kernel[p], p ascending, from 0.
VOREL_AVX2_CLONES void correlate(
    const float *const *sources, const float *kernel, int64_t length, int64_t count, float *out)
{
    constexpr int vectors = 8;
    int64_t n = 0;
    for (; n + vectors * lanes <= count; n += vectors * lanes)
        correlateBlock<vectors>(sources, kernel, length, n, out);
    for (; n + lanes <= count; n += lanes)
        correlateBlock<1>(sources, kernel, length, n, out);
    for (; n < count; ++n) {
        float sum = 0;
        for (int64_t p = 0; p < length; ++p)
            sum += sources[p][n] * kernel[p];
        out[n] = sum;
    }
}

inline void gradientAt(float dr, float dc, float &magnitude, float &orientation)
{
    const float s = dr * dr + dc * dc;
    magnitude = s < gradientFloor ? 0.0f : s * fastInverseSqrt(s);
    const float a = std::abs(dr) + atanEpsilon;
    float t, base;
    if (dc >= 0) {
        t = (dc - a) / (a + dc);
        base = quarterPi;
    } else {
        t = (a + dc) / (a - dc);
        base = threeQuarterPi;
    }
    const float phi = base + t * (atanCubic * t * t - atanLinear);
    orientation = dr < 0 ? twoPi - phi : phi;
}

// gradientAt on `lanes` pixels at once.
VOREL_AVX2_CLONES void gradientSpan(const float *up, const float *down, const float *left, const float *right,
    int64_t count, float *magnitude, float *orientation)
{
    int64_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        FloatVec upV, downV, leftV, rightV;
        load(upV, up + i);
        load(downV, down + i);
        load(leftV, left + i);
        load(rightV, right + i);
        const FloatVec dr = downV - upV;
        const FloatVec dc = rightV - leftV;
        const FloatVec s = dr * dr + dc * dc;
        const FloatVec half = 0.5f * s;
        const FloatVec y0 = reinterpret_cast<FloatVec>(0x5F3759DF - (reinterpret_cast<UintVec>(s) >> 1));
        const FloatVec y1 = y0 * (1.5f - half * y0 * y0);
        const FloatVec y2 = y1 * (1.5f - y1 * (half * y1));
        store(magnitude + i, s < gradientFloor ? FloatVec{} : s * y2);

        FloatVec absDr;
        absolute(absDr, dr);
        const FloatVec a = absDr + atanEpsilon;
        const IntVec positive = dc >= 0;
        const FloatVec t = positive ? (dc - a) / (a + dc) : (a + dc) / (a - dc);
        const FloatVec base = positive ? FloatVec{} + quarterPi : FloatVec{} + threeQuarterPi;
        const FloatVec phi = base + t * (atanCubic * t * t - atanLinear);
        store(orientation + i, dr < 0 ? twoPi - phi : phi);
    }
    for (; i < count; ++i)
        gradientAt(down[i] - up[i], right[i] - left[i], magnitude[i], orientation[i]);
}

bool isCandidate(const float *previous, const float *row, const float *next, float threshold)
{
    const float v = row[0];
    if (!(std::abs(v) >= threshold))
        return false;
    const float neighbours[] = {previous[-1], previous[0], previous[1], row[-1], row[1], next[-1], next[0], next[1]};
    for (const float n : neighbours)
        if (v > 0 ? !(v > n) : !(v < n))
            return false;
    return true;
}

} // namespace

VOREL_AVX2_CLONES void markExtremumCandidates(
    const float *previous, const float *row, const float *next, int64_t count, float threshold, uint8_t *marks)
{
    using ByteVec = int8_t __attribute__((vector_size(lanes)));
    int64_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        FloatVec v;
        load(v, row + i);
        IntVec above = v == v, below = above; // all lanes set
        for (const float *line : {previous, row, next})
            for (int64_t dc = -1; dc <= 1; ++dc) {
                if (line == row && dc == 0)
                    continue;
                FloatVec n;
                load(n, line + i + dc);
                above &= v > n;
                below &= v < n;
            }
        FloatVec absV;
        absolute(absV, v);
        const IntVec pass = (absV >= threshold) & (v > 0 ? above : below);
        const ByteVec bytes = __builtin_convertvector(pass & 1, ByteVec);
        std::memcpy(marks + i, &bytes, sizeof bytes);
    }
    for (; i < count; ++i)
        marks[i] = isCandidate(previous + i, row + i, next + i, threshold) ? 1 : 0;
}

void blurRows(const float *in, int64_t w, int64_t h, const std::vector<float> &kernel, float *out)
{
    const int64_t length = static_cast<int64_t>(kernel.size());
    const int64_t radius = length / 2;
    parallelRows(h, [&](int64_t first, int64_t end) {
        std::vector<float> padded(static_cast<size_t>(w + 2 * radius));
        std::vector<const float *> sources(static_cast<size_t>(length));
        for (int64_t p = 0; p < length; ++p)
            sources[static_cast<size_t>(p)] = padded.data() + p;
        for (int64_t r = first; r < end; ++r) {
            const float *row = in + r * w;
            std::fill_n(padded.begin(), radius, row[0]);
            std::copy_n(row, w, padded.begin() + radius);
            std::fill_n(padded.begin() + radius + w, radius, row[w - 1]);
            correlate(sources.data(), kernel.data(), length, w, out + r * w);
        }
    });
}

void blurColumns(const float *in, int64_t w, int64_t h, const std::vector<float> &kernel, float *out)
{
    const int64_t length = static_cast<int64_t>(kernel.size());
    const int64_t radius = length / 2;
    parallelRows(h, [&](int64_t first, int64_t end) {
        std::vector<const float *> sources(static_cast<size_t>(length));
        for (int64_t r = first; r < end; ++r) {
            for (int64_t p = 0; p < length; ++p)
                sources[static_cast<size_t>(p)] = in + std::clamp(r + p - radius, int64_t{0}, h - 1) * w;
            correlate(sources.data(), kernel.data(), length, w, out + r * w);
        }
    });
}

void gradientImages(const SiftImage<float> &gaussian, SiftImage<float> &magnitude, SiftImage<float> &orientation)
{
    const int64_t w = gaussian.w, h = gaussian.h;
    if (w <= 0 || h <= 0)
        return;
    parallelRows(h, [&](int64_t first, int64_t end) {
        for (int64_t r = first; r < end; ++r) {
            const float *row = gaussian.row(r);
            const float *up = gaussian.row(std::max<int64_t>(r - 1, 0));
            const float *down = gaussian.row(std::min(r + 1, h - 1));
            float *mag = magnitude.row(r);
            float *ori = orientation.row(r);
            // Edge columns clamp their horizontal neighbour; the interior runs vectorised.
            for (const int64_t c : {int64_t{0}, w - 1})
                gradientAt(down[c] - up[c], row[std::min(c + 1, w - 1)] - row[std::max<int64_t>(c - 1, 0)], mag[c],
                           ori[c]);
            if (w > 2)
                gradientSpan(up + 1, down + 1, row, row + 2, w - 2, mag + 1, ori + 1);
        }
    });
}

} // namespace Vorel
