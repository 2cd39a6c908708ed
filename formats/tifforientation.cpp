// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/tifforientation.h"

#include "formats/tiffstructure.h"

namespace Vorel {

namespace {

using namespace Tiff;

constexpr quint16 orientationTag = 274;

void writeOrientationEntry(Bytes &tiff, qsizetype entry, int orientation)
{
    tiff.put(entry, 2, orientationTag);
    tiff.put(entry + 2, 2, typeShort);
    tiff.put(entry + 4, 4, 1);
    tiff.put(entry + 8, 2, static_cast<quint32>(orientation));
    tiff.put(entry + 10, 2, 0);
}

// Appends a copy of IFD0 with an Orientation entry inserted in tag order and points the
// header at it. None when the grown block would not fit 32-bit offsets.
std::optional<QByteArray> withIfd0Copy(QByteArray bytes, bool little, qsizetype ifd0, int orientation)
{
    Bytes tiff(bytes, little);
    const int count = tiff.u16(ifd0);
    if (count == 0xFFFF)
        return std::nullopt;
    if (bytes.size() % 2 != 0)
        bytes.append('\0'); // IFDs start on a word boundary
    const qsizetype copy = bytes.size();
    if (static_cast<quint64>(copy) + 2 + (count + 1) * entrySize + 4 > 0xFFFFFFFFu)
        return std::nullopt;

    int insertAt = 0;
    while (insertAt < count && tiff.u16(ifd0 + 2 + insertAt * entrySize) < orientationTag)
        ++insertAt;
    const QByteArray entries = bytes.mid(ifd0 + 2, count * entrySize);
    const QByteArray nextIfd = bytes.mid(ifd0 + 2 + count * entrySize, 4);

    bytes.append(2, '\0');
    tiff.put(copy, 2, static_cast<quint32>(count + 1));
    bytes.append(entries.left(insertAt * entrySize));
    bytes.append(entrySize, '\0');
    writeOrientationEntry(tiff, copy + 2 + insertAt * entrySize, orientation);
    bytes.append(entries.mid(insertAt * entrySize));
    bytes.append(nextIfd);
    tiff.put(4, 4, static_cast<quint32>(copy));
    return bytes;
}

} // namespace

std::optional<QByteArray> tiffWithOrientation(const QByteArray &block, int orientation)
{
    const std::optional<bool> little = littleEndianHeader(block);
    if (!little)
        return std::nullopt;
    QByteArray bytes = block;
    Bytes tiff(bytes, *little);
    const std::optional<qsizetype> ifd0 = validatedIfd0(tiff);
    if (!ifd0)
        return std::nullopt;

    bool found = false;
    const int count = tiff.u16(*ifd0);
    for (int i = 0; i < count; ++i) {
        const qsizetype entry = *ifd0 + 2 + i * entrySize;
        if (tiff.u16(entry) != orientationTag)
            continue;
        found = true;
        // A well-formed entry changes only in its two value bytes.
        if (tiff.u16(entry + 2) == typeShort && tiff.u32(entry + 4) == 1)
            tiff.put(entry + 8, 2, static_cast<quint32>(orientation));
        else
            writeOrientationEntry(tiff, entry, orientation);
    }
    if (found)
        return bytes;
    return withIfd0Copy(std::move(bytes), *little, *ifd0, orientation);
}

QByteArray minimalTiffWithOrientation(int orientation)
{
    QByteArray bytes("MM\0\x2a\0\0\0\x08\0\x01", 10);
    bytes.append(entrySize + 4, '\0'); // the entry, then "no next IFD"
    Bytes tiff(bytes, false);
    writeOrientationEntry(tiff, headerSize + 2, orientation);
    return bytes;
}

} // namespace Vorel
