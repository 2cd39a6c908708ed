// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Gaussian, difference and gradient pyramids of the SIFT scale space.
#include <cmath>

#include "align/sift.h"
#include "align/siftkernels.h"
#include "align/siftstages.h"
#include "core/parallelrows.h"

namespace Vorel {

namespace {
constexpr float firstSigma = 1.2489997f; // sqrt(1.6^2 - 1^2): the doubled input carries blur 1.0
constexpr float baseSigma = 1.6f;        // blur of layer 0 of every octave, in octave pixels
constexpr float radiusSigmas = 3.0f;     // kernel radius in standard deviations
constexpr int decimatedLayer = 3;        // Gaussian layer (blur 2 x 1.6) that seeds the next octave
} // namespace

std::vector<std::vector<float>> siftBlurKernels()
{
    const float k = std::exp2(1.0f / 3.0f);
    std::vector<std::vector<float>> kernels;
    for (int i = 0; i < siftGaussianLayers; ++i) {
        float sigma = firstSigma;
        if (i > 0) {
            const float previous = baseSigma * std::pow(k, static_cast<float>(i - 1));
            const float total = k * previous;
            sigma = std::sqrt(total * total - previous * previous);
        }
        const int radius = std::max(static_cast<int>(std::ceil(radiusSigmas * sigma)), 1);
        std::vector<float> taps;
        float sum = 0;
        for (int x = -radius; x <= radius; ++x) {
            const float q = static_cast<float>(x) / sigma;
            taps.push_back(std::exp(-0.5f * q * q));
            sum += taps.back();
        }
        for (float &tap : taps)
            tap /= sum;
        kernels.push_back(std::move(taps));
    }
    return kernels;
}

SiftImage<float> gaussianBlur(const SiftImage<float> &image, const std::vector<float> &kernel,
                              SiftImage<float> &scratch)
{
    // The scratch buffer only grows, so one allocation serves every blur of a pyramid.
    scratch.w = image.h;
    scratch.h = image.w;
    scratch.data.resize(image.data.size());
    blurPassTransposed(image.data.data(), image.w, image.h, kernel, scratch.data.data());
    SiftImage<float> out(image.w, image.h);
    blurPassTransposed(scratch.data.data(), scratch.w, scratch.h, kernel, out.data.data());
    return out;
}

SiftPyramid gaussianPyramid(const SiftImage<uint8_t> &doubledInput, int octaves)
{
    const std::vector<std::vector<float>> kernels = siftBlurKernels();
    SiftPyramid g(static_cast<size_t>(octaves * siftGaussianLayers));
    SiftImage<float> scratch;
    for (int o = 0; o < octaves; ++o) {
        SiftImage<float> &first = g[o * siftGaussianLayers];
        if (o == 0) {
            SiftImage<float> input(doubledInput.w, doubledInput.h);
            std::copy(doubledInput.data.begin(), doubledInput.data.end(), input.data.begin());
            first = gaussianBlur(input, kernels[0], scratch);
        } else {
            first = decimateHalf(g[(o - 1) * siftGaussianLayers + decimatedLayer]);
        }
        for (int l = 1; l < siftGaussianLayers; ++l)
            g[o * siftGaussianLayers + l] = gaussianBlur(g[o * siftGaussianLayers + l - 1], kernels[l], scratch);
    }
    return g;
}

SiftPyramid differencePyramid(const SiftPyramid &gaussians, int octaves)
{
    SiftPyramid d(static_cast<size_t>(octaves * siftDifferenceLayers));
    for (int o = 0; o < octaves; ++o)
        for (int l = 0; l < siftDifferenceLayers; ++l) {
            const SiftImage<float> &lower = gaussians[o * siftGaussianLayers + l];
            const SiftImage<float> &upper = gaussians[o * siftGaussianLayers + l + 1];
            SiftImage<float> &out = d[o * siftDifferenceLayers + l];
            out = SiftImage<float>(lower.w, lower.h);
            parallelRows(out.h, [&](int64_t first, int64_t end) {
                for (size_t i = static_cast<size_t>(first * out.w); i < static_cast<size_t>(end * out.w); ++i)
                    out.data[i] = upper.data[i] - lower.data[i];
            });
        }
    return d;
}

SiftGradients gradientPyramids(const SiftPyramid &gaussians, int octaves)
{
    SiftGradients gradients;
    gradients.magnitude.resize(gaussians.size());
    gradients.orientation.resize(gaussians.size());
    for (int o = 0; o < octaves; ++o)
        for (int l = 1; l <= 3; ++l) {
            const size_t i = static_cast<size_t>(o * siftGaussianLayers + l);
            gradientImages(gaussians[i], gradients.magnitude[i], gradients.orientation[i]);
        }
    return gradients;
}

} // namespace Vorel
