// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Paints any rectangle of the bordered picture with the painter: background, images clipped
// to their rounded slots, fusion dots.
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

#include "border/borderlayout.h"
#include "border/imagebordersettings.h"

namespace Vorel {

struct BorderScene {
    const BorderLayout &layout;
    QColor background;
    const QImage &left;  // premultiplied ARGB or RGB32
    const QImage &right; // the same
    const ImageBorderSettings &settings;
    double w; // slot size: the left image's
    double h;
};

// Paints `region` of the canvas exactly as one painter over the whole canvas would.
void paintBorderRegion(QImage &canvas, const QRect &region, const BorderScene &scene);

} // namespace Vorel
