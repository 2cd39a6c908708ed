// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Orientation surgery on a HEIC/HEIF file. HEIF readers orient by the primary image's irot
// (rotation) and imir (mirror) properties, so those are set to express the EXIF orientation
// relative to the coded pixels; the Orientation tag of its Exif item and the XMP copy follow.
#pragma once

#include <optional>

#include <QByteArray>

namespace Vorel {

// The irot/imir pair that shows coded pixels the way EXIF orientation 1..8 does.
// Applied in this order: rotate, then mirror.
struct HeifTransform {
    int anticlockwiseQuarterTurns; // irot angle, 0..3
    int mirrorAxis; // imir axis: -1 none, 0 top-bottom flip, 1 left-right flip
};
HeifTransform heifTransformForOrientation(int orientation);

// The file with the primary image (and its thumbnails) transformed for `orientation`; only
// the meta box changes, image data is carried over byte for byte. None when the boxes are
// malformed or the change cannot be expressed (an item location that cannot be moved).
std::optional<QByteArray> heifWithOrientation(const QByteArray &file, int orientation);

} // namespace Vorel
