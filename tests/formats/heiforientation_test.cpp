// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// HEIC orientation rewrites read back with libheif, which applies irot/imir on decode: the
// result must look like the coded pixels under the EXIF orientation, and the image data must
// not change. Small files are encoded here with and without existing transforms.
#include <QImage>

#include <gtest/gtest.h>
#include <libheif/heif.h>

#include "formats/exiforientation.h"
#include "formats/heifboxes.h"
#include "formats/heifimage.h"
#include "formats/heiforientation.h"
#include "tests/testsupport.h"

using namespace Vorel;
using namespace Vorel::TestSupport;

namespace {

// A lossless 64x32 gradient, stored with libheif's own transforms for `storedOrientation`.
QByteArray encodedHeic(int storedOrientation)
{
    const Heif::Context context(heif_context_alloc());
    heif_encoder *encoder = nullptr;
    heif_context_get_encoder_for_format(context.get(), heif_compression_HEVC, &encoder);
    const Heif::Encoder ownedEncoder(encoder);
    heif_encoder_set_lossless(encoder, 1);
    heif_image *image = nullptr;
    heif_image_create(64, 32, heif_colorspace_RGB, heif_chroma_interleaved_RGB, &image);
    const Heif::Image ownedImage(image);
    heif_image_add_plane(image, heif_channel_interleaved, 64, 32, 8);
    int stride = 0;
    uint8_t *pixels = heif_image_get_plane(image, heif_channel_interleaved, &stride);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 64; ++x) {
            uint8_t *p = pixels + y * stride + 3 * x;
            p[0] = uint8_t(x * 4), p[1] = uint8_t(y * 8), p[2] = uint8_t((x ^ y) * 8);
        }
    heif_encoding_options *options = heif_encoding_options_alloc();
    options->image_orientation = heif_orientation(storedOrientation);
    heif_context_encode_image(context.get(), image, encoder, options, nullptr);
    heif_encoding_options_free(options);
    return Heif::writeContext(context.get()).value_or(QByteArray());
}

// The primary image as libheif shows it, or its coded pixels when `transformed` is false.
QImage decodedPrimary(const QByteArray &file, bool transformed)
{
    const Heif::Context context = Heif::openContext(file);
    heif_image_handle *handle = nullptr;
    if (!context || heif_context_get_primary_image_handle(context.get(), &handle).code != heif_error_Ok)
        return {};
    const Heif::Handle ownedHandle(handle);
    heif_decoding_options *options = heif_decoding_options_alloc();
    options->ignore_transformations = !transformed;
    heif_image *image = nullptr;
    const heif_error decoded = heif_decode_image(handle, &image, heif_colorspace_RGB, heif_chroma_interleaved_RGB, options);
    heif_decoding_options_free(options);
    if (decoded.code != heif_error_Ok)
        return {};
    const Heif::Image ownedImage(image);
    int stride = 0;
    const uint8_t *pixels = heif_image_get_plane_readonly(image, heif_channel_interleaved, &stride);
    return QImage(pixels, heif_image_get_width(image, heif_channel_interleaved),
                  heif_image_get_height(image, heif_channel_interleaved), stride, QImage::Format_RGB888)
        .copy();
}

QByteArray mediaData(const QByteArray &file)
{
    for (const Heif::BoxSpan &box : Heif::readBoxes(file, 0, file.size()))
        if (box.type == "mdat")
            return file.mid(box.payload, box.end - box.payload);
    return {};
}

class HeifRewrite : public ::testing::TestWithParam<std::tuple<int, int>> { };

TEST_P(HeifRewrite, ShowsTheCodedPixelsInTheChosenOrientation)
{
    const auto [stored, orientation] = GetParam();
    const QByteArray before = encodedHeic(stored);
    const QImage coded = decodedPrimary(before, false);
    ASSERT_EQ(coded.size(), QSize(64, 32));

    const std::optional<QByteArray> after = heifWithOrientation(before, orientation);

    ASSERT_TRUE(after);
    EXPECT_EQ(decodedPrimary(*after, false), coded);
    EXPECT_EQ(decodedPrimary(*after, true), applyExifOrientation(coded, orientation));
    EXPECT_EQ(mediaData(*after), mediaData(before));
    EXPECT_EQ(heifWithOrientation(*after, orientation), after); // a second rewrite changes nothing
}

// Stored as 1 (no transform), 6 (irot) and 7 (irot and imir), rewritten to every value.
INSTANTIATE_TEST_SUITE_P(
    AllValues, HeifRewrite, ::testing::Combine(::testing::Values(1, 6, 7), ::testing::Range(1, 9)));

TEST(HeifRewrite, RealFilesKeepTheirImageData)
{
    struct Case {
        const char *file;
        QSize shownAs8; // primary size once rewritten to orientation 8
    } cases[] = {
        {"rainbow-451x461.heic", {461, 451}}, // Exif and XMP items, no transform yet
        {"colors-no-alpha-thumbnail.heic", {72, 72}}, // thumbnail item follows the primary
        {"example.heic", {854, 1280}}, // two top-level images
        {"iphone_13_pro_max.heic", {3024, 4032}}, // grid primary with irot already
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.file);
        const QByteArray before = readAll(testData(QStringLiteral("heic/") + QLatin1String(c.file)));
        const std::optional<QByteArray> after = heifWithOrientation(before, 8);
        ASSERT_TRUE(after);
        const QByteArray mdatBefore = mediaData(before), mdatAfter = mediaData(*after);
        ASSERT_EQ(mdatAfter.size(), mdatBefore.size());
        EXPECT_LE(changedBytes(mdatBefore, mdatAfter), 2); // the Exif tag's value byte and the XMP digit
        EXPECT_EQ(decodedPrimary(*after, true).size(), c.shownAs8);
    }
}

TEST(HeifRewrite, RefusesMalformedBoxes)
{
    const QByteArray good = encodedHeic(1);
    const auto metaAt = good.indexOf("meta") - 4;
    const auto ipmaAt = good.indexOf("ipma") - 4;
    const auto ilocAt = good.indexOf("iloc") - 4;
    const auto patched
        = [&](qsizetype at, QByteArray bytes) { return QByteArray(good).replace(at, bytes.size(), bytes); };
    const struct {
        const char *name;
        QByteArray file;
    } cases[] = {
        {"truncated inside meta", good.left(metaAt + 40)},
        {"meta larger than the file", patched(metaAt, QByteArray("\x7F\0\0\0", 4))},
        {"box smaller than its header", patched(metaAt, QByteArray("\0\0\0\x04", 4))},
        {"ipma entry count too high", patched(ipmaAt + 12, QByteArray("\0\0\x10\0", 4))},
        {"property of size 0", patched(good.indexOf("hvcC") - 4, QByteArray(4, '\0'))},
        {"association past the last property", patched(ipmaAt + 19, QByteArray("\x89", 1))},
        {"iloc field size 3", patched(ilocAt + 12, QByteArray("\x33", 1))},
        {"iloc version 7", patched(ilocAt + 8, QByteArray("\x07", 1))},
        {"no meta", good.left(metaAt)},
    };
    for (const auto &c : cases)
        EXPECT_FALSE(heifWithOrientation(c.file, 6)) << c.name;
}

} // namespace
