// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/exiforientation.h"

#include <QTransform>

#include <exiv2/exiv2.hpp>

namespace Vorel {

int readExifOrientation(const QByteArray &fileBytes)
{
    try {
        Exiv2::Image::AutoPtr image = Exiv2::ImageFactory::open(
            reinterpret_cast<const Exiv2::byte *>(fileBytes.constData()), static_cast<long>(fileBytes.size()));
        if (!image.get())
            return 1;
        image->readMetadata();
        const Exiv2::ExifData &exif = image->exifData();
        const auto tag = exif.findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
        if (tag == exif.end() || tag->count() == 0)
            return 1;
        const long value = tag->toLong();
        return value >= 1 && value <= 8 ? static_cast<int>(value) : 1;
    } catch (const Exiv2::Error &) {
        return 1; // unreadable metadata: the picture is shown as stored
    }
}

QImage applyExifOrientation(const QImage &image, int orientation)
{
    auto turned = [&](const QImage &source, qreal degrees) { return source.transformed(QTransform().rotate(degrees)); };
    switch (orientation) {
    case 2:
        return image.mirrored(true, false);
    case 3:
        return turned(image, 180);
    case 4:
        return image.mirrored(false, true);
    case 5:
        return turned(image.mirrored(true, false), 270);
    case 6:
        return turned(image, 90);
    case 7:
        return turned(image.mirrored(true, false), 90);
    case 8:
        return turned(image, 270);
    default:
        return image;
    }
}

} // namespace Vorel
