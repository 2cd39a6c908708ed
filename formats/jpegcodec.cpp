// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/jpegcodec.h"

#include <algorithm>
#include <cstring>
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

bool isFrameMarker(quint8 marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

// The first byte of the next marker after entropy-coded data, where 0xFF is followed by a
// stuffed 0x00 or a restart marker; `end` when there is none.
const unsigned char *afterEntropyData(const unsigned char *at, const unsigned char *end)
{
    while ((at = static_cast<const unsigned char *>(std::memchr(at, 0xFF, size_t(end - at)))) && at + 1 < end) {
        const unsigned char next = at[1];
        if (next != 0x00 && (next < 0xD0 || next > 0xD7))
            return at;
        at += 2;
    }
    return end;
}

} // namespace

bool jpegScansWithinLimits(const char *data, qsizetype size)
{
    const auto *at = reinterpret_cast<const unsigned char *>(data) + 2, *end = at - 2 + size;
    int64_t pixels = 0, scans = 0;
    while (at + 4 <= end && at[0] == 0xFF) {
        const quint8 marker = at[1];
        if (marker == 0xFF) { // fill byte
            ++at;
            continue;
        }
        if (marker == 0xD9)
            break;
        const int length = at[2] << 8 | at[3];
        if (isFrameMarker(marker) && length >= 7 && at + 9 <= end)
            pixels = int64_t(at[5] << 8 | at[6]) * (at[7] << 8 | at[8]);
        at += 2 + length;
        if (marker == 0xDA && at < end) {
            if (++scans > maxJpegScans || scans * pixels > maxJpegScanPixels)
                return false;
            at = afterEntropyData(at, end);
        }
    }
    return true;
}

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
    if (!isDecodableSize(width, height) || colorspace == TJCS_CMYK || colorspace == TJCS_YCCK ||
        !jpegScansWithinLimits(data, size))
        return std::nullopt;
    const tjscalingfactor scale = reductionCovering(width, height, coveringBox);
    QImage image = newLargeImage(TJSCALED(width, scale), TJSCALED(height, scale), QImage::Format_RGB32);
    if (image.isNull())
        return std::nullopt;
    // BGRX is QImage's RGB32 byte order on little-endian machines; X is filled with 0xff.
    const int status = tjDecompress2(tj.get(), bytes, static_cast<unsigned long>(size), image.bits(), image.width(),
                                     static_cast<int>(image.bytesPerLine()), image.height(), TJPF_BGRX, TJFLAG_LIMITSCANS);
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
