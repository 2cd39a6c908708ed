// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/borderlayout.h"

namespace Vorel {

// Slots, with b the border and t the band above a row:
//
//   sbs   |b| L |b| R |b|                  one row, top at t
//   lrl   |b| L |b| R |b| L |b|            one row, top at t
//   lrrl  |b| L |b| R |b|                  row 1, top at t
//         |b| R |b| L |b|                  row 2, top at 2t + h (mirrored)
//
// The outer border is b on the left, right and bottom; each dot sits in the middle of the
// band above its slot.
BorderLayout borderLayout(double w, double h, const ImageBorderSettings &settings)
{
    BorderLayout layout;
    const double b = settings.useBorder ? settings.borderWidthPercent * w / 100 : 0;
    const double t = settings.useBorder && settings.useFusionDots ? 2 * b : b;
    layout.border = b;
    layout.topBand = t;

    const double firstX = b;
    const double secondX = 2 * b + w;
    const double firstDotY = t / 2;
    switch (settings.layoutKind) {
    case BorderLayoutKind::sbs:
        layout.width = 2 * w + 3 * b;
        layout.height = t + h + b;
        layout.placements = {{firstX, t, false, firstDotY}, {secondX, t, true, firstDotY}};
        break;
    case BorderLayoutKind::lrl:
        layout.width = 3 * w + 4 * b;
        layout.height = t + h + b;
        layout.placements = {
            {firstX, t, false, firstDotY}, {secondX, t, true, firstDotY}, {2 * w + 3 * b, t, false, firstDotY}};
        break;
    case BorderLayoutKind::lrrl: {
        layout.width = 2 * w + 3 * b;
        layout.height = 2 * t + 2 * h + b;
        const double secondRowY = 2 * t + h;
        const double secondDotY = t + h + t / 2;
        layout.placements = {{firstX, t, false, firstDotY},
                             {secondX, t, true, firstDotY},
                             {firstX, secondRowY, true, secondDotY},
                             {secondX, secondRowY, false, secondDotY}};
        break;
    }
    }
    return layout;
}

} // namespace Vorel
