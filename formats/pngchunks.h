// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// PNG chunk basics. A PNG is an 8-byte signature and chunks: u32 big-endian data length |
// 4-byte type | data | u32 CRC-32 of type and data. IHDR comes first, IEND last.
#pragma once

#include <QByteArray>

class QIODevice;

namespace Vorel::Png {

extern const QByteArray signature;
inline constexpr qsizetype chunkOverhead = 12;
inline constexpr quint32 maxChunkLength = 0x7FFFFFFF;

// CRC-32 as PNG uses it (polynomial 0xEDB88320, reflected, initial and final XOR 0xFFFFFFFF).
quint32 crc32(const char *data, qsizetype size);
quint32 bigEndian32(const QByteArray &bytes, qsizetype at);
QByteArray makeChunk(const QByteArray &type, const QByteArray &data);

// The offset of the first chunk of `type`, following the length fields without checking
// CRCs; -1 when there is none or a length runs past the end.
qsizetype findChunk(const QByteArray &file, const char *type);

// Whether every chunk of the PNG on `device` ends inside it. The decoder allocates a chunk's
// stated length before reading it, so a few bytes stating gigabytes would cost that much
// memory: such a file is refused before it reaches the decoder. True for data that is not a
// PNG (not ours to judge) and for a file cut short in its image data or a chunk header (the
// decoder reports those). The device's position is kept.
bool chunksFit(QIODevice &device);

} // namespace Vorel::Png
