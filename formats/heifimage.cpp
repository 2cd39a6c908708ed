// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/heifimage.h"

#include <algorithm>
#include <cstring>

#include "core/largebuffer.h"
#include "formats/heifboxes.h"
#include "formats/imagelimits.h"

namespace Vorel::Heif {

namespace {

// The number of pictures the primary item is composed of (a grid's tiles); 0 when the boxes
// cannot be read here, which leaves the file to libheif's own checks.
qsizetype primaryItemParts(const QByteArray &data)
{
    try {
        for (qsizetype at = 0; at + 8 <= data.size();) {
            Cursor header(data, at, data.size());
            quint64 size = header.read(4);
            const QByteArray type = header.readBytes(4);
            size = size == 1 ? header.read(8) : size == 0 ? quint64(data.size() - at) : size;
            if (type != "meta") {
                at += qsizetype(std::min<quint64>(std::max<quint64>(size, 8), quint64(data.size())));
                continue;
            }
            const std::vector<BoxSpan> metaBoxes =
                readBoxes(data, at, at + qsizetype(std::min<quint64>(size, quint64(data.size() - at))));
            if (metaBoxes.empty())
                return 0;
            const BoxSpan &meta = metaBoxes.front();
            const std::vector<BoxSpan> boxes = readBoxes(data, meta.payload + 4, meta.end);
            const BoxSpan &pitm = requireBox(boxes, "pitm");
            Cursor primary(data, pitm.payload, pitm.end);
            const quint32 id = quint32(primary.read(primary.read(4) >> 24 == 0 ? 2 : 4));
            const BoxSpan *iref = findBox(boxes, "iref");
            qsizetype parts = 0;
            for (const ItemReference &reference : iref ? readItemReferences(data, *iref) : std::vector<ItemReference>())
                if (reference.type == "dimg" && reference.from == id)
                    parts += qsizetype(reference.to.size());
            return parts;
        }
    } catch (const MalformedBoxes &) {
    }
    return 0;
}

} // namespace

Context openContext(const QByteArray &data)
{
    Context context(heif_context_alloc());
    if (!context || primaryItemParts(data) > maxHeifGridTiles)
        return nullptr;
    // libheif refuses items with a side of this or more while it parses the file.
    heif_context_set_maximum_image_size_limit(context.get(), int(maxDecodedSide) + 1);
    const heif_error error =
        heif_context_read_from_memory_without_copy(context.get(), data.constData(), data.size(), nullptr);
    return error.code == heif_error_Ok ? std::move(context) : nullptr;
}

std::optional<QImage> decodeHandle(heif_image_handle *handle)
{
    if (!handle || !isDecodableSize(heif_image_handle_get_width(handle), heif_image_handle_get_height(handle)))
        return std::nullopt;
    const bool alpha = heif_image_handle_has_alpha_channel(handle);
    heif_image *raw = nullptr;
    const heif_error error = heif_decode_image(handle, &raw, heif_colorspace_RGB,
                                               alpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB,
                                               nullptr);
    Image decoded(raw);
    if (error.code != heif_error_Ok || !decoded)
        return std::nullopt;
    const int w = heif_image_get_width(decoded.get(), heif_channel_interleaved);
    const int h = heif_image_get_height(decoded.get(), heif_channel_interleaved);
    int stride = 0;
    const uint8_t *plane = heif_image_get_plane_readonly(decoded.get(), heif_channel_interleaved, &stride);
    if (!plane || !isDecodableSize(w, h))
        return std::nullopt;
    QImage image = newLargeImage(w, h, alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    if (image.isNull())
        return std::nullopt;
    const int channels = alpha ? 4 : 3;
    for (int y = 0; y < h; ++y) {
        const uint8_t *in = plane + static_cast<size_t>(y) * stride;
        auto *out = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < w; ++x, in += channels)
            out[x] = qRgba(in[0], in[1], in[2], alpha ? in[3] : 255);
    }
    return alpha ? image.convertToFormat(QImage::Format_ARGB32_Premultiplied) : image;
}

Handle encodeImage(heif_context *context, const QImage &image, int quality)
{
    if (!context || image.isNull())
        return nullptr;
    const bool alpha = image.hasAlphaChannel();
    const QImage source = image.convertToFormat(alpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    heif_image *raw = nullptr;
    if (heif_image_create(source.width(), source.height(), heif_colorspace_RGB,
                          alpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB, &raw)
            .code != heif_error_Ok)
        return nullptr;
    Image heifImage(raw);
    if (heif_image_add_plane(heifImage.get(), heif_channel_interleaved, source.width(), source.height(), 8).code !=
        heif_error_Ok)
        return nullptr;
    int stride = 0;
    uint8_t *plane = heif_image_get_plane(heifImage.get(), heif_channel_interleaved, &stride);
    const size_t rowBytes = static_cast<size_t>(source.width()) * (alpha ? 4 : 3);
    for (int y = 0; y < source.height(); ++y)
        std::memcpy(plane + static_cast<size_t>(y) * stride, source.constScanLine(y), rowBytes);

    heif_encoder *rawEncoder = nullptr;
    if (heif_context_get_encoder_for_format(context, heif_compression_HEVC, &rawEncoder).code != heif_error_Ok)
        return nullptr;
    Encoder encoder(rawEncoder);
    heif_encoder_set_lossy_quality(encoder.get(), quality);
    // x265's fastest preset: at quality 90 a 12-megapixel eye still comes out above 50 dB PSNR,
    // in about a quarter of the time of the library's default preset (x265 spreads the work
    // over every core on its own).
    heif_encoder_set_parameter_string(encoder.get(), "preset", "ultrafast");
    // Every picture here is sRGB; the file says so in an nclx colr box, so that phones and
    // headsets need not guess (libheif's own default has changed between versions).
    const std::unique_ptr<heif_color_profile_nclx, decltype(&heif_nclx_color_profile_free)> nclx(
        heif_nclx_color_profile_alloc(), heif_nclx_color_profile_free);
    const std::unique_ptr<heif_encoding_options, decltype(&heif_encoding_options_free)> options(
        heif_encoding_options_alloc(), heif_encoding_options_free);
    if (!nclx || !options)
        return nullptr;
    nclx->color_primaries = heif_color_primaries_ITU_R_BT_709_5;
    nclx->transfer_characteristics = heif_transfer_characteristic_IEC_61966_2_1;
    nclx->matrix_coefficients = heif_matrix_coefficients_ITU_R_BT_601_6;
    nclx->full_range_flag = 1;
    if (heif_image_set_nclx_color_profile(heifImage.get(), nclx.get()).code != heif_error_Ok)
        return nullptr;
    options->output_nclx_profile = nclx.get();
    options->macOS_compatibility_workaround_no_nclx_profile = 0; // on by default, for systems of 2018
    heif_image_handle *rawHandle = nullptr;
    if (heif_context_encode_image(context, heifImage.get(), encoder.get(), options.get(), &rawHandle).code !=
        heif_error_Ok)
        return nullptr;
    return Handle(rawHandle);
}

namespace {

heif_error appendTo(heif_context *, const void *data, size_t size, void *userdata)
{
    static_cast<QByteArray *>(userdata)->append(static_cast<const char *>(data), static_cast<qsizetype>(size));
    return heif_error{heif_error_Ok, heif_suberror_Unspecified, "ok"};
}

} // namespace

std::optional<QByteArray> writeContext(heif_context *context)
{
    QByteArray bytes;
    heif_writer writer{};
    writer.writer_api_version = 1;
    writer.write = appendTo;
    if (heif_context_write(context, &writer, &bytes).code != heif_error_Ok)
        return std::nullopt;
    return bytes;
}

} // namespace Vorel::Heif
