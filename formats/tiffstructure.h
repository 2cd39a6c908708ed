// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and patching classic TIFF structures in place (TIFF files, Exif blocks, MPO indexes):
// byte-order aware access and a validated walk of the IFD chain.
#pragma once

#include <optional>

#include <QByteArray>

namespace Vorel::Tiff {

// Layout (all offsets from the first byte of the block):
//   header  "II" or "MM" | u16 42 | u32 offset of IFD0
//   IFD     u16 n | n x entry | u32 offset of the next IFD (0 = last)
//   entry   u16 tag | u16 type | u32 count | u32 value, or offset of the value if it needs > 4 bytes
constexpr qsizetype headerSize = 8;
constexpr qsizetype entrySize = 12;
constexpr quint16 typeShort = 3;
constexpr quint16 typeUndefined = 7;

// Byte-order aware view of a block; reads and writes at offsets the caller has validated.
class Bytes {
public:
    Bytes(QByteArray &bytes, bool littleEndian)
        : bytes(bytes)
        , little(littleEndian)
    {
    }

    quint32 get(qsizetype at, int width) const;
    void put(qsizetype at, int width, quint32 value);
    quint16 u16(qsizetype at) const { return quint16(get(at, 2)); }
    quint32 u32(qsizetype at) const { return get(at, 4); }

    QByteArray &bytes;
    const bool little;
};

// True for "II*\0", false for "MM\0*", none for anything else (BigTIFF included).
std::optional<bool> littleEndianHeader(const QByteArray &block);

enum class Chain { walk, ignore };
// The offset of IFD0 after checking that it and its out-of-line values lie inside the block,
// and with Chain::walk that every later IFD does too and none is visited twice. None otherwise.
std::optional<qsizetype> validatedIfd0(const Bytes &tiff, Chain chain = Chain::walk);

// The offset of the first entry of the IFD at `ifd` with the given tag, or none.
std::optional<qsizetype> findEntry(const Bytes &tiff, qsizetype ifd, quint16 tag);

} // namespace Vorel::Tiff
