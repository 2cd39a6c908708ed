// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/imagereader.h"

#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QImageReader>

#include "formats/colourprofile.h"
#include "formats/exiforientation.h"
#include "formats/heifimage.h"
#include "formats/imagelimits.h"
#include "formats/jpegcodec.h"
#include "formats/pngchunks.h"
#include "formats/srgbconversion.h"

namespace Vorel {

namespace {

// Qt refuses pictures above 256 MB by default; our own size check decides instead.
constexpr int qtAllocationLimitMb = 2048;

bool isJpeg(const QByteArray &b) { return b.startsWith("\xFF\xD8\xFF"); }

bool isHeif(const QByteArray &b)
{
    static const QByteArray brands[] = {"heic", "heix", "heim", "heis", "hevc", "hevx", "mif1", "msf1", "avif"};
    if (b.size() < 12 || b.mid(4, 4) != "ftyp")
        return false;
    const QByteArray major = b.mid(8, 4);
    for (const QByteArray &brand : brands)
        if (major == brand)
            return true;
    return false;
}

std::optional<QImage> readWithQt(QByteArray &bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    if (!Png::chunksFit(buffer))
        return std::nullopt;
    QImageReader reader(&buffer);
    reader.setAutoTransform(false); // orientation is applied once, by us, from the EXIF tag
    reader.setAllocationLimit(qtAllocationLimitMb);
    const QSize declared = reader.size();
    if (declared.isValid() && !isDecodableSize(declared.width(), declared.height()))
        return std::nullopt;
    QImage image = reader.read();
    if (image.isNull() || !isDecodableSize(image.width(), image.height()))
        return std::nullopt;
    return image;
}

std::optional<QImage> readHeif(const QByteArray &bytes)
{
    const Heif::Context context = Heif::openContext(bytes);
    if (!context)
        return std::nullopt;
    heif_image_handle *raw = nullptr;
    if (heif_context_get_primary_image_handle(context.get(), &raw).code != heif_error_Ok)
        return std::nullopt;
    const Heif::Handle primary(raw);
    const std::optional<QImage> image = Heif::decodeHandle(primary.get());
    if (!image)
        return std::nullopt;
    return convertedToSrgb(*image, heifColourProfile(primary.get()));
}

} // namespace

std::optional<QImage> loadCorrectImageOriented(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray bytes = file.readAll();
    if (bytes.isEmpty())
        return std::nullopt;
    // HEIF decoders already apply irot/imir, which describe the same turn as any EXIF tag.
    if (isHeif(bytes))
        return readHeif(bytes);
    std::optional<QImage> image = isJpeg(bytes) ? decodeJpeg(bytes.constData(), bytes.size()) : std::nullopt;
    if (!image && (!isJpeg(bytes) || jpegScansWithinLimits(bytes.constData(), bytes.size())))
        image = readWithQt(bytes); // colour spaces TurboJPEG does not convert, and other formats
    if (!image)
        return std::nullopt;
    QByteArray profile = fileColourProfile(bytes);
    if (profile.isEmpty() && image->colorSpace().isValid()) // formats we do not parse ourselves (WebP)
        profile = image->colorSpace().iccProfile();
    return applyExifOrientation(convertedToSrgb(*image, profile), readExifOrientation(bytes));
}

} // namespace Vorel
