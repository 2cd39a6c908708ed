// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/imagewriter.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

#include "formats/cameraexif.h"
#include "formats/exifembedding.h"
#include "formats/heifimage.h"
#include "formats/jpegcodec.h"
#include "formats/jpegsegments.h"

namespace Vorel {

namespace {

std::optional<QByteArray> encodeWithQt(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    if (!writer.write(image))
        return std::nullopt;
    return bytes;
}

std::optional<QByteArray> encodeJpegWithExif(const QImage &image, const QByteArray &exif)
{
    const std::optional<EncodedJpeg> encoded = compressJpeg(image, lossyQuality);
    return encoded ? std::optional(jpegWithHeaders(encoded->bytes(), exif)) : std::nullopt;
}

std::optional<QByteArray> encodeHeic(const QImage &image, const QByteArray &exif)
{
    Heif::Context context(heif_context_alloc());
    const Heif::Handle handle = Heif::encodeImage(context.get(), image, lossyQuality);
    if (!handle)
        return std::nullopt;
    if (!exif.isEmpty() &&
        heif_context_add_exif_metadata(context.get(), handle.get(), exif.constData(), int(exif.size())).code !=
            heif_error_Ok)
        return std::nullopt;
    return Heif::writeContext(context.get());
}

std::optional<QByteArray> withExif(std::optional<QByteArray> encoded, const QByteArray &exif,
                                   std::optional<QByteArray> (*embed)(const QByteArray &, const QByteArray &))
{
    return encoded && !exif.isEmpty() ? embed(*encoded, exif) : encoded;
}

// The bytes of a file with this lower-cased extension; none when encoding fails.
std::optional<QByteArray> encodeImage(const QImage &image, const QString &suffix, const QByteArray &cameraExif)
{
    if (image.isNull())
        return std::nullopt;
    const QByteArray exif = exifForWrittenPicture(cameraExif, image.size());
    if (suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg"))
        return encodeJpegWithExif(image, exif);
    if (suffix == QLatin1String("heic"))
        return encodeHeic(image, exif);
    if (suffix == QLatin1String("tif") || suffix == QLatin1String("tiff"))
        return withExif(encodeWithQt(image, "tiff"), exif, tiffWithExif);
    if (suffix == QLatin1String("bmp"))
        return encodeWithQt(image, "bmp");
    return withExif(encodeWithQt(image, "png"), exif, pngWithExif);
}

} // namespace

bool saveFileAtomically(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    // Unbuffered: a buffered write "succeeds" into memory, and Qt's commit then links in a
    // file whose late write failed (a full disk), empty or cut short, in place of the original.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || file.write(bytes) != bytes.size())
        return false;
    return file.commit();
}

bool writeImage(const QImage &image, const QString &path, const QByteArray &cameraExif)
{
    // Encode fully in memory first: a failing encoder never touches the file system.
    const std::optional<QByteArray> bytes = encodeImage(image, QFileInfo(path).suffix().toLower(), cameraExif);
    return bytes && saveFileAtomically(path, *bytes);
}

} // namespace Vorel
