// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures made small cheaply: a JPEG (an MPO's first picture too) is decoded by TurboJPEG at
// the smallest of its DCT scaling factors (1/8 .. 1) that still covers the box, and a HEIF file
// gives its own thumbnail item when that is large enough. Orientation and colour are handled
// as the full image reader does, before the final smooth scaling.
#include "photos/thumbnailcache.h"


#include <QFile>

#include <libheif/heif.h>

#include "formats/colourprofile.h"
#include "formats/exiforientation.h"
#include "formats/heifimage.h"
#include "formats/jpegcodec.h"
#include "formats/imagereader.h"
#include "formats/srgbconversion.h"

namespace Vorel {

namespace {

// A reduced decode whose longer side is at least `box`, upright and in sRGB.
std::optional<QImage> decodeJpegCovering(const QByteArray &bytes, int box)
{
    const std::optional<QImage> image = decodeJpeg(bytes.constData(), bytes.size(), box);
    if (!image)
        return std::nullopt;
    return applyExifOrientation(convertedToSrgb(*image, fileColourProfile(bytes)), readExifOrientation(bytes));
}

// The primary image's thumbnail item when its longer side covers the box, else the primary.
std::optional<QImage> decodeHeifCovering(const QByteArray &bytes, int box)
{
    const Heif::Context context = Heif::openContext(bytes);
    heif_image_handle *raw = nullptr;
    if (!context || heif_context_get_primary_image_handle(context.get(), &raw).code != heif_error_Ok)
        return std::nullopt;
    const Heif::Handle primary(raw);
    heif_item_id thumbnailId = 0;
    Heif::Handle chosen;
    if (heif_image_handle_get_list_of_thumbnail_IDs(primary.get(), &thumbnailId, 1) == 1 &&
        heif_image_handle_get_thumbnail(primary.get(), thumbnailId, &raw).code == heif_error_Ok) {
        chosen.reset(raw);
        const int longer = std::max(heif_image_handle_get_width(raw), heif_image_handle_get_height(raw));
        if (longer < box)
            chosen.reset();
    }
    heif_image_handle *source = chosen ? chosen.get() : primary.get();
    const std::optional<QImage> image = Heif::decodeHandle(source);
    if (!image)
        return std::nullopt;
    QByteArray profile = heifColourProfile(source);
    if (profile.isEmpty())
        profile = heifColourProfile(primary.get()); // a thumbnail item may leave its colour to the primary
    return convertedToSrgb(*image, profile);
}

bool isHeif(const QByteArray &bytes) { return bytes.mid(4, 4) == "ftyp"; }

} // namespace

std::optional<QImage> renderThumbnail(const QString &path, int box)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    std::optional<QImage> image;
    if (bytes.startsWith("\xFF\xD8\xFF"))
        image = decodeJpegCovering(bytes, box);
    else if (isHeif(bytes))
        image = decodeHeifCovering(bytes, box);
    if (!image)
        image = loadCorrectImageOriented(path);
    if (!image || image->isNull())
        return std::nullopt;
    if (image->width() <= box && image->height() <= box)
        return image;
    return image->scaled(box, box, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace Vorel
