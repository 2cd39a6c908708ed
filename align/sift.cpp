// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// SIFT keypoints and descriptors (difference-of-Gaussian scale space, Lowe's method with
// this program's own parameters). All arithmetic in 32-bit floats, pixel values on the
// 0..255 scale throughout. Stages, in calling order:
//
//  1. Octaves: n = trunc(log2f(min(w, h))); none below 3, else nOct = n - 2. Octave 0 is the
//     input enlarged twice, each later octave half the previous one.
//  2. Base image: 2x bilinear upsampling, pixel (R, C) samples (R*0.5, C*0.5); the bottom
//     row and right column fall back to the top-left sample tl (bottom-right too, even on the
//     last column): (1-fr)(1-fc) tl + fr(1-fc) bl + (1-fr) fc tr + fr fc br, truncated.
//  3. Kernels (siftscalespace.cpp): sigma0 = sqrt(1.6^2 - 1) = 1.2489997, k = exp2f(1/3);
//     sigma_i = sqrt((k sp)^2 - sp^2) with sp = 1.6 k^(i-1); radius max(ceil(3 sigma), 1);
//     taps exp(-0.5 (x/sigma)^2) divided by their sum.
//  4. Blur: each row edge-replicated by the radius and correlated, then each column likewise
//     (siftkernels.cpp). Correlating columns gives the bits of correlating the rows of the
//     transposed image, so nothing is transposed.
//  5. Gaussians: G[0][0] = blur0(base); G[o][l] = blur_l(G[o][l-1]); G[o][0] = every second
//     pixel of G[o-1][3]. Differences D[o][d] = G[o][d+1] - G[o][d]. The walk keeps only
//     the images of the layers in reach, so a run needs some 9 images of the largest
//     octave rather than whole pyramids.
//  6. Gradients of layers 1..3 with clamped neighbours, dr and dc plain differences:
//     magnitude s * invsqrt(s), s = dr^2 + dc^2 (0 below 1e-8), invsqrt by the bit trick
//     0x5F3759DF - bits/2 and two Newton steps; orientation by the polynomial atan2
//     base + t (0.1821 t^2 - 0.9675), mirrored to 2pi - phi for dr < 0.
//  7. Extrema (siftdetector.cpp), each layer as soon as the layer above it exists: |D| >= 2.4,
//     strictly above or below all 26 neighbours, 5-pixel border; refined on the fixed layer by
//     offset = -H^-1 g, at most 5 moves of one pixel (step when |x| >= 0.6); rejected for
//     |x| >= 1.5, positions outside the octave, contrast |D + 0.5 g.x| < 3, or edge response
//     tr^2/det >= 12.1.
//  8. Orientation: 36-bin histogram of Gaussian-weighted magnitudes (sigma 1.5 layerScale,
//     radius 4.5 layerScale), bin position f = ori*36/2pi - 0.5 kept unwrapped in bin 0 for
//     -0.5 < f < 0; smoothed by (1,4,6,4,1)/16; a keypoint per local peak above 0.8 of the
//     maximum, interpolated by a parabola.
//  9. Descriptor (siftdescriptor.cpp), right after the layer's detection: rotated 4x4 cells
//     of 3 layerScale pixels, 8 angle bins, trilinear votes into a 6x6x10 accumulator, slot 8
//     replaces slot 0 on read-out, clipped at 0.2 of the norm and scaled to length 512.
#include "align/sift.h"

#include <algorithm>
#include <cmath>

#include "align/avx2clones.h"
#include "align/siftstages.h"
#include "core/parallelrows.h"

namespace Vorel {

namespace {
constexpr int fewestOctaveLevels = 3; // log2 of the smallest side that still gives one octave
constexpr int octavesBelowLevels = 2; // octaves = log2(min side) - this
} // namespace

int siftOctaveCount(int64_t w, int64_t h)
{
    const int64_t side = std::min(w, h);
    if (side <= 0)
        return 0;
    const int n = static_cast<int>(std::log2(static_cast<float>(side)));
    return n < fewestOctaveLevels ? 0 : n - octavesBelowLevels;
}

namespace {

// One output sample of the 2x enlargement: (1-fr)(1-fc) tl + fr(1-fc) bl + (1-fr) fc tr + fr fc br,
// truncated toward zero.
inline uint8_t bilinearSample(float fr, float fc, float tl, float bl, float tr, float br)
{
    const float v = (1 - fr) * (1 - fc) * tl + fr * (1 - fc) * bl + (1 - fr) * fc * tr + fr * fc * br;
    return static_cast<uint8_t>(std::clamp(v, 0.0f, 255.0f));
}

// Output row R = 2 r0 (fr = 0) or 2 r0 + 1 (fr = 0.5) from input rows `top` and `bottom`
// (bottom = top on the last row). Output columns 2 c0 and 2 c0 + 1 sample at fc = 0 and 0.5.
VOREL_AVX2_CLONES void upsampleRow(
    const uint8_t *top, const uint8_t *bottom, bool hasBelow, float fr, int64_t w, uint8_t *out)
{
    for (int64_t c0 = 0; c0 < w - 1; ++c0) {
        const float tl = top[c0], bl = bottom[c0], tr = top[c0 + 1];
        const float br = hasBelow ? bottom[c0 + 1] : tl;
        out[2 * c0] = bilinearSample(fr, 0.0f, tl, bl, tr, br);
        out[2 * c0 + 1] = bilinearSample(fr, 0.5f, tl, bl, tr, br);
    }
    // The last column has no right neighbour: tr and br fall back to tl.
    const float tl = top[w - 1], bl = bottom[w - 1];
    out[2 * w - 2] = bilinearSample(fr, 0.0f, tl, bl, tl, tl);
    out[2 * w - 1] = bilinearSample(fr, 0.5f, tl, bl, tl, tl);
}

} // namespace

SiftImage<uint8_t> upsampleTwice(const SiftImage<uint8_t> &image)
{
    const int64_t w = image.w, h = image.h;
    SiftImage<uint8_t> out(2 * w, 2 * h);
    if (w <= 0 || h <= 0)
        return out;
    parallelRows(out.h, [&](int64_t first, int64_t end) {
        for (int64_t R = first; R < end; ++R) {
            const int64_t r0 = R / 2; // trunc(R * 0.5), and fr = R * 0.5 - r0 is 0 or 0.5
            const bool hasBelow = r0 < h - 1;
            const uint8_t *top = image.row(r0);
            upsampleRow(top, hasBelow ? image.row(r0 + 1) : top, hasBelow, R % 2 ? 0.5f : 0.0f, w, out.row(R));
        }
    });
    return out;
}

std::vector<SiftKeypoint> computeSiftFeatures(const SiftImage<uint8_t> &image)
{
    const int octaves = siftOctaveCount(image.w, image.h);
    if (octaves == 0 || image.data.size() < static_cast<size_t>(image.w * image.h))
        return {};
    // Only the doubled image feeds the scale space; later octaves come from decimated Gaussians.
    std::vector<SiftKeypoint> keypoints;
    walkScaleSpace(upsampleTwice(image), octaves, [&](const SiftScaleLayer &layer) {
        const std::vector<SiftKeypoint> found = detectKeypoints(layer);
        const size_t first = keypoints.size();
        keypoints.insert(keypoints.end(), found.begin(), found.end());
        computeDescriptors(std::span(keypoints).subspan(first), layer.gradients);
    });
    return keypoints;
}

} // namespace Vorel
