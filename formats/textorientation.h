// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Orientation copies that some writers keep as text next to the Exif block: the XMP
// tiff:Orientation property and ImageMagick's hex-encoded "Raw profile type exif". Both are
// edited in place without changing their length, so nothing around them moves.
#pragma once

#include <QByteArray>

namespace Vorel {

// The XMP packet with every single-digit tiff:Orientation value (attribute or element form)
// set to `orientation`; unchanged when there is none.
QByteArray xmpWithOrientation(const QByteArray &packet, int orientation);

// The text of an ImageMagick raw Exif profile ("\nexif\n   <length>\n<hex digits>") with the
// Orientation tag of its Exif block set in place; unchanged when the profile is malformed or
// has no tag (its bytes could not be changed without growing it).
QByteArray rawExifProfileWithOrientation(const QByteArray &text, int orientation);

} // namespace Vorel
