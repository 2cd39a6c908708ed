// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Test helper: builds small classic TIFF blocks (header, IFD0 at offset 8, tail) and PNG chunks
// byte by byte.
#pragma once

#include <vector>

#include <QByteArray>

namespace Vorel::TestSupport {

struct TiffEntry {
    quint16 tag;
    quint16 type; // 3 = SHORT (value stored in the first two bytes when count is 1), else 4 bytes
    quint32 count;
    quint32 value;
};

inline void putTiff(QByteArray &bytes, bool little, quint32 value, int width)
{
    for (int i = 0; i < width; ++i)
        bytes.append(char(value >> 8 * (little ? i : width - 1 - i)));
}

// IFD0 is at offset 8, so the tail starts at 8 + 2 + 12 * entries + 4.
inline QByteArray tiffBlock(
    bool little, const std::vector<TiffEntry> &ifd0, quint32 nextIfd = 0, const QByteArray &tail = {})
{
    QByteArray bytes(little ? "II" : "MM");
    putTiff(bytes, little, 42, 2);
    putTiff(bytes, little, 8, 4);
    putTiff(bytes, little, quint32(ifd0.size()), 2);
    for (const TiffEntry &e : ifd0) {
        putTiff(bytes, little, e.tag, 2);
        putTiff(bytes, little, e.type, 2);
        putTiff(bytes, little, e.count, 4);
        const bool shortInline = e.type == 3 && e.count == 1;
        putTiff(bytes, little, e.value, shortInline ? 2 : 4);
        if (shortInline)
            putTiff(bytes, little, 0, 2);
    }
    putTiff(bytes, little, nextIfd, 4);
    return bytes + tail;
}

inline quint32 tiffTailOffset(std::size_t entryCount)
{
    return quint32(8 + 2 + 12 * entryCount + 4);
}

// Length, type, data and CRC; the CRC-32 computed independently with the textbook bitwise loop,
// then XORed with `crcFlip` to make it wrong on purpose.
inline QByteArray pngChunk(const char *type, const QByteArray &data, quint32 crcFlip = 0)
{
    const QByteArray body = QByteArray(type) + data;
    quint32 crc = 0xFFFFFFFF;
    for (const char byte : body) {
        crc ^= quint8(byte);
        for (int k = 0; k < 8; ++k)
            crc = (crc >> 1) ^ (0xEDB88320 & (0 - (crc & 1)));
    }
    QByteArray chunk;
    putTiff(chunk, false, quint32(data.size()), 4);
    chunk += body;
    putTiff(chunk, false, ~crc ^ crcFlip, 4);
    return chunk;
}

inline const QByteArray pngSignature("\x89PNG\r\n\x1a\n", 8);

} // namespace Vorel::TestSupport
