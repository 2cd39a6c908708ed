// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// JPEG marker segments, and encoder output with our own header segments put in front.
#pragma once

#include <optional>

#include <QByteArray>
#include <QByteArrayView>

class QIODevice;

namespace Vorel {

// A segment holds at most this many payload bytes (its length field counts itself too).
inline constexpr qsizetype maxSegmentPayload = 0xFFFF - 2;
inline constexpr quint8 markerApp1 = 0xE1;
inline constexpr quint8 markerApp2 = 0xE2;
inline constexpr quint8 markerApp3 = 0xE3;
extern const QByteArray exifSignature; // "Exif\0\0", in front of the TIFF block of an Exif APP1
extern const QByteArray mpfSignature; // "MPF\0", in front of the MP index of an APP2

// The payload of the first `marker` segment whose payload starts with `signature`, read from
// a JPEG's headers (up to the first scan) without reading other payloads; none when there is
// no such segment or the headers are broken.
std::optional<QByteArray> readJpegSegment(QIODevice &jpeg, quint8 marker, QByteArrayView signature);

// FF marker | u16 big-endian length (payload + 2) | payload. Empty when the payload is too long.
QByteArray jpegSegment(quint8 marker, QByteArrayView payload);
// The APP1 segment of an Exif block; empty for an empty or too long block.
QByteArray exifSegment(QByteArrayView tiff);

// What follows the SOI and a leading JFIF APP0 of an encoder's JPEG.
QByteArrayView jpegAfterJfif(QByteArrayView encoded);

// SOI | APP1 Exif (when `tiff` is not empty) | `headers` | the rest of `encoded`. An Exif
// segment takes the JFIF APP0's place right after SOI, as in camera files; without one the
// JFIF APP0 stays first, as JFIF readers expect.
QByteArray jpegWithHeaders(QByteArrayView encoded, QByteArrayView tiff, QByteArrayView headers = {});

} // namespace Vorel
