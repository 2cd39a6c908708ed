// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures arrive in sRGB whatever profile they carry, checked against conversions made by
// other programs (tests/data/colour/make.sh); sRGB pictures and broken profiles pass untouched.
#include <gtest/gtest.h>
#include <libheif/heif.h>

#include "formats/heifimage.h"
#include "formats/imagereader.h"
#include "formats/jpegcodec.h"
#include "formats/spatialphoto.h"
#include "tests/testsupport.h"

using namespace Vorel;
using namespace Vorel::TestSupport;

namespace {

QImage loadBytes(const QByteArray &bytes)
{
    const QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("picture"));
    return writeAll(path, bytes) ? loadCorrectImageOriented(path).value_or(QImage()) : QImage();
}

QImage rawJpeg(const QByteArray &bytes) { return decodeJpeg(bytes.constData(), bytes.size()).value_or(QImage()); }

TEST(ColourIntake, ProfilesAreConvertedToSrgb)
{
    const struct {
        const char *file, *reference;
        bool crops; // the reference holds three square crops side by side, cut where make.sh cut them
    } cases[] = {
        {"colour/adobe-rgb.jpg", "colour/adobe-rgb.srgb.png", false},
        {"colour/adobe-rgb-exif.jpg", "colour/adobe-rgb.srgb.png", false}, // Exif R03, no profile
        {"colour/adobe-rgb.png", "colour/adobe-rgb.srgb.png", false},
        {"colour/adobe-rgb.tif", "colour/adobe-rgb.srgb.png", false},
        {"heic/vision-pro.HEIC", "colour/vision-pro.srgb-crops.png", true},
        {"heic/iphone_13_pro_max.heic", "colour/iphone_13_pro_max.srgb-crops.png", true},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.file);
        const QImage image = loadCorrectImageOriented(testData(QLatin1String(c.file))).value_or(QImage());
        const QImage reference(testData(QLatin1String(c.reference)));
        ASSERT_FALSE(image.isNull() || reference.isNull());
        if (!c.crops) {
            ASSERT_EQ(image.size(), reference.size());
            EXPECT_LE(pixelDifference(image, reference).largest, 1);
            continue;
        }
        const int w = image.width(), h = image.height(), side = reference.height();
        const QPoint origins[] = { { w / 4, h / 4 }, { w / 2, h / 2 }, { 3 * w / 4, 3 * h / 5 } };
        for (int i = 0; i < 3; ++i)
            EXPECT_LE(pixelDifference(
                          image.copy(QRect(origins[i], QSize(side, side))), reference.copy(i * side, 0, side, side))
                          .largest,
                1)
                << i;
    }
}

// A JPEG's ICC chunk: "ICC_PROFILE\0", sequence number, chunk count.
qsizetype iccChunkHeader(const QByteArray &jpeg) { return jpeg.indexOf(QByteArray("ICC_PROFILE\0", 12)); }

TEST(ColourIntake, SrgbAndBrokenProfilesLeavePixelsUntouched)
{
    const QByteArray tagged = readAll(testData(QStringLiteral("colour/srgb-tagged.jpg")));
    const QByteArray adobe = readAll(testData(QStringLiteral("colour/adobe-rgb.jpg")));
    ASSERT_GE(iccChunkHeader(adobe), 0);
    QByteArray missingChunk = adobe, cutShort = adobe, noise = adobe;
    missingChunk[iccChunkHeader(adobe) + 13] = 2; // says two chunks, holds one
    const qsizetype segment = iccChunkHeader(adobe) - 2, profile = segment + 16; // length field, profile
    const int length = (quint8(adobe[segment]) << 8 | quint8(adobe[segment + 1])), kept = 200;
    cutShort.remove(profile + kept, length - 16 - kept); // the profile ends inside its tag table
    cutShort[segment] = char((16 + kept) >> 8);
    cutShort[segment + 1] = char((16 + kept) & 0xff);
    for (qsizetype i = profile + 128; i < profile + 400; ++i)
        noise[i] = char(i * 37); // the tag table and tags overwritten
    int index = 0;
    for (const QByteArray &bytes : {tagged, missingChunk, cutShort, noise}) {
        SCOPED_TRACE(index++);
        const QImage image = loadBytes(bytes);
        ASSERT_FALSE(image.isNull());
        EXPECT_EQ(image, rawJpeg(bytes));
    }
}

// What we write is sRGB and HEIC files say so: read back, the nclx box states sRGB.
TEST(ColourIntake, HeicOutputsStateSrgb)
{
    QImage picture(64, 32, QImage::Format_RGB32);
    picture.fill(qRgb(200, 120, 40));
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("pair.heic"));
    writeSpatialPhoto(picture, picture, path, 0, 60, 64);
    const QByteArray bytes = readAll(path);
    const Heif::Context context = Heif::openContext(bytes);
    ASSERT_TRUE(context);
    heif_image_handle *raw = nullptr;
    ASSERT_EQ(heif_context_get_primary_image_handle(context.get(), &raw).code, heif_error_Ok);
    const Heif::Handle handle(raw);
    heif_color_profile_nclx *nclx = nullptr;
    ASSERT_EQ(heif_image_handle_get_nclx_color_profile(handle.get(), &nclx).code, heif_error_Ok);
    EXPECT_EQ(nclx->color_primaries, heif_color_primaries_ITU_R_BT_709_5);
    EXPECT_EQ(nclx->transfer_characteristics, heif_transfer_characteristic_IEC_61966_2_1);
    EXPECT_EQ(nclx->full_range_flag, 1);
    heif_nclx_color_profile_free(nclx);
    const auto [left, right] = readSpatialPhoto(path);
    EXPECT_LE(std::abs(qRed(left.pixel(10, 10)) - 200), 2); // an sRGB statement converts nothing
}

} // namespace
