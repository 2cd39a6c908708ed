// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The stages of the SIFT pipeline between the input image and the keypoint list. The scale
// space is walked octave by octave and layer by layer, keeping only the images the current
// difference layer needs; detection and descriptors run on each layer as it is reached, which
// gives the keypoints in the same order as whole pyramids would.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "align/sifttypes.h"

namespace Vorel {

inline constexpr int siftGaussianLayers = 6;   // 3 intervals + 3
inline constexpr int siftDifferenceLayers = 5; // adjacent Gaussian layers subtracted

// Gradient magnitude and orientation (radians, 0..2pi) of one Gaussian layer.
struct SiftGradients {
    SiftImage<float> magnitude;
    SiftImage<float> orientation;
};

// Difference layer `layer` (1..3) of `octave` with its neighbours across scale, and the
// gradients of the Gaussian layer with the same index.
struct SiftScaleLayer {
    int octave;
    int layer;
    const SiftImage<float> &below;
    const SiftImage<float> &at;
    const SiftImage<float> &above;
    const SiftGradients &gradients;
};

// The 6 normalised Gaussian kernels, layer 0 first.
std::vector<std::vector<float>> siftBlurKernels();

// Calls `visit` for every octave and difference layers 1, 2, 3, in that order.
void walkScaleSpace(const SiftImage<uint8_t> &doubledInput, int octaves,
                    const std::function<void(const SiftScaleLayer &)> &visit);

// Refined extrema of one layer with their orientations, in detection order; descriptors
// still zero.
std::vector<SiftKeypoint> detectKeypoints(const SiftScaleLayer &layer);
void computeDescriptors(std::span<SiftKeypoint> keypoints, const SiftGradients &gradients);

} // namespace Vorel
