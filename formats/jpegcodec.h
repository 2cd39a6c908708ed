// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// JPEG decoding and encoding straight between TurboJPEG and 32-bit QImage pixels, without
// intermediate copies.
#pragma once

#include <memory>
#include <optional>

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>

namespace Vorel {

// Opaque Format_RGB32 image, or none for data TurboJPEG cannot decode (corrupt data, or
// colour spaces it does not convert, which the caller may hand to another decoder).
// With `coveringBox` > 0 the decode is reduced by the largest of TurboJPEG's scaling factors
// that keeps the longer side at least that long (the full picture when it is smaller): a
// thumbnail costs a fraction of the full decode.
std::optional<QImage> decodeJpeg(const char *data, qsizetype size, int coveringBox = 0);
// Whether the JPEG's scans stay within maxJpegScans and maxJpegScanPixels, found from its
// frame header and markers alone; decodeJpeg refuses the others, and so must every other
// decoder a JPEG is handed to (Qt's has no limit of its own).
bool jpegScansWithinLimits(const char *data, qsizetype size);
// A JPEG in the encoder's own buffer, for writers that assemble files from several pieces
// and would otherwise copy it twice.
class EncodedJpeg {
public:
    EncodedJpeg(unsigned char *data, unsigned long size);
    QByteArrayView bytes() const { return {reinterpret_cast<const char *>(data.get()), qsizetype(size)}; }

private:
    struct Free {
        void operator()(unsigned char *bytes) const;
    };
    std::unique_ptr<unsigned char, Free> data;
    unsigned long size;
};

// Baseline JPEG at the given quality (1..100); transparent pixels are written as drawn over black.
std::optional<EncodedJpeg> compressJpeg(const QImage &image, int quality);
std::optional<QByteArray> encodeJpeg(const QImage &image, int quality);
// The image itself, or converted, so that the encoders can read it as BGRX with transparent
// pixels as black.
QImage jpegEncoderPixels(const QImage &image);

} // namespace Vorel
