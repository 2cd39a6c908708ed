// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Value types of the automatic alignment: SIFT images and keypoints, descriptor matches and
// the point correspondences the estimator works on.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "align/scratchallocator.h"

namespace Vorel {

// Row-major image, element (row, col) at data[row * w + col]; empty data when w or h is 0.
// Pixel values stay on the 0..255 scale in every stage. A new image's elements are
// uninitialised: whoever makes one writes all of it.
template <typename T> struct SiftImage {
    int64_t w = 0;
    int64_t h = 0;
    std::vector<T, ScratchAllocator<T>> data;

    SiftImage() = default;
    SiftImage(int64_t width, int64_t height)
        : w(width), h(height), data(static_cast<size_t>(width > 0 && height > 0 ? width * height : 0)) {}

    T *row(int64_t r) { return data.data() + r * w; }
    const T *row(int64_t r) const { return data.data() + r * w; }
    T at(int64_t r, int64_t c) const { return data[static_cast<size_t>(r * w + c)]; }
};

inline constexpr int siftDescriptorLength = 128;

// One orientation of a refined scale-space extremum.
struct SiftKeypoint {
    int64_t octave = 0; // 0 = the double-size octave
    int64_t layer = 0;  // difference layer 1..3 of the extremum, never changed by refinement
    float rlayer = 0;   // layer + sub-layer offset
    float r = 0;        // row in input pixels: ri * 2^(octave-1)
    float c = 0;        // column in input pixels: ci * 2^(octave-1)
    float scale = 0;    // layerScale * 2^(octave-1)
    float ri = 0;       // refined row in the octave's own grid
    float ci = 0;       // refined column in the octave's own grid
    float layerScale = 0; // 1.6 * 2^(rlayer/3), in octave pixels
    float ori = 0;      // radians in [0, 2pi), from the column axis towards the row axis
    float mag = 0;      // height of the smoothed histogram peak
    std::array<float, siftDescriptorLength> descriptors{}; // length 512 once filled
};

// One accepted descriptor match, in analysis-size pixels.
struct MatchPair {
    float r1 = 0;
    float c1 = 0;
    float r2 = 0;
    float c2 = 0;
};

// One correspondence in full-resolution pixels, origin at the image centre.
struct PointData {
    int64_t nF = 0; // 0 = inlier, 1 = rejected by a filter
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;
};

} // namespace Vorel
