// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the EXIF orientation of a JPEG, TIFF or PNG file and turning a picture upright by it.
#pragma once

#include <QByteArray>
#include <QImage>

namespace Vorel {

// The Orientation tag of the file's EXIF data (1..8), or 1 ("as stored") when there is none,
// it is out of range, or the metadata cannot be read.
int readExifOrientation(const QByteArray &fileBytes);

// The picture as the standard orientation values describe it:
//   1 as stored        2 mirrored left-right   3 turned 180      4 mirrored top-bottom
//   5 transposed       6 turned 90 clockwise   7 transversed     8 turned 90 counter-clockwise
// (5 = mirrored left-right, then turned 90 counter-clockwise; 7 = mirrored, then 90 clockwise.)
QImage applyExifOrientation(const QImage &image, int orientation);

} // namespace Vorel
