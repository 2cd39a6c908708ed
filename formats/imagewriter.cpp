// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/imagewriter.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

#include "formats/heifimage.h"
#include "formats/jpegcodec.h"

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

std::optional<QByteArray> encodeHeic(const QImage &image)
{
    Heif::Context context(heif_context_alloc());
    if (!Heif::encodeImage(context.get(), image, lossyQuality))
        return std::nullopt;
    return Heif::writeContext(context.get());
}

std::optional<QByteArray> encodeFor(const QImage &image, const QString &suffix)
{
    if (suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg"))
        return encodeJpeg(image, lossyQuality);
    if (suffix == QLatin1String("heic"))
        return encodeHeic(image);
    if (suffix == QLatin1String("tif") || suffix == QLatin1String("tiff"))
        return encodeWithQt(image, "tiff");
    if (suffix == QLatin1String("bmp"))
        return encodeWithQt(image, "bmp");
    return encodeWithQt(image, "png");
}

} // namespace

bool writeImage(const QImage &image, const QString &path)
{
    if (image.isNull())
        return false;
    // Encode fully in memory first: a failing encoder never touches the file system.
    const std::optional<QByteArray> bytes = encodeFor(image, QFileInfo(path).suffix().toLower());
    if (!bytes)
        return false;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(*bytes) != bytes->size())
        return false;
    return file.commit();
}

} // namespace Vorel
