// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The stages of the SIFT pipeline between the input image and the keypoint list, each
// taking and returning whole pyramids. Flat pyramids: Gaussian, gradient images at
// octave * 6 + layer, differences at octave * 5 + layer.
#pragma once

#include <vector>

#include "align/sifttypes.h"

namespace Vorel {

inline constexpr int siftGaussianLayers = 6;   // 3 intervals + 3
inline constexpr int siftDifferenceLayers = 5; // adjacent Gaussian layers subtracted

using SiftPyramid = std::vector<SiftImage<float>>;

struct SiftGradients {
    SiftPyramid magnitude;   // only layers 1..3 filled, others empty
    SiftPyramid orientation; // radians, 0..2pi
};

// The 6 normalised Gaussian kernels, layer 0 first.
std::vector<std::vector<float>> siftBlurKernels();
// `scratch` holds the transposed intermediate; reusing it across blurs saves allocations.
SiftImage<float> gaussianBlur(const SiftImage<float> &image, const std::vector<float> &kernel,
                              SiftImage<float> &scratch);

SiftPyramid gaussianPyramid(const SiftImage<uint8_t> &doubledInput, int octaves);
SiftPyramid differencePyramid(const SiftPyramid &gaussians, int octaves);
SiftGradients gradientPyramids(const SiftPyramid &gaussians, int octaves);

// Extrema of the difference pyramid, refined and given their orientations, in detection
// order; descriptors still zero.
std::vector<SiftKeypoint> detectKeypoints(const SiftPyramid &differences, const SiftGradients &gradients,
                                          int octaves);
void computeDescriptors(std::vector<SiftKeypoint> &keypoints, const SiftGradients &gradients);

} // namespace Vorel
