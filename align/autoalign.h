// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Automatic position alignment of a stereo pair: keypoints of reduced gray copies are
// matched, the correction estimated, and both full-size images warped by it.
#pragma once

#include <optional>

#include <QImage>

#include "align/alignmentestimator.h"

namespace Vorel {

// The analysis stage: keypoints of both images reduced to the analysis size, matched, as
// correspondences in full-resolution pixels about the centre (at most 10000). None when an
// image is null or the sizes differ.
std::optional<AlignmentEstimator> findCorrespondences(const QImage &left, const QImage &right);

// The aligned pair side by side (left half, right half), cut to the area both images
// cover. None when an image is null, the sizes differ, nothing matches or the correction
// cannot be applied. Runs synchronously; independent runs may overlap on different threads.
std::optional<QImage> autoAlign(const QImage &left, const QImage &right);

} // namespace Vorel
