// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Putting an Exif block (TIFF structure, see cameraexif.h) into a freshly encoded PNG or TIFF
// file. JPEG headers are assembled in jpegsegments.h; HEIC takes an Exif item from libheif.
#pragma once

#include <optional>

#include <QByteArray>

namespace Vorel {

// The PNG with an eXIf chunk before its first IDAT; none when it has no IDAT.
std::optional<QByteArray> pngWithExif(const QByteArray &png, const QByteArray &exif);

// The TIFF with the tags of `exif` added to its own; its structure tags (size, strips,
// samples) stay as the encoder wrote them. None when the TIFF cannot be rewritten.
std::optional<QByteArray> tiffWithExif(const QByteArray &tiff, const QByteArray &exif);

} // namespace Vorel
