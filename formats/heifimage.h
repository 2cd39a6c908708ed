// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The building blocks every HEIF reader and writer here shares: libheif objects owned by
// smart pointers, conversion between decoded HEIF images and QImage, and encoding a QImage
// into a context. Anything HEIF-specific beyond that (groups, properties) lives elsewhere.
#pragma once

#include <memory>
#include <optional>

#include <QByteArray>
#include <QImage>

#include <libheif/heif.h>

namespace Vorel::Heif {

struct ContextDeleter {
    void operator()(heif_context *c) const { heif_context_free(c); }
};
struct HandleDeleter {
    void operator()(heif_image_handle *h) const { heif_image_handle_release(h); }
};
struct ImageDeleter {
    void operator()(heif_image *i) const { heif_image_release(i); }
};
struct EncoderDeleter {
    void operator()(heif_encoder *e) const { heif_encoder_release(e); }
};
using Context = std::unique_ptr<heif_context, ContextDeleter>;
using Handle = std::unique_ptr<heif_image_handle, HandleDeleter>;
using Image = std::unique_ptr<heif_image, ImageDeleter>;
using Encoder = std::unique_ptr<heif_encoder, EncoderDeleter>;

// A context over `data`, which must outlive it; none when libheif cannot parse the file.
Context openContext(const QByteArray &data);

// Decodes an image item with its irot/imir/clap transforms applied: Format_RGB32 when
// opaque, Format_ARGB32_Premultiplied with alpha. None on any decoding failure or a size
// beyond the decoder limits.
std::optional<QImage> decodeHandle(heif_image_handle *handle);

// Encodes `image` as a new HEVC image item of `context` at `quality` (0..100); alpha is
// written only when the image has any. Returns the item's handle, or none.
Handle encodeImage(heif_context *context, const QImage &image, int quality);

// The whole context serialised as a file.
std::optional<QByteArray> writeContext(heif_context *context);

} // namespace Vorel::Heif
