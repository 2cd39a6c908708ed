// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Scale-space extrema: detection, sub-pixel refinement on the fixed layer, and one keypoint
// per dominant gradient orientation.
#include <algorithm>
#include <bit>
#include <cstring>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "align/avx2clones.h"
#include "align/siftkernels.h"
#include "align/siftstages.h"
#include "align/siftvector.h"
#include "core/parallelrows.h"

namespace Vorel {

namespace {

using namespace SiftVector;

constexpr int64_t border = 5;                 // rows/columns never searched at each octave edge
constexpr float preThreshold = 2.4f;          // |D| below this cannot be an extremum
constexpr int maxRefineSteps = 5;             // moves of one pixel before a candidate is dropped
constexpr float stepThreshold = 0.6f;         // an offset this large moves to the neighbour pixel
constexpr float maxOffset = 1.5f;             // larger converged offsets are unstable
constexpr int highestLayer = 5;               // refined layer must stay within 0..5
constexpr float contrastThreshold = 3.0f;     // minimum |D| at the interpolated extremum
constexpr float edgeThreshold = 12.1f;        // (r+1)^2/r for principal curvature ratio r = 10
constexpr float baseSigma = 1.6f;             // layer blur in octave pixels is 1.6 * 2^(layer/3)
constexpr int histogramBins = 36;             // orientation histogram, 10 degrees each
constexpr float windowRadiusFactor = 4.5f;    // histogram window radius in layerScale
constexpr float windowSigmaFactor = 1.5f;     // Gaussian weight sigma in layerScale
constexpr float peakRatio = 0.8f;             // secondary peaks must reach this share of the maximum
constexpr float twoPi = 6.2831855f;

// Clamped sampling of one difference image.
struct Layer {
    const SiftImage<float> &image;
    float operator()(int64_t r, int64_t c) const
    {
        return image.at(std::clamp<int64_t>(r, 0, image.h - 1), std::clamp<int64_t>(c, 0, image.w - 1));
    }
};

// The 18 neighbours in the layers below and above; the 8 in its own layer are checked by
// markExtremumCandidates.
bool beyondNeighbouringLayers(const SiftImage<float> &below, const SiftImage<float> &above, int64_t r, int64_t c,
                              float v)
{
    for (const SiftImage<float> *image : {&below, &above})
        for (int64_t dr = -1; dr <= 1; ++dr) {
            const float *row = image->row(r + dr);
            for (int64_t dc = -1; dc <= 1; ++dc) {
                const float n = row[c + dc];
                if (v > 0 ? !(v > n) : !(v < n))
                    return false;
            }
        }
    return true;
}

// Derivatives of D at one pixel: gradient (c, r, s) and Hessian.
struct LocalFit {
    float d = 0, gc = 0, gr = 0, gs = 0;
    float hcc = 0, hrr = 0, hss = 0, hrc = 0, hsc = 0, hsr = 0;
};

LocalFit fitAt(const Layer &below, const Layer &at, const Layer &above, int64_t r, int64_t c)
{
    LocalFit f;
    f.d = at(r, c);
    f.gc = (at(r, c + 1) - at(r, c - 1)) * 0.5f;
    f.gr = (at(r + 1, c) - at(r - 1, c)) * 0.5f;
    f.gs = (above(r, c) - below(r, c)) * 0.5f;
    f.hcc = at(r, c + 1) + at(r, c - 1) - 2 * f.d;
    f.hrr = at(r + 1, c) + at(r - 1, c) - 2 * f.d;
    f.hss = above(r, c) + below(r, c) - 2 * f.d;
    f.hrc = (at(r + 1, c + 1) - at(r + 1, c - 1) - at(r - 1, c + 1) + at(r - 1, c - 1)) * 0.25f;
    f.hsc = (above(r, c + 1) - above(r, c - 1) - below(r, c + 1) + below(r, c - 1)) * 0.25f;
    f.hsr = (above(r + 1, c) - above(r - 1, c) - below(r + 1, c) + below(r - 1, c)) * 0.25f;
    return f;
}

struct Refinement {
    int64_t r, c;
    float xc, xr, xs;
};

// Newton steps on layer s: offset = -H^-1 g by cofactors. Moves one pixel while an offset
// reaches 0.6; none when the fifth step still wants to move or a test below fails.
std::optional<Refinement> refine(const Layer &below, const Layer &at, const Layer &above, int64_t s, int64_t r,
                                 int64_t c, int64_t w, int64_t h)
{
    float xc = 0, xr = 0, xs = 0;
    LocalFit f;
    bool converged = false;
    for (int step = 0; step < maxRefineSteps && !converged; ++step) {
        f = fitAt(below, at, above, r, c);
        const float a00 = f.hrr * f.hss - f.hsr * f.hsr;
        const float a01 = f.hsr * f.hsc - f.hrc * f.hss;
        const float a02 = f.hrc * f.hsr - f.hrr * f.hsc;
        const float det = f.hcc * a00 + f.hrc * a01 + f.hsc * a02;
        if (std::abs(det) < std::numeric_limits<float>::min()) {
            converged = true; // singular: keep the previous offsets
            break;
        }
        const float a11 = f.hcc * f.hss - f.hsc * f.hsc;
        const float a12 = f.hrc * f.hsc - f.hcc * f.hsr;
        const float a22 = f.hcc * f.hrr - f.hrc * f.hrc;
        const float i00 = a00 / det, i01 = a01 / det, i02 = a02 / det;
        const float i11 = a11 / det, i12 = a12 / det, i22 = a22 / det;
        xc = -(i00 * f.gc + i01 * f.gr + i02 * f.gs);
        xr = -(i01 * f.gc + i11 * f.gr + i12 * f.gs);
        xs = -(i02 * f.gc + i12 * f.gr + i22 * f.gs);

        const int64_t stepC = xc >= stepThreshold && c < w - 2 ? 1 : xc <= -stepThreshold && c >= 2 ? -1 : 0;
        const int64_t stepR = xr >= stepThreshold && r < h - 2 ? 1 : xr <= -stepThreshold && r >= 2 ? -1 : 0;
        if (stepC == 0 && stepR == 0)
            converged = true;
        else
            r += stepR, c += stepC;
    }
    if (!converged)
        return std::nullopt;
    if (std::abs(xc) >= maxOffset || std::abs(xr) >= maxOffset || std::abs(xs) >= maxOffset)
        return std::nullopt;
    const float layer = static_cast<float>(s) + xs;
    const float row = static_cast<float>(r) + xr;
    const float col = static_cast<float>(c) + xc;
    if (layer < 0 || layer > highestLayer || row < 0 || row > static_cast<float>(h - 1) || col < 0 ||
        col > static_cast<float>(w - 1))
        return std::nullopt;
    if (std::abs(f.d + 0.5f * (f.gr * xr + f.gc * xc + f.gs * xs)) < contrastThreshold)
        return std::nullopt;
    const float trace = f.hcc + f.hrr;
    const float det2 = f.hcc * f.hrr - f.hrc * f.hrc;
    if (det2 <= 0 || trace * trace / det2 >= edgeThreshold)
        return std::nullopt;
    return Refinement{r, c, xc, xr, xs};
}

using Histogram = std::array<float, histogramBins>;

// Per-pixel terms of one row of the orientation window, for all its columns at once.
struct HistogramRowTerms {
    std::vector<float> exponent; // of the Gaussian weight
    std::vector<float> position; // bin position f

