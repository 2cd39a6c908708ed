// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/jpegsegments.h"

#include <algorithm>

#include <QIODevice>

namespace Vorel {

namespace {
constexpr quint8 markerApp0 = 0xE0;
const QByteArray soi("\xFF\xD8", 2);
} // namespace

std::optional<QByteArray> readJpegSegment(QIODevice &jpeg, quint8 marker, QByteArrayView signature)
{
    if (!jpeg.seek(0) || jpeg.read(2) != soi)
        return std::nullopt;
    for (;;) {
        const QByteArray head = jpeg.read(4);
        if (head.size() < 4 || quint8(head[0]) != 0xFF)
            return std::nullopt;
        const quint8 found = quint8(head[1]);
        if (found == 0xFF) { // fill byte before a marker
            jpeg.seek(jpeg.pos() - 3);
            continue;
        }
        if (found == 0xDA || found == 0xD9) // start of scan, end of image
            return std::nullopt;
        const qint64 length = (quint8(head[2]) << 8 | quint8(head[3])) - 2;
        if (length < 0 || length > jpeg.size() - jpeg.pos())
            return std::nullopt;
        if (found == marker && jpeg.peek(signature.size()) == signature)
            return jpeg.read(length);
        if (!jpeg.seek(jpeg.pos() + length))
            return std::nullopt;
    }
}

const QByteArray exifSignature("Exif\0\0", 6);
const QByteArray mpfSignature("MPF\0", 4);

QByteArray jpegSegment(quint8 marker, QByteArrayView payload)
{
    if (payload.size() > maxSegmentPayload)
        return {};
    const qsizetype length = payload.size() + 2;
    QByteArray segment;
    segment.reserve(2 + length);
    segment.append(char(0xFF)).append(char(marker)).append(char(length >> 8)).append(char(length & 0xFF));
    return segment.append(payload);
}

QByteArray exifSegment(QByteArrayView tiff)
{
    if (tiff.isEmpty() || exifSignature.size() + tiff.size() > maxSegmentPayload)
        return {};
    return jpegSegment(markerApp1, exifSignature + tiff.toByteArray());
}

QByteArrayView jpegAfterJfif(QByteArrayView encoded)
{
    const auto byteAt = [&](qsizetype i) { return quint8(encoded[i]); };
    if (encoded.size() < 6 || byteAt(2) != 0xFF || byteAt(3) != markerApp0)
        return encoded.sliced(std::min<qsizetype>(2, encoded.size()));
    const qsizetype end = 4 + (byteAt(4) << 8 | byteAt(5));
    return encoded.sliced(std::min(end, encoded.size()));
}

QByteArray jpegWithHeaders(QByteArrayView encoded, QByteArrayView tiff, QByteArrayView headers)
{
    const QByteArray exif = exifSegment(tiff);
    const QByteArrayView rest = jpegAfterJfif(encoded);
    const QByteArrayView jfif = exif.isEmpty() ? encoded.sliced(2, encoded.size() - 2 - rest.size()) : QByteArrayView();
    QByteArray jpeg;
    jpeg.reserve(soi.size() + jfif.size() + exif.size() + headers.size() + rest.size());
    return jpeg.append(soi).append(jfif).append(exif).append(headers).append(rest);
}

} // namespace Vorel
