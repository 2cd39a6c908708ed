// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The pair laid out on one picture for displays that take both views at once: over/under (full
// or half height), interlaced rows or columns, and checkerboard. Every output pixel is an
// unchanged pixel of one view.
#pragma once

#include <optional>

#include <QImage>

#include "core/stereotypes.h"

namespace Vorel {

enum class StereoLayout {
    overUnder,        // first on top of second, full height
    halfOverUnder,    // the same, each view squeezed to height x 0.5 truncated
    rowInterlaced,    // first on the even rows (0, 2, ...), second on the odd ones
    columnInterlaced, // first on the even columns
    checkerboard,     // first where x + y is even
};

// The layout of two views of equal size; none when the sizes differ or the picture cannot be
// made. Opaque (Format_RGB32) when both views are, premultiplied 32-bit otherwise.
std::optional<QImage> composeLayout(const QImage &first, const QImage &second, StereoLayout layout);
// The layout of the adjusted pair (first and second exchanged when `swapped`), composed from the
// warp's row bands; the same bits as composeLayout of adjustPair's pictures.
std::optional<QImage> composeAdjustedLayout(const QImage &left, const QImage &right,
                                            const StereoAdjustment &adjustment, bool swapped, StereoLayout layout);

} // namespace Vorel
