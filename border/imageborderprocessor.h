// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Frames a stereo pair: the images laid out on a coloured canvas (side by side, a row of
// three or a 2 by 2 grid) with optional rounded corners and a fusion dot above each image.
#pragma once

#include <optional>

#include <QImage>

#include "border/imagebordersettings.h"

namespace Vorel {

// Stateless; compose may run on any thread.
class ImageBorderProcessor {
public:
    // Pass the adjusted pair. The canvas follows the left image's size; the right image is
    // scaled into slots of that size. Returns a premultiplied ARGB image of the truncated
    // canvas size, or none when the left image is empty or the canvas cannot be made.
    std::optional<QImage> compose(const QImage &left, const QImage &right, const ImageBorderSettings &settings) const;
};

} // namespace Vorel
