// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/jpegcodec.h"

#include <array>
#include <future>
#include <memory>
#include <new>

#include <turbojpeg.h>

#include "core/largebuffer.h"
#include "formats/imagelimits.h"

namespace Vorel {

namespace {

struct HandleCloser {
    void operator()(void *handle) const { tjDestroy(handle); }
};
using TjHandle = std::unique_ptr<void, HandleCloser>;

} // namespace

std::optional<QImage> decodeJpeg(const char *data, qsizetype size)
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
    QImage image = newLargeImage(width, height, QImage::Format_RGB32);
    if (image.isNull())
        return std::nullopt;
    // BGRX is QImage's RGB32 byte order on little-endian machines; X is filled with 0xff.
    const int status = tjDecompress2(tj.get(), bytes, static_cast<unsigned long>(size), image.bits(), width,
                                     static_cast<int>(image.bytesPerLine()), height, TJPF_BGRX, 0);
    // A warning (e.g. data ending early) still leaves a usable picture, as every viewer shows it.
    if (status != 0 && tjGetErrorCode(tj.get()) != TJERR_WARNING)
        return std::nullopt;
    return image;
}

EncodedJpeg::EncodedJpeg(unsigned char *data, unsigned long size) : data(data), size(size) {}

void EncodedJpeg::Free::operator()(unsigned char *bytes) const { tjFree(bytes); }

namespace {

// Pixels TurboJPEG can read as BGRX, so that transparent ones come out black.
QImage encoderPixels(const QImage &image)
{
    return image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32_Premultiplied
               ? image
               : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// Y, Cb and Cr planes of a 4:2:0 picture in one block, unpadded beyond what TurboJPEG needs.
class YuvPlanes {
public:
    YuvPlanes(int width, int height)
    {
        qsizetype total = 0;
        for (int c = 0; c < 3; ++c) {
            strides[c] = tjPlaneWidth(c, width, TJSAMP_420);
            offsets[c] = total;
            total += qsizetype(strides[c]) * tjPlaneHeight(c, height, TJSAMP_420);
        }
        block.reset(new (std::nothrow) unsigned char[size_t(total)]);
    }
    bool isNull() const { return !block; }
    // The planes starting at luma column `x` (even).
    std::array<unsigned char *, 3> from(int x) const
    {
        return {block.get() + offsets[0] + x, block.get() + offsets[1] + x / 2, block.get() + offsets[2] + x / 2};
    }
    int strides[3] = {};

private:
    qsizetype offsets[3] = {};
    std::unique_ptr<unsigned char[]> block;
};

} // namespace

std::optional<EncodedJpeg> compressJpegSideBySide(const QImage &first, const QImage &second, int quality)
{
    if (first.isNull() || second.isNull() || first.height() != second.height() || first.width() % 2 != 0)
        return std::nullopt;
    const int width = first.width() + second.width(), height = first.height();
    YuvPlanes yuv(width, height);
    if (yuv.isNull())
        return std::nullopt;
    // Colour conversion and subsampling work on 2 x 2 blocks that never straddle the views
    // (the first width is even), so each view converts on its own core into its columns of
    // the planes; only the compression of the whole picture runs once.
    const auto convert = [&](const QImage &view, int x) {
        const QImage pixels = encoderPixels(view);
        std::array<unsigned char *, 3> planes = yuv.from(x);
        TjHandle tj(tjInitCompress());
        return tj && tjEncodeYUVPlanes(tj.get(), pixels.constBits(), pixels.width(), int(pixels.bytesPerLine()),
                                       pixels.height(), TJPF_BGRX, planes.data(), yuv.strides, TJSAMP_420, 0) == 0;
    };
    std::future<bool> secondJob = std::async(std::launch::async, convert, std::cref(second), first.width());
    const bool firstConverted = convert(first, 0);
    if (!secondJob.get() || !firstConverted)
        return std::nullopt;
    TjHandle tj(tjInitCompress());
    if (!tj)
        return std::nullopt;
    const std::array<unsigned char *, 3> planes = yuv.from(0);
    const unsigned char *constPlanes[3] = {planes[0], planes[1], planes[2]};
    unsigned char *jpeg = nullptr;
    unsigned long jpegSize = 0;
    const int status = tjCompressFromYUVPlanes(tj.get(), constPlanes, width, yuv.strides, height, TJSAMP_420, &jpeg,
                                               &jpegSize, quality, 0);
    EncodedJpeg encoded(jpeg, jpegSize);
    if (status != 0)
        return std::nullopt;
    return encoded;
}

std::optional<EncodedJpeg> compressJpeg(const QImage &image, int quality)
{
    if (image.isNull())
        return std::nullopt;
    const QImage source = encoderPixels(image);
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
