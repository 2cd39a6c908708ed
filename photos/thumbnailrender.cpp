// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures made small cheaply: a JPEG (an MPO's first picture too) is decoded by TurboJPEG at
// the smallest of its DCT scaling factors (1/8 .. 1) that still covers the box, and a HEIF file
// gives its own thumbnail item when that is large enough. Orientation and colour are handled
// as the full image reader does, before the final smooth scaling.
#include "photos/thumbnailcache.h"

#include <memory>

#include <QFile>

#include <libheif/heif.h>
#include <turbojpeg.h>

#include "formats/colourprofile.h"
#include "formats/exiforientation.h"
#include "formats/heifimage.h"
#include "formats/imagelimits.h"
#include "formats/imagereader.h"
#include "formats/srgbconversion.h"

namespace Vorel {

namespace {

struct TurboJpegCloser {
    void operator()(void *handle) const { tjDestroy(handle); }
};

// A reduced decode whose longer side is at least `box` (or the full picture when smaller),
// as Format_RGB32; none for data TurboJPEG does not decode (CMYK too).
std::optional<QImage> decodeJpegCovering(const QByteArray &bytes, int box)
{
    const std::unique_ptr<void, TurboJpegCloser> tj(tjInitDecompress());
    const auto *data = reinterpret_cast<const unsigned char *>(bytes.constData());
    const auto size = static_cast<unsigned long>(bytes.size());
    int width = 0, height = 0, subsampling = 0, colorspace = 0;
    if (!tj || tjDecompressHeader3(tj.get(), data, size, &width, &height, &subsampling, &colorspace) != 0)
        return std::nullopt;
    if (!isDecodableSize(width, height) || colorspace == TJCS_CMYK || colorspace == TJCS_YCCK)
        return std::nullopt;
    int factorCount = 0;
    const tjscalingfactor *factors = tjGetScalingFactors(&factorCount);
    tjscalingfactor chosen{1, 1};
    for (int i = 0; i < factorCount; ++i) {
        const tjscalingfactor f = factors[i];
        const bool reduces = f.num < f.denom, covers = TJSCALED(std::max(width, height), f) >= box;
        if (reduces && covers && f.num * chosen.denom < chosen.num * f.denom)
            chosen = f;
    }
    QImage image(TJSCALED(width, chosen), TJSCALED(height, chosen), QImage::Format_RGB32);
    if (image.isNull())
        return std::nullopt;
    // BGRX is QImage's RGB32 byte order on little-endian machines.
    const int status = tjDecompress2(tj.get(), data, size, image.bits(), image.width(), int(image.bytesPerLine()),
                                     image.height(), TJPF_BGRX, 0);
    if (status != 0 && tjGetErrorCode(tj.get()) != TJERR_WARNING)
        return std::nullopt;
    return applyExifOrientation(convertedToSrgb(image, fileColourProfile(bytes)), readExifOrientation(bytes));
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
