// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// JPEG decoding and encoding straight between TurboJPEG and 32-bit QImage pixels, without
// intermediate copies.
#pragma once

#include <optional>

#include <QByteArray>
#include <QImage>

namespace Vorel {

// Opaque Format_RGB32 image, or none for data TurboJPEG cannot decode (corrupt data, or
// colour spaces it does not convert, which the caller may hand to another decoder).
std::optional<QImage> decodeJpeg(const char *data, qsizetype size);
// Baseline JPEG at the given quality (1..100); transparent pixels are written as drawn over black.
std::optional<QByteArray> encodeJpeg(const QImage &image, int quality);

} // namespace Vorel
