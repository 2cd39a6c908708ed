// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/pngchunks.h"

#include <array>

#include <QIODevice>
#include <QScopeGuard>

namespace Vorel::Png {

namespace {

QByteArray bigEndianBytes(quint32 value)
{
    QByteArray bytes(4, '\0');
    for (int i = 0; i < 4; ++i)
        bytes[i] = static_cast<char>(value >> (24 - 8 * i) & 0xFF);
    return bytes;
}

} // namespace

const QByteArray signature("\x89PNG\r\n\x1a\n", 8);

quint32 crc32(const char *data, qsizetype size)
{
    static const std::array<quint32, 256> table = [] {
        std::array<quint32, 256> t {};
        for (quint32 n = 0; n < 256; ++n) {
            quint32 c = n;
            for (int k = 0; k < 8; ++k)
                c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
            t[n] = c;
        }
        return t;
    }();
    quint32 crc = 0xFFFFFFFFu;
    for (qsizetype i = 0; i < size; ++i)
        crc = table[(crc ^ static_cast<quint8>(data[i])) & 0xFF] ^ (crc >> 8);
    return crc ^ 0xFFFFFFFFu;
}

quint32 bigEndian32(const QByteArray &bytes, qsizetype at)
{
    quint32 value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8 | static_cast<quint8>(bytes[at + i]);
    return value;
}

QByteArray makeChunk(const QByteArray &type, const QByteArray &data)
{
    const QByteArray body = type + data;
    return bigEndianBytes(static_cast<quint32>(data.size())) + body + bigEndianBytes(crc32(body.data(), body.size()));
}

qsizetype findChunk(const QByteArray &file, const char *type)
{
    if (!file.startsWith(signature))
        return -1;
    for (qsizetype at = signature.size(); at + chunkOverhead <= file.size();) {
        if (file.mid(at + 4, 4) == type)
            return at;
        const quint32 length = bigEndian32(file, at);
        if (length > maxChunkLength)
            return -1;
        at += chunkOverhead + length;
    }
    return -1;
}

bool chunksFit(QIODevice &device)
{
    const qint64 start = device.pos(), size = device.size();
    const auto restore = qScopeGuard([&] { device.seek(start); });
    if (!device.seek(0) || device.read(signature.size()) != signature)
        return true;
    for (qint64 at = signature.size(); at + chunkOverhead <= size;) {
        if (!device.seek(at))
            return false;
        const QByteArray head = device.read(8);
        if (head.size() < 8)
            return false;
        const quint32 length = bigEndian32(head, 0);
        // Image data streams through the decoder in small pieces: cut short, it is its error.
        if (head.endsWith("IEND") || (head.endsWith("IDAT") && qint64(length) > size - at - chunkOverhead))
            return true;
        if (length > maxChunkLength || qint64(length) > size - at - chunkOverhead)
            return false;
        at += chunkOverhead + length;
    }
    return true;
}

} // namespace Vorel::Png
