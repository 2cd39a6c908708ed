// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/tifforientation.h"

#include <array>
#include <set>

namespace Vorel {

namespace {

// Classic TIFF layout (all offsets from the first byte of the block):
//   header  "II" or "MM" | u16 42 | u32 offset of IFD0
//   IFD     u16 n | n x entry | u32 offset of the next IFD (0 = last)
//   entry   u16 tag | u16 type | u32 count | u32 value, or offset of the value if it needs > 4 bytes
constexpr qsizetype headerSize = 8;
constexpr qsizetype entrySize = 12;
constexpr quint16 tiffMagic = 42;
constexpr quint16 orientationTag = 274;
constexpr quint16 typeShort = 3;
// Longer IFD chains than this only occur in crafted files; stop walking instead of looping.
constexpr int maxIfdChain = 4096;

// Bytes per value of each TIFF field type (index = type); 0 = unknown type, whose data readers skip.
constexpr std::array<quint64, 14> typeSizes = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};

class TiffBytes {
public:
    TiffBytes(QByteArray &bytes, bool littleEndian)
        : bytes(bytes)
        , little(littleEndian)
    {
    }

    quint32 get(qsizetype at, int width) const
    {
        quint32 value = 0;
        for (int i = 0; i < width; ++i) {
            const quint32 byte = static_cast<quint8>(bytes[at + (little ? width - 1 - i : i)]);
            value = value << 8 | byte;
        }
        return value;
    }
    void put(qsizetype at, int width, quint32 value)
    {
        for (int i = 0; i < width; ++i) {
            const int shift = 8 * (little ? i : width - 1 - i);
            bytes[at + i] = static_cast<char>(value >> shift & 0xFF);
        }
    }
    quint16 u16(qsizetype at) const { return static_cast<quint16>(get(at, 2)); }
    quint32 u32(qsizetype at) const { return get(at, 4); }

    QByteArray &bytes;
    const bool little;
};

// True when every entry's out-of-line data lies inside the block.
bool entriesInBounds(const TiffBytes &tiff, qsizetype ifd, int count)
{
    const auto size = static_cast<quint64>(tiff.bytes.size());
    for (int i = 0; i < count; ++i) {
        const qsizetype entry = ifd + 2 + i * entrySize;
        const quint16 type = tiff.u16(entry + 2);
        const quint64 valueBytes = (type < typeSizes.size() ? typeSizes[type] : 0) * tiff.u32(entry + 4);
        if (valueBytes > 4 && tiff.u32(entry + 8) + valueBytes > size)
            return false;
    }
    return true;
}

// Walks the IFD chain with bounds and loop checks; the offset of IFD0, or none.
std::optional<qsizetype> validatedIfd0(const TiffBytes &tiff)
{
    const qsizetype size = tiff.bytes.size();
    std::set<qsizetype> visited;
    const quint32 first = tiff.u32(4);
    for (qsizetype offset = first; offset != 0; offset = tiff.u32(offset + 2 + tiff.u16(offset) * entrySize)) {
        if (visited.size() == maxIfdChain || !visited.insert(offset).second)
            return std::nullopt;
        if (offset < headerSize || offset + 2 > size)
            return std::nullopt;
        const int count = tiff.u16(offset);
        if (offset + 2 + count * entrySize + 4 > size)
            return std::nullopt;
        if (offset == first && !entriesInBounds(tiff, offset, count))
            return std::nullopt;
    }
    if (first == 0)
        return std::nullopt;
    return first;
}

void writeOrientationEntry(TiffBytes &tiff, qsizetype entry, int orientation)
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
    TiffBytes tiff(bytes, little);
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
    if (block.size() < headerSize)
        return std::nullopt;
    const bool little = block.startsWith("II");
    if (!little && !block.startsWith("MM"))
        return std::nullopt;
    QByteArray bytes = block;
    TiffBytes tiff(bytes, little);
    if (tiff.u16(2) != tiffMagic)
        return std::nullopt;
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
    return withIfd0Copy(std::move(bytes), little, *ifd0, orientation);
}

QByteArray minimalTiffWithOrientation(int orientation)
{
    QByteArray bytes("MM\0\x2a\0\0\0\x08\0\x01", 10);
    bytes.append(entrySize + 4, '\0'); // the entry, then "no next IFD"
    TiffBytes tiff(bytes, false);
    writeOrientationEntry(tiff, headerSize + 2, orientation);
    return bytes;
}

} // namespace Vorel
