// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Where each format keeps the colour space of its pixels, read as an ICC profile:
//   JPEG  APP2 "ICC_PROFILE" chunks, joined by their sequence numbers; without them, a camera's
//         Exif "Adobe RGB" (InteropIndex "R03", ColorSpace not sRGB)
//   PNG   iCCP; an sRGB chunk; else cHRM primaries and gAMA exponent
//   TIFF  tag 34675 of the first IFD
//   HEIF  colr "prof"/"rICC" as ICC, colr "nclx" as primaries and transfer characteristics
// Empty means sRGB: no statement at all, an sRGB statement, or one that is incomplete.
#pragma once

#include <QByteArray>

struct heif_image_handle;

namespace Vorel {

// For JPEG (an MPO picture too), PNG and TIFF bytes; empty for other formats.
QByteArray fileColourProfile(const QByteArray &fileBytes);

QByteArray heifColourProfile(const heif_image_handle *handle);

} // namespace Vorel
