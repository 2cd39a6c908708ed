// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/mpindexgrowth.h"

#include "formats/tiffstructure.h"

namespace Vorel {

namespace {

using namespace Tiff;

// MP Entry (tag 0xB002, UNDEFINED, 16 bytes per picture):
//   u32 attributes | u32 size | u32 offset from the index's TIFF header (0 for the first) | u16 | u16
constexpr quint16 mpEntryTag = 0xB002;
constexpr qsizetype mpEntrySize = 16;
constexpr qsizetype sizeField = 4;
constexpr qsizetype offsetField = 8;

bool grow(Bytes &index, qsizetype at, qint64 delta)
{
    const qint64 value = qint64(index.u32(at)) + delta;
    if (value < 0 || value > qint64(0xFFFFFFFF))
        return false;
    index.put(at, 4, quint32(value));
    return true;
}

} // namespace

std::optional<QByteArray> mpIndexWithFirstPictureGrown(const QByteArray &block, qint64 delta, bool laterPicturesMoved)
{
    const std::optional<bool> little = littleEndianHeader(block);
    if (!little)
        return std::nullopt;
    QByteArray bytes = block;
    Bytes index(bytes, *little);
    // Only the index IFD matters here; some cameras write a chain to the attribute IFDs that is off.
    const std::optional<qsizetype> ifd0 = validatedIfd0(index, Chain::ignore);
    const std::optional<qsizetype> entry = ifd0 ? findEntry(index, *ifd0, mpEntryTag) : std::nullopt;
    if (!entry || index.u16(*entry + 2) != typeUndefined)
        return std::nullopt;
    const quint32 length = index.u32(*entry + 4);
    const qsizetype entries = index.u32(*entry + 8); // inside the block: validatedIfd0 checked it
    if (length < mpEntrySize || !grow(index, entries + sizeField, delta))
        return std::nullopt;
    for (qsizetype at = entries + mpEntrySize; laterPicturesMoved && at + mpEntrySize <= entries + length;
         at += mpEntrySize)
        if (index.u32(at + offsetField) != 0 && !grow(index, at + offsetField, delta))
            return std::nullopt;
    return bytes;
}

} // namespace Vorel
