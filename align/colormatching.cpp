// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Colour matching in two table-driven stages on 8-bit RGB buffers, n = target pixels:
//
//  1. Gamma. Mean luminance in double, Y = 0.299 R + 0.587 G + 0.114 B summed pixel by pixel
//     in order, x = (sum Y / n) / 255 for reference (xr) and target (xt). Only when
//     0.01 < xt < 0.99 and xr > 0.01 (no upper limit on the reference):
//     g = ln(xr) / ln(xt), table[i] = trunc((i/255)^g * 255 + 0.5) clamped to 0..255
//     (0^0 counts as 1), applied to every byte of the target.
//  2. Histogram specification per channel with raw counts: walking reference levels j with
//     running total cr, target levels s are mapped to j while the target running total
//     ct < cr. Levels never reached map to 0.
#include "align/colormatching.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "core/displaycomposition.h"
#include "core/parallelrows.h"
#include "core/stereoimageprocessor.h"

namespace Vorel {

namespace {

constexpr double lowestMeanLuminance = 0.01;  // darker means carry no usable gamma
constexpr double highestMeanLuminance = 0.99; // brighter targets carry no usable gamma (target only)

using LevelTable = std::array<uint8_t, 256>;
using Histogram = std::array<int64_t, 256>;

double meanLuminance(const uint8_t *pixels, int64_t n)
{
    double sum = 0;
    for (int64_t i = 0; i < n; ++i, pixels += 3)
        sum += 0.299 * pixels[0] + 0.587 * pixels[1] + 0.114 * pixels[2];
    return sum / static_cast<double>(n);
}

// Exponent g maps the target's mean level onto the reference's.
std::optional<LevelTable> gammaTable(double referenceMean, double targetMean)
{
    const double xr = referenceMean / 255;
    const double xt = targetMean / 255;
    if (!(xt > lowestMeanLuminance && xt < highestMeanLuminance && xr > lowestMeanLuminance))
        return std::nullopt;
    const double g = std::log(xr) / std::log(xt);
    LevelTable table;
    for (int i = 0; i < 256; ++i) {
        const double v = std::pow(i / 255.0, g) * 255 + 0.5;
        table[i] = v >= 255 ? 255 : v <= 0 ? 0 : static_cast<uint8_t>(v);
    }
    return table;
}

// table[c] is applied to channel c (a gray table passes the same one three times).
void applyTables(uint8_t *pixels, int64_t n, const std::array<const LevelTable *, 3> &tables)
{
    constexpr int64_t chunk = 1 << 16;
    parallelRows((n + chunk - 1) / chunk, [&](int64_t first, int64_t end) {
        const int64_t stop = std::min(n, end * chunk);
        for (int64_t i = first * chunk; i < stop; ++i) {
            uint8_t *p = pixels + 3 * i;
            p[0] = (*tables[0])[p[0]];
            p[1] = (*tables[1])[p[1]];
            p[2] = (*tables[2])[p[2]];
        }
    });
}

std::array<Histogram, 3> histograms(const uint8_t *pixels, int64_t n)
{
    std::array<Histogram, 3> counts{};
    for (int64_t i = 0; i < n; ++i, pixels += 3) {
        ++counts[0][pixels[0]];
        ++counts[1][pixels[1]];
        ++counts[2][pixels[2]];
    }
    return counts;
}

// Target level s goes to the first reference level j whose cumulative count exceeds the
// target's cumulative count below s.
LevelTable specificationTable(const Histogram &target, const Histogram &reference)
{
    LevelTable table{};
    int64_t cr = 0, ct = 0;
    int s = 0;
    for (int j = 0; j < 256; ++j) {
        cr += reference[j];
        while (ct < cr && s <= 255) {
            table[s] = static_cast<uint8_t>(j);
            ct += target[s];
            ++s;
        }
    }
    return table;
}

} // namespace

RgbBuffer matchColors(const RgbBuffer &reference, const RgbBuffer &target)
{
    RgbBuffer result = target;
    const int64_t n = target.w * target.h;
    if (n <= 0 || reference.data.size() < static_cast<size_t>(3 * n) || target.data.size() < static_cast<size_t>(3 * n))
        return result;

    uint8_t *pixels = result.data.data();
    if (const std::optional<LevelTable> gamma =
            gammaTable(meanLuminance(reference.data.data(), n), meanLuminance(pixels, n)))
        applyTables(pixels, n, {&*gamma, &*gamma, &*gamma});

    const std::array<Histogram, 3> referenceCounts = histograms(reference.data.data(), n);
    const std::array<Histogram, 3> targetCounts = histograms(pixels, n);
    std::array<LevelTable, 3> tables;
    for (int c = 0; c < 3; ++c)
        tables[c] = specificationTable(targetCounts[c], referenceCounts[c]);
    applyTables(pixels, n, {&tables[0], &tables[1], &tables[2]});
    return result;
}

std::optional<QImage> matchColors(const QImage &reference, const QImage &target)
{
    const std::optional<RgbBuffer> referenceBuffer = imageToRGB(reference);
    const std::optional<RgbBuffer> targetBuffer = imageToRGB(target);
    if (!referenceBuffer || !targetBuffer)
        return std::nullopt;
    return rgbToImage(matchColors(*referenceBuffer, *targetBuffer));
}

void matchColours(StereoImageProcessor &processor, bool flag)
{
    processor.matchColours(flag, [](const QImage &target, const QImage &reference) {
        return matchColors(reference, target);
    });
}

} // namespace Vorel
