// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The SIFT scale space: Gaussian layers by incremental blur, their differences and the
// gradient images, walked octave by octave.
#include <algorithm>
#include <cmath>

#include "align/siftimagepool.h"
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

namespace {

// One walk's working images: every image comes from the pool and goes back as soon as the
// walk has no further use for it.
class ScaleSpaceWalk {
public:
    ScaleSpaceWalk(int octaves, const std::function<void(const SiftScaleLayer &)> &visit)
        : octaves_(octaves), visit_(visit)
    {
    }

    void run(const SiftImage<uint8_t> &doubledInput)
    {
        for (int o = 0; o < octaves_; ++o) {
            if (o == 0) {
                SiftImage<float> input = pool_.take(doubledInput.w, doubledInput.h);
                std::copy(doubledInput.data.begin(), doubledInput.data.end(), input.data.begin());
                g_[0] = blur(input, kernels_[0]);
                pool_.recycle(input);
            } else {
                g_[0] = decimated(g_[decimatedLayer]);
                pool_.recycle(g_[decimatedLayer]);
            }
            walkOctave(o);
        }
        pool_.recycle(g_[decimatedLayer]);
    }

private:
    // Layer l of the octave is blurred from layer l - 1; once the difference above layer s + 1
    // exists, layer s can be visited. Layer 3 stays to seed the next octave.
    void walkOctave(int o)
    {
        for (int l = 1; l < siftGaussianLayers; ++l) {
            g_[l] = blur(g_[l - 1], kernels_[l]);
            d_[l - 1] = difference(g_[l], g_[l - 1]);
            const int s = l - 2;
            if (s >= 1 && s <= 3) {
                visit_(SiftScaleLayer{o, s, d_[s - 1], d_[s], d_[s + 1], gradients_[s]});
                pool_.recycle(d_[s - 1]);
                pool_.recycle(gradients_[s].magnitude);
                pool_.recycle(gradients_[s].orientation);
            }
            if (l - 1 >= 1 && l - 1 <= 3) {
                SiftGradients &gradients = gradients_[l - 1];
                gradients.magnitude = pool_.take(g_[l - 1].w, g_[l - 1].h);
                gradients.orientation = pool_.take(g_[l - 1].w, g_[l - 1].h);
                gradientImages(g_[l - 1], gradients.magnitude, gradients.orientation);
            }
            if (l - 1 != decimatedLayer)
                pool_.recycle(g_[l - 1]);
        }
        pool_.recycle(g_[siftGaussianLayers - 1]);
        for (int d = siftDifferenceLayers - 2; d < siftDifferenceLayers; ++d)
            pool_.recycle(d_[d]);
    }

    SiftImage<float> blur(const SiftImage<float> &image, const std::vector<float> &kernel)
    {
        SiftImage<float> rows = pool_.take(image.w, image.h);
        blurRows(image.data.data(), image.w, image.h, kernel, rows.data.data());
        SiftImage<float> out = pool_.take(image.w, image.h);
        blurColumns(rows.data.data(), image.w, image.h, kernel, out.data.data());
        pool_.recycle(rows);
        return out;
    }

    SiftImage<float> difference(const SiftImage<float> &upper, const SiftImage<float> &lower)
    {
        SiftImage<float> out = pool_.take(lower.w, lower.h);
        parallelRows(out.h, [&](int64_t first, int64_t end) {
            for (size_t i = static_cast<size_t>(first * out.w); i < static_cast<size_t>(end * out.w); ++i)
                out.data[i] = upper.data[i] - lower.data[i];
        });
        return out;
    }

    SiftImage<float> decimated(const SiftImage<float> &image)
    {
        SiftImage<float> out = pool_.take(image.w / 2, image.h / 2);
        for (int64_t r = 0; r < out.h; ++r) {
            const float *in = image.row(2 * r);
            float *o = out.row(r);
            for (int64_t c = 0; c < out.w; ++c)
                o[c] = in[2 * c];
        }
        return out;
    }

    const int octaves_;
    const std::function<void(const SiftScaleLayer &)> &visit_;
    const std::vector<std::vector<float>> kernels_ = siftBlurKernels();
    SiftImagePool pool_;
    SiftImage<float> g_[siftGaussianLayers];
    SiftImage<float> d_[siftDifferenceLayers];
    SiftGradients gradients_[4]; // layers 1..3
};

} // namespace

void walkScaleSpace(const SiftImage<uint8_t> &doubledInput, int octaves,
                    const std::function<void(const SiftScaleLayer &)> &visit)
{
    ScaleSpaceWalk(octaves, visit).run(doubledInput);
}

} // namespace Vorel
