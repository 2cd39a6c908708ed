// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Bringing a picture to a chosen size: stretched, cropped to the size's shape from the centre,
// or fitted whole onto a black frame. The geometry is shared with the resize sheet's preview.
#pragma once

#include <optional>

#include <QImage>
#include <QSizeF>

namespace Vorel {

// Stored as these integers.
enum class ResizeMode { stretch = 0, cropFit = 1, letterbox = 2 };

// The centred region of `original` with the shape of `width` x `height`.
QSizeF cropFitRegion(const QSizeF &original, int width, int height);
// The size `original` takes when fitted whole into `width` x `height`.
QSizeF letterboxFit(const QSizeF &original, int width, int height);

// The picture at exactly `width` x `height` (smooth scaling); none for an empty picture or a
// size below 1.
std::optional<QImage> resizeImage(const QImage &image, int width, int height, ResizeMode mode);

} // namespace Vorel