    void resize(int64_t count)
    {
        exponent.resize(static_cast<size_t>(count + lanes));
        position.resize(static_cast<size_t>(count + lanes));
    }
};

// Work space of one thread's rows.
struct DetectionScratch {
    std::vector<uint8_t> marks;
    HistogramRowTerms terms;
};

// Columns firstCol.. firstCol+count-1 of a row dy from the keypoint (and up to 7 more, unused).
VOREL_AVX2_CLONES void histogramRowTerms(int64_t firstCol, int64_t count, float ci, float dySquared, float denominator,
    const float *orientation, HistogramRowTerms &terms)
{
    const IntVec laneIndex = {0, 1, 2, 3, 4, 5, 6, 7};
    for (int64_t i = 0; i < count; i += lanes) {
        const IntVec cols = static_cast<int32_t>(firstCol + i) + laneIndex;
        const FloatVec dx = __builtin_convertvector(cols, FloatVec) - ci;
        store(terms.exponent.data() + i, -(dySquared + dx * dx) / denominator);
        FloatVec angle;
        load(angle, orientation + firstCol + i);
        store(terms.position.data() + i, angle * static_cast<float>(histogramBins) / twoPi - 0.5f);
    }
}

Histogram orientationHistogram(const SiftKeypoint &k, const SiftImage<float> &magnitude,
                               const SiftImage<float> &orientation, HistogramRowTerms &terms)
{
    Histogram hist{};
    const int64_t w = magnitude.w, h = magnitude.h;
    const int64_t r0 = static_cast<int64_t>(k.ri + 0.5f);
    const int64_t c0 = static_cast<int64_t>(k.ci + 0.5f);
    const int64_t radius = static_cast<int64_t>(windowRadiusFactor * k.layerScale);
    const float sigma = windowSigmaFactor * k.layerScale;
    const float denominator = 2 * sigma * sigma;
    // Only pixels strictly inside the one-pixel frame vote; the vector pass may read 7
    // orientations past the last column, still inside the image as rows end at h - 2.
    const int64_t firstCol = std::max<int64_t>(c0 - radius, 1), lastCol = std::min(c0 + radius, w - 2);
    const int64_t count = lastCol - firstCol + 1;
    if (count <= 0)
        return hist;
    terms.resize(count);
    for (int64_t row = std::max<int64_t>(r0 - radius, 1); row <= std::min(r0 + radius, h - 2); ++row) {
        const float dy = static_cast<float>(row) - k.ri;
        histogramRowTerms(firstCol, count, k.ci, dy * dy, denominator, orientation.row(row), terms);
        const float *mag = magnitude.row(row) + firstCol;
        for (int64_t i = 0; i < count; ++i) {
            const float weight = std::exp(terms.exponent[static_cast<size_t>(i)]);
            // For -0.5 < f < 0 the truncation gives b = 0 and fr < 0: bin 0 is extrapolated.
            const float f = terms.position[static_cast<size_t>(i)];
            const int b = static_cast<int>(f);
            const float fr = f - static_cast<float>(b);
            const float vote = weight * mag[i];
            hist[static_cast<size_t>((b % histogramBins + histogramBins) % histogramBins)] += vote * (1 - fr);
            hist[static_cast<size_t>(((b + 1) % histogramBins + histogramBins) % histogramBins)] += vote * fr;
        }
    }
    return hist;
}

// Smooths with (1,4,6,4,1)/16 and appends one copy of `candidate` per qualifying peak.
void appendOrientedKeypoints(const SiftKeypoint &candidate, const Histogram &raw, std::vector<SiftKeypoint> &out)
{
    constexpr int n = histogramBins;
    Histogram hist;
    for (int b = 0; b < n; ++b)
        hist[b] = (raw[(b + n - 2) % n] + 4 * raw[(b + n - 1) % n] + 6 * raw[b] + 4 * raw[(b + 1) % n] +
                   raw[(b + 2) % n]) /
                  16;
    float maximum = -1;
    for (const float v : hist)
        if (v > maximum)
            maximum = v;
    for (int b = 0; b < n; ++b) {
        const float left = hist[(b + n - 1) % n], right = hist[(b + 1) % n], centre = hist[b];
        if (!(left < centre && right < centre && centre > peakRatio * maximum))
            continue;
        float p = static_cast<float>(b) + 0.5f + 0.5f * (left - right) / (left - 2 * centre + right);
        if (p < 0)
            p += n;
        else if (p >= n)
            p -= n;
        SiftKeypoint k = candidate;
        k.ori = p * twoPi / n;
        k.mag = centre;
        out.push_back(k);
    }
}

// Candidate (r, c) of a layer: the full extremum test, refinement and orientations.
void detectAt(const SiftScaleLayer &layer, int64_t r, int64_t c, HistogramRowTerms &terms,
              std::vector<SiftKeypoint> &out)
{
    if (!beyondNeighbouringLayers(layer.below, layer.above, r, c, layer.at.at(r, c)))
        return;
    const Layer below{layer.below}, at{layer.at}, above{layer.above};
    const std::optional<Refinement> fit = refine(below, at, above, layer.layer, r, c, layer.at.w, layer.at.h);
    if (!fit)
        return;
    const float octaveFactor = std::ldexp(1.0f, layer.octave - 1);
    SiftKeypoint k;
    k.octave = layer.octave;
    k.layer = layer.layer;
    k.ri = static_cast<float>(fit->r) + fit->xr;
    k.ci = static_cast<float>(fit->c) + fit->xc;
    k.rlayer = static_cast<float>(layer.layer) + fit->xs;
    k.layerScale = baseSigma * std::exp2(k.rlayer / 3);
    k.r = octaveFactor * k.ri;
    k.c = octaveFactor * k.ci;
    k.scale = octaveFactor * k.layerScale;
    appendOrientedKeypoints(k, orientationHistogram(k, layer.gradients.magnitude, layer.gradients.orientation, terms),
                            out);
}

void detectInRow(const SiftScaleLayer &layer, int64_t r, DetectionScratch &scratch, std::vector<SiftKeypoint> &out)
{
    const int64_t count = layer.at.w - 2 * border;
    // Marks are scanned eight at a time: candidates are rare, so most words are zero.
    std::vector<uint8_t> &marks = scratch.marks;
    marks.assign(static_cast<size_t>(count + 8), 0);
    markExtremumCandidates(layer.at.row(r - 1) + border, layer.at.row(r) + border, layer.at.row(r + 1) + border,
                           count, preThreshold, marks.data());
    for (int64_t word = 0; word < count; word += 8) {
        uint64_t bits;
        std::memcpy(&bits, marks.data() + word, sizeof bits);
        for (; bits != 0; bits &= bits - 1)
            detectAt(layer, r, border + word + std::countr_zero(bits) / 8, scratch.terms, out);
    }
}

} // namespace

std::vector<SiftKeypoint> detectKeypoints(const SiftScaleLayer &layer)
{
    const int64_t rows = layer.at.h - 2 * border;
    if (rows <= 0 || layer.at.w <= 2 * border)
        return {};
    // Each row collects its own keypoints; joining them in row order keeps the detection
    // order whatever the thread split.
    std::vector<std::vector<SiftKeypoint>> perRow(static_cast<size_t>(rows));
    parallelRows(rows, [&](int64_t first, int64_t end) {
        DetectionScratch scratch;
        for (int64_t i = first; i < end; ++i)
            detectInRow(layer, border + i, scratch, perRow[static_cast<size_t>(i)]);
    });
    std::vector<SiftKeypoint> keypoints;
    for (const std::vector<SiftKeypoint> &row : perRow)
        keypoints.insert(keypoints.end(), row.begin(), row.end());
    return keypoints;
}

} // namespace Vorel
