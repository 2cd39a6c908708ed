// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The camera's Exif of a source picture, carried into every picture written from it. An Exif
// block here is the TIFF structure itself ("II*\0" or "MM\0*" first), without "Exif\0\0".
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

namespace Vorel {

// The Exif block of a JPEG or MPO (first picture), TIFF, PNG (eXIf) or HEIC (primary image)
// file, read from its header only; empty when there is none or the file cannot be read.
QByteArray readCameraExif(const QString &path);

// `source` rewritten for a picture of `size` upright sRGB pixels made from it: every camera
// tag stays, Orientation becomes 1, the pixel dimensions become `size`, the colour space
// says sRGB, and the thumbnail, MP tags and the source's file-structure tags go. The result
// always fits one JPEG APP1 segment (a maker note that would not is dropped). Empty when
// `source` is empty or unreadable.
QByteArray exifForWrittenPicture(const QByteArray &source, QSize size);

// Largest Exif block one JPEG APP1 segment holds after its "Exif\0\0" prefix.
inline constexpr qsizetype maxExifBlockSize = 65533 - 6;

} // namespace Vorel
