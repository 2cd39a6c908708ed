// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/exifembedding.h"

#include <exiv2/exiv2.hpp>

#include "formats/pngchunks.h"

namespace Vorel {

std::optional<QByteArray> pngWithExif(const QByteArray &png, const QByteArray &exif)
{
    const qsizetype idat = Png::findChunk(png, "IDAT");
    if (idat < 0)
        return std::nullopt;
    const QByteArray chunk = Png::makeChunk("eXIf", exif);
    QByteArray result;
    result.reserve(png.size() + chunk.size());
    return result.append(QByteArrayView(png).first(idat)).append(chunk).append(QByteArrayView(png).sliced(idat));
}

std::optional<QByteArray> tiffWithExif(const QByteArray &tiff, const QByteArray &exif)
{
    try {
        Exiv2::ExifData camera;
        Exiv2::ExifParser::decode(camera, reinterpret_cast<const Exiv2::byte *>(exif.constData()), uint32_t(exif.size()));
        Exiv2::Image::AutoPtr image = Exiv2::ImageFactory::open(
            reinterpret_cast<const Exiv2::byte *>(tiff.constData()), long(tiff.size()));
        if (!image.get())
            return std::nullopt;
        image->readMetadata();
        Exiv2::ExifData &own = image->exifData();
        // The camera block holds no structure tags (exifForWrittenPicture removes them), so
        // taking all of its tags over the encoder's leaves the file's layout as written.
        for (const Exiv2::Exifdatum &tag : camera)
            own[tag.key()] = tag.value();
        image->writeMetadata();
        Exiv2::BasicIo &io = image->io();
        io.seek(0, Exiv2::BasicIo::beg);
        const Exiv2::DataBuf written = io.read(long(io.size()));
        return QByteArray(reinterpret_cast<const char *>(written.pData_), qsizetype(written.size_));
    } catch (...) {
        return std::nullopt;
    }
}

} // namespace Vorel
