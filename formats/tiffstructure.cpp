// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/tiffstructure.h"

#include <array>
#include <set>

namespace Vorel::Tiff {

namespace {

constexpr quint16 tiffMagic = 42;
// Longer IFD chains than this only occur in crafted files; stop walking instead of looping.
constexpr int maxIfdChain = 4096;

// Bytes per value of each field type (index = type); 0 = unknown type, whose data readers skip.
constexpr std::array<quint64, 14> typeSizes = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};

// True when every entry's out-of-line data lies inside the block.
bool entriesInBounds(const Bytes &tiff, qsizetype ifd, int count)
{
    const auto size = quint64(tiff.bytes.size());
    for (int i = 0; i < count; ++i) {
        const qsizetype entry = ifd + 2 + i * entrySize;
        const quint16 type = tiff.u16(entry + 2);
        const quint64 valueBytes = (type < typeSizes.size() ? typeSizes[type] : 0) * tiff.u32(entry + 4);
        if (valueBytes > 4 && tiff.u32(entry + 8) + valueBytes > size)
            return false;
    }
    return true;
}

} // namespace

quint32 Bytes::get(qsizetype at, int width) const
{
    quint32 value = 0;
    for (int i = 0; i < width; ++i)
        value = value << 8 | quint8(bytes[at + (little ? width - 1 - i : i)]);
    return value;
}

void Bytes::put(qsizetype at, int width, quint32 value)
{
    for (int i = 0; i < width; ++i)
        bytes[at + i] = char(value >> 8 * (little ? i : width - 1 - i) & 0xFF);
}

std::optional<bool> littleEndianHeader(const QByteArray &block)
{
    if (block.size() < headerSize)
        return std::nullopt;
    const bool little = block.startsWith("II");
    if (!little && !block.startsWith("MM"))
        return std::nullopt;
    QByteArray header = block.left(headerSize);
    if (Bytes(header, little).u16(2) != tiffMagic)
        return std::nullopt;
    return little;
}

std::optional<qsizetype> validatedIfd0(const Bytes &tiff, Chain chain)
{
    const qsizetype size = tiff.bytes.size();
    std::set<qsizetype> visited;
    const quint32 first = tiff.u32(4);
    for (qsizetype offset = first; offset != 0 && (chain == Chain::walk || offset == first);
         offset = tiff.u32(offset + 2 + tiff.u16(offset) * entrySize)) {
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

std::optional<qsizetype> findEntry(const Bytes &tiff, qsizetype ifd, quint16 tag)
{
    const int count = tiff.u16(ifd);
    for (int i = 0; i < count; ++i)
        if (tiff.u16(ifd + 2 + i * entrySize) == tag)
            return ifd + 2 + i * entrySize;
    return std::nullopt;
}

} // namespace Vorel::Tiff
