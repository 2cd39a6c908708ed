// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Orientation tag surgery on a PNG file: the eXIf chunk (and an ImageMagick orNT chunk, when
// present) change, with their CRCs; every other chunk is carried over byte for byte.
#pragma once

#include <optional>

#include <QByteArray>

namespace Vorel {

// The file with the Orientation in its eXIf chunk set to `orientation`; without an eXIf
// chunk, one holding only the tag is inserted before the first IDAT. None when the chunk
// structure is broken (bad signature, lengths past the end, CRC mismatch, no IHDR/IDAT/IEND)
// or the Exif block is malformed.
std::optional<QByteArray> pngWithOrientation(const QByteArray &file, int orientation);

} // namespace Vorel
