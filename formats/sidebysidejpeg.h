// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// One JPEG of two pictures side by side, encoded on both cores: each picture is encoded on
// its own with a restart marker after every row of blocks, and the rows are interleaved.
#pragma once

#include <optional>

#include <QByteArray>
#include <QImage>

namespace Vorel {

// The baseline 4:2:0 JPEG of `first | second` at `quality`, decoding to exactly the pixels of
// compressJpeg of the composed picture. Encoded in parallel when the heights agree, the first
// width is a multiple of 16 and the second needs as many 16-pixel block columns; otherwise
// the picture is composed and encoded in one piece. None when the heights differ or
// encoding fails.
std::optional<QByteArray> encodeSideBySideJpeg(const QImage &first, const QImage &second, int quality);

} // namespace Vorel
