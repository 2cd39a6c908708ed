// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The colour under the pointer when an image is shown fitted (aspect kept, centred) in a
// view: the arithmetic of the colour picker, kept apart from its widgets.
#pragma once

#include <optional>

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QPointF>
#include <QSize>
#include <QSizeF>

namespace Vorel {

// `pointer` is measured from the view's bottom-left corner, y up. Returns the pixel (column,
// row from the top) under it, or none outside the fitted image.
std::optional<QPoint> eyedropperPixel(QPointF pointer, QSizeF viewSize, QSize imageSize);

std::optional<QColor> eyedropperColor(const QImage &image, QPointF pointer, QSizeF viewSize);

} // namespace Vorel
