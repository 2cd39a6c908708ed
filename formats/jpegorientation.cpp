// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/jpegorientation.h"

#include <vector>

#include "formats/jpegsegments.h"
#include "formats/mpindexgrowth.h"
#include "formats/textorientation.h"
#include "formats/tifforientation.h"

namespace Vorel {

namespace {

// A JPEG is SOI, then marker segments (FF, marker, u16 big-endian length that counts itself,
// payload) up to the first SOS, after which the entropy-coded data follows. Exif lives in
// an APP1 segment whose payload is "Exif\0\0" followed by a TIFF block.
constexpr quint8 markerSoi = 0xD8;
constexpr quint8 markerEoi = 0xD9;
constexpr quint8 markerSos = 0xDA;
constexpr quint8 markerApp0 = 0xE0;
const QByteArray xmpSignature("http://ns.adobe.com/xap/1.0/\0", 29);

struct Segment {
    qsizetype start = -1; // offset of the FF of the marker
    qsizetype length = 0; // the length field: payload + 2
};

struct Layout {
    Segment exif; // the first Exif APP1, start -1 when absent
    std::vector<Segment> xmp; // XMP APP1 segments
    Segment mpf; // the MPO picture index (APP2 "MPF"), start -1 when absent
    qsizetype insertAt = 2; // where a new Exif segment goes: after SOI and any leading APP0
};

bool hasSignature(const QByteArray &file, qsizetype at, qsizetype length, const QByteArray &signature)
{
    return length - 2 >= signature.size() && file.mid(at + 4, signature.size()) == signature;
}

quint8 byteAt(const QByteArray &file, qsizetype at)
{
    return static_cast<quint8>(file[at]);
}

// Reads the markers up to the first SOS; none when a segment runs past the end or the
// file ends before any scan.
std::optional<Layout> readLayout(const QByteArray &file)
{
    const qsizetype size = file.size();
    if (size < 4 || byteAt(file, 0) != 0xFF || byteAt(file, 1) != markerSoi)
        return std::nullopt;
    Layout layout;
    bool leadingApp0 = true;
    qsizetype at = 2;
    while (at + 1 < size) {
        if (byteAt(file, at) != 0xFF)
            return std::nullopt;
        const quint8 marker = byteAt(file, at + 1);
        if (marker == 0xFF) { // fill byte before a marker
            ++at;
            continue;
        }
        if (marker == markerSos)
            return layout;
        if (marker == markerEoi || marker == markerSoi)
            return std::nullopt;
        if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7)) { // standalone markers
            at += 2;
            continue;
        }
        if (at + 4 > size)
            return std::nullopt;
        const qsizetype length = byteAt(file, at + 2) << 8 | byteAt(file, at + 3);
        if (length < 2 || at + 2 + length > size)
            return std::nullopt;
        leadingApp0 = leadingApp0 && marker == markerApp0;
        if (leadingApp0)
            layout.insertAt = at + 2 + length;
        if (marker == markerApp1 && layout.exif.start < 0 && hasSignature(file, at, length, exifSignature))
            layout.exif = {at, length};
        if (marker == markerApp1 && hasSignature(file, at, length, xmpSignature))
            layout.xmp.push_back({at, length});
        if (marker == markerApp2 && layout.mpf.start < 0 && hasSignature(file, at, length, mpfSignature))
            layout.mpf = {at, length};
        at += 2 + length;
    }
    return std::nullopt;
}

} // namespace

std::optional<QByteArray> jpegWithOrientation(const QByteArray &file, int orientation)
{
    const std::optional<Layout> layout = readLayout(file);
    if (!layout)
        return std::nullopt;
    qsizetype replaceFrom = layout->insertAt;
    qsizetype replaceLength = 0;
    QByteArray tiff = minimalTiffWithOrientation(orientation);
    if (layout->exif.start >= 0) {
        const qsizetype tiffStart = layout->exif.start + 4 + exifSignature.size();
        const qsizetype tiffEnd = layout->exif.start + 2 + layout->exif.length;
        const std::optional<QByteArray> edited
            = tiffWithOrientation(file.mid(tiffStart, tiffEnd - tiffStart), orientation);
        if (!edited)
            return std::nullopt;
        tiff = *edited;
        replaceFrom = layout->exif.start;
        replaceLength = 2 + layout->exif.length;
    }
    const QByteArray segment = exifSegment(tiff);
    if (segment.isEmpty()) // too long for one segment
        return std::nullopt;
    QByteArray result = file;
    for (const Segment &xmp : layout->xmp) { // same length, so the Exif offsets stay valid
        const qsizetype payload = xmp.start + 4;
        result.replace(payload, xmp.length - 2, xmpWithOrientation(file.mid(payload, xmp.length - 2), orientation));
    }
    result.replace(replaceFrom, replaceLength, segment);
    const qint64 delta = segment.size() - replaceLength;
    if (delta == 0 || layout->mpf.start < 0)
        return result;
    // The first picture grew: its size in the MPO index follows, and so do the offsets of the
    // later pictures if the growth lies between them and the index.
    const bool indexMoved = layout->mpf.start >= replaceFrom;
    const qsizetype indexStart = layout->mpf.start + (indexMoved ? delta : 0) + 4 + mpfSignature.size();
    const qsizetype indexLength = layout->mpf.length - 2 - mpfSignature.size();
    // An index nobody can read is left as it is.
    const std::optional<QByteArray> index
        = mpIndexWithFirstPictureGrown(result.mid(indexStart, indexLength), delta, !indexMoved);
    return index ? result.replace(indexStart, indexLength, *index) : result;
}

} // namespace Vorel
