// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/jpegcodec.h"

#include <algorithm>
#include <memory>

#include <turbojpeg.h>

#include "core/largebuffer.h"
#include "formats/imagelimits.h"

namespace Vorel {

namespace {

struct HandleCloser {
    void operator()(void *handle) const { tjDestroy(handle); }
};
using TjHandle = std::unique_ptr<void, HandleCloser>;

// The smallest scaling factor whose picture still has a longer side of at least `box`.
tjscalingfactor reductionCovering(int width, int height, int box)
{
    tjscalingfactor chosen{1, 1};
    if (box <= 0)
        return chosen;
    int factorCount = 0;
    const tjscalingfactor *factors = tjGetScalingFactors(&factorCount);
    for (int i = 0; i < factorCount; ++i) {
        const tjscalingfactor f = factors[i];
        const bool reduces = f.num < f.denom, covers = TJSCALED(std::max(width, height), f) >= box;
        if (reduces && covers && f.num * chosen.denom < chosen.num * f.denom)
            chosen = f;
    }
    return chosen;
}

} // namespace

std::optional<QImage> decodeJpeg(const char *data, qsizetype size, int coveringBox)
{
    TjHandle tj(tjInitDecompress());
    if (!tj || size <= 0)
        return std::nullopt;
    auto *bytes = reinterpret_cast<const unsigned char *>(data);
    int width = 0, height = 0, subsampling = 0, colorspace = 0;
    if (tjDecompressHeader3(tj.get(), bytes, static_cast<unsigned long>(size), &width, &height, &subsampling,
                            &colorspace) != 0)
        return std::nullopt;
    if (!isDecodableSize(width, height) || colorspace == TJCS_CMYK || colorspace == TJCS_YCCK)
        return std::nullopt;
    const tjscalingfactor scale = reductionCovering(width, height, coveringBox);
    QImage image = newLargeImage(TJSCALED(width, scale), TJSCALED(height, scale), QImage::Format_RGB32);
    if (image.isNull())
        return std::nullopt;
    // BGRX is QImage's RGB32 byte order on little-endian machines; X is filled with 0xff.
    const int status = tjDecompress2(tj.get(), bytes, static_cast<unsigned long>(size), image.bits(), image.width(),
                                     static_cast<int>(image.bytesPerLine()), image.height(), TJPF_BGRX, 0);
    // A warning (e.g. data ending early) still leaves a usable picture, as every viewer shows it.
    if (status != 0 && tjGetErrorCode(tj.get()) != TJERR_WARNING)
        return std::nullopt;
    return image;
}

EncodedJpeg::EncodedJpeg(unsigned char *data, unsigned long size) : data(data), size(size) {}

void EncodedJpeg::Free::operator()(unsigned char *bytes) const { tjFree(bytes); }

QImage jpegEncoderPixels(const QImage &image)
{
    return image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32_Premultiplied
               ? image
               : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

std::optional<EncodedJpeg> compressJpeg(const QImage &image, int quality)
{
    if (image.isNull())
        return std::nullopt;
    const QImage source = jpegEncoderPixels(image);
    TjHandle tj(tjInitCompress());
    if (!tj)
        return std::nullopt;
    unsigned char *jpeg = nullptr;
    unsigned long jpegSize = 0;
    const int status = tjCompress2(tj.get(), source.constBits(), source.width(),
                                   static_cast<int>(source.bytesPerLine()), source.height(), TJPF_BGRX, &jpeg,
                                   &jpegSize, TJSAMP_420, quality, 0);
    EncodedJpeg encoded(jpeg, jpegSize);
    if (status != 0)
        return std::nullopt;
    return encoded;
}

std::optional<QByteArray> encodeJpeg(const QImage &image, int quality)
{
    const std::optional<EncodedJpeg> encoded = compressJpeg(image, quality);
    return encoded ? std::optional(encoded->bytes().toByteArray()) : std::nullopt;
}

} // namespace Vorel
