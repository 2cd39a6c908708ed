// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Geometry of the bordered picture: canvas size, border widths and where each image slot
// and its fusion dot go. All lengths in pixels, unrounded, y measured down from the top.
#pragma once

#include <vector>

#include "border/imagebordersettings.h"

namespace Vorel {

struct Placement {
    double x = 0; // left edge of the slot
    double y = 0; // top edge of the slot
    bool isRight = false;
    double fusionDotY = -1; // centre of the slot's dot; negative: no dot
};

struct BorderLayout {
    double border = 0;    // b: outer border and gap between images
    double topBand = 0;   // t: band above each row (2b when it carries dots)
    double width = 0;     // canvas width before truncation
    double height = 0;    // canvas height before truncation
    std::vector<Placement> placements; // in drawing order
};

// The layout for images of w by h pixels (the left image's size).
BorderLayout borderLayout(double w, double h, const ImageBorderSettings &settings);

} // namespace Vorel
