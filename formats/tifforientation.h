// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Orientation tag surgery on a TIFF structure (a TIFF file, or the TIFF block of an Exif
// segment or chunk): every byte except the Orientation entry of IFD0 stays where it was.
#pragma once

#include <optional>

#include <QByteArray>

namespace Vorel {

// The block with IFD0's Orientation (tag 274) set to `orientation` as one SHORT. An existing
// entry is overwritten in place; without one, a copy of IFD0 with the tag added is appended
// and the header points to it (all other offsets stay valid because nothing moves).
// None when the block is not a well-formed classic TIFF: bad header, IFDs or entry data
// outside the block, an IFD chain that loops.
std::optional<QByteArray> tiffWithOrientation(const QByteArray &tiff, int orientation);

// The smallest TIFF block that carries only IFD0 with the Orientation tag (big-endian).
QByteArray minimalTiffWithOrientation(int orientation);

} // namespace Vorel
