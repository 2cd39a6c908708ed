// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Orientation tag surgery on a JPEG file: only the Exif APP1 segment changes; the other
// segments and the entropy-coded data are carried over byte for byte.
#pragma once

#include <optional>

#include <QByteArray>

namespace Vorel {

// The file with the Orientation of its first Exif segment set to `orientation`. Without an
// Exif segment, one holding only the tag is inserted after SOI (and after a JFIF APP0).
// None when the markers before the first scan are malformed, the Exif block is malformed,
// or the grown segment would exceed the 64 KiB segment limit.
std::optional<QByteArray> jpegWithOrientation(const QByteArray &file, int orientation);

} // namespace Vorel
