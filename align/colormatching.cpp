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
//
// Both stages are tables of bytes, so the target is read twice and written once: one pass
// counts both views (integer histograms per block of pixels on every core, merged as exact
// sums; each view's luminance summed in pixel order by one core), and the histogram of the
// gamma-corrected target is the target's histogram moved through the gamma table. The output
// pass maps every byte through the gamma table and then its channel's table, composed.
#include "align/colormatching.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <mutex>

#include "align/channeltables.h"
#include "align/viewcounting.h"
#include "core/displaycomposition.h"
#include "core/largebuffer.h"
#include "core/parallelrows.h"
#include "core/stereoimageprocessor.h"

namespace Vorel {

namespace {

constexpr double lowestMeanLuminance = 0.01;  // darker means carry no usable gamma
constexpr double highestMeanLuminance = 0.99; // brighter targets carry no usable gamma (target only)
constexpr int64_t countBlockPixels = 1 << 14; // unit of the counting pass's split over the cores

using Histogram = std::array<int64_t, 256>;
using ChannelHistograms = std::array<Histogram, 3>; // R, G, B

struct ViewCounts {
    double luminanceSum = 0;
    ChannelHistograms levels{};
};

constexpr LevelTable identityTable()
{
    LevelTable table{};
    for (int i = 0; i < 256; ++i)
        table[i] = static_cast<uint8_t>(i);
    return table;
}

// Luminance sums and histograms of the first n pixels of the reference (views[0]) and the
// target (views[1]). The blocks of both views form one range split over the cores; the core
// holding a view's first block also sums that view's luminance over all its blocks, in order.
std::array<ViewCounts, 2> countViews(const std::array<const uint8_t *, 2> &views, int64_t n, ChannelLayout layout)
{
    const int64_t blocks = (n + countBlockPixels - 1) / countBlockPixels;
    std::array<ViewCounts, 2> totals;
    std::mutex merging;
    parallelRows(2 * blocks, [&](int64_t first, int64_t end) {
        for (int v = 0; v < 2; ++v) {
            const int64_t begin = std::max(first - v * blocks, int64_t{0});
            const int64_t stop = std::min(end - v * blocks, blocks);
            if (begin >= stop)
                continue;
            ViewCounts part;
            LevelCounts counts;
            int64_t pending = 0; // pixels in `counts`
            const auto takeCounts = [&] {
                for (int c = 0; c < 3; ++c)
                    for (int i = 0; i < 256; ++i)
                        part.levels[c][i] += counts.total(c, i);
                counts = {};
                pending = 0;
            };
            const bool sumsLuminance = begin == 0;
            for (int64_t b = begin; b < (sumsLuminance ? blocks : stop); ++b) {
                const int64_t pixel = b * countBlockPixels;
                const int64_t count = std::min(countBlockPixels, n - pixel);
                const uint8_t *pixels = views[v] + pixel * layout.pixelStride;
                const bool counting = b < stop;
                if (counting && pending + count > std::numeric_limits<uint32_t>::max())
                    takeCounts();
                if (sumsLuminance)
                    part.luminanceSum = countView(part.luminanceSum, pixels, count, layout, counting ? &counts : nullptr);
                else
                    countLevels(counts, pixels, count, layout);
                pending += counting ? count : 0;
            }
            takeCounts();
            const std::lock_guard lock(merging);
            totals[v].luminanceSum += part.luminanceSum; // one part sums a view, the others add 0
            for (int c = 0; c < 3; ++c)
                for (int i = 0; i < 256; ++i)
                    totals[v].levels[c][i] += part.levels[c][i];
        }
    });
    return totals;
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

// Both stages as one table per channel: target byte -> gamma -> specification.
ChannelTables matchingTables(const uint8_t *reference, const uint8_t *target, int64_t n, ChannelLayout layout)
{
    const std::array<ViewCounts, 2> counts = countViews({reference, target}, n, layout);
    const double count = static_cast<double>(n);
    const LevelTable gamma =
        gammaTable(counts[0].luminanceSum / count, counts[1].luminanceSum / count).value_or(identityTable());
    ChannelTables tables;
    for (int c = 0; c < 3; ++c) {
        Histogram corrected{};
        for (int i = 0; i < 256; ++i)
            corrected[gamma[i]] += counts[1].levels[c][i];
        const LevelTable specification = specificationTable(corrected, counts[0].levels[c]);
        for (int i = 0; i < 256; ++i)
            tables[c][i] = specification[gamma[i]];
    }
    return tables;
}

// 32-bit pixels hold the bytes an RGB buffer would (drawn over black); the passes read them as
// one run of pixels, so rows must follow each other without padding.
QImage unpadded32(const QImage &image)
{
    const QImage pixels = premultiplied32(image);
    if (pixels.bytesPerLine() == 4 * static_cast<qsizetype>(pixels.width()))
        return pixels;
    return pixels.copy();
}

constexpr ChannelTables identityTables() { return {identityTable(), identityTable(), identityTable()}; }

} // namespace

RgbBuffer matchColors(const RgbBuffer &reference, const RgbBuffer &target)
{
    RgbBuffer result = target;
    const int64_t n = target.w * target.h;
    if (n <= 0 || reference.data.size() < static_cast<size_t>(3 * n) || target.data.size() < static_cast<size_t>(3 * n))
        return result;
    const ChannelTables tables = matchingTables(reference.data.data(), target.data.data(), n, rgbBytes);
    parallelRows(target.h, [&](int64_t first, int64_t end) {
        for (uint8_t *p = result.row(first), *stop = result.row(end); p < stop; p += 3) {
            p[0] = tables[0][p[0]];
            p[1] = tables[1][p[1]];
            p[2] = tables[2][p[2]];
        }
    });
    return result;
}

std::optional<QImage> matchColors(const QImage &reference, const QImage &target)
{
    if (reference.isNull() || target.isNull())
        return std::nullopt;
    const QImage referencePixels = unpadded32(reference);
    const QImage targetPixels = unpadded32(target);
    QImage result = newLargeImage(target.width(), target.height(), QImage::Format_RGB32);
    if (result.isNull())
        return std::nullopt;
    const int64_t n = static_cast<int64_t>(target.width()) * target.height();
    const bool comparable = static_cast<int64_t>(reference.width()) * reference.height() >= n;
    const ChannelTables tables =
        comparable ? matchingTables(referencePixels.constBits(), targetPixels.constBits(), n, bgrxWords)
                   : identityTables();
    const auto *in = reinterpret_cast<const uint32_t *>(targetPixels.constBits());
    auto *out = reinterpret_cast<uint32_t *>(result.bits());
    const int64_t w = target.width();
    parallelRows(target.height(), [&](int64_t first, int64_t end) {
        mapChannels(out + first * w, in + first * w, (end - first) * w, tables);
    });
    return result;
}

void matchColours(StereoImageProcessor &processor, bool flag)
{
    processor.matchColours(flag, [](const QImage &target, const QImage &reference) {
        return matchColors(reference, target);
    });
}

} // namespace Vorel
