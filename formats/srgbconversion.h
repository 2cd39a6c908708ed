// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Brings decoded pictures into sRGB, the space every later stage works in and every output is
// written in. One 8-bit transform (perceptual intent) is built per distinct profile and kept;
// a profile that moves no sampled colour by more than one level (an sRGB profile whose curves
// are tables, say) counts as sRGB and costs nothing after that first check, and so does a
// profile that cannot be read (the picture still opens).
#pragma once

#include <QByteArray>
#include <QImage>

namespace Vorel {

// `image` with pixels encoded in `iccProfile` (empty: already sRGB), converted to sRGB. The
// result is 32-bit (RGB32, or ARGB32 premultiplied with alpha) when a conversion took place,
// and tagged sRGB when the input carried a colour space of its own.
QImage convertedToSrgb(QImage image, const QByteArray &iccProfile);

} // namespace Vorel
