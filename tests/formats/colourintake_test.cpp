// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures arrive in sRGB whatever profile they carry, checked against conversions made by
// other programs (tests/data/colour/make.sh); sRGB pictures and broken profiles pass untouched.
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <libheif/heif.h>

#include "formats/heifimage.h"
#include "formats/imagereader.h"
#include "formats/jpegcodec.h"
#include "formats/spatialphoto.h"

using namespace Vorel;

namespace {

const QString data = QStringLiteral(VOREL_TEST_DATA) + QLatin1Char('/');

QByteArray bytesOf(const QString &relative)
{
    QFile file(data + relative);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage loadBytes(const QByteArray &bytes)
{
    QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("picture")));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return {};
    file.close();
    return loadCorrectImageOriented(file.fileName()).value_or(QImage());
}

QImage rawJpeg(const QByteArray &bytes) { return decodeJpeg(bytes.constData(), bytes.size()).value_or(QImage()); }

// Largest channel difference between `image` at `origins` and the side-by-side crops of `reference`.
int largestDifference(const QImage &image, const QImage &reference, const std::vector<QPoint> &origins)
{
    const int size = reference.height();
    int largest = 0;
    for (size_t i = 0; i < origins.size(); ++i)
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x) {
                const QRgb p = image.pixel(origins[i] + QPoint(x, y)), q = reference.pixel(int(i) * size + x, y);
                largest = std::max({largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                    std::abs(qBlue(p) - qBlue(q))});
            }
    return largest;
}

TEST(ColourIntake, ProfilesAreConvertedToSrgb)
{
    const struct {
        const char *file, *reference;
        bool crops; // the reference holds three 64x64 crops at the places make.sh cut them
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
        const QImage image = loadCorrectImageOriented(data + QLatin1String(c.file)).value_or(QImage());
        const QImage reference(data + QLatin1String(c.reference));
        ASSERT_FALSE(image.isNull());
        ASSERT_FALSE(reference.isNull());
        const int w = image.width(), h = image.height();
        const std::vector<QPoint> origins =
            c.crops ? std::vector<QPoint>{{w / 4, h / 4}, {w / 2, h / 2}, {3 * w / 4, 3 * h / 5}} : std::vector<QPoint>{{0, 0}};
        const QImage compared = c.crops ? reference : reference.copy(0, 0, reference.height(), reference.height());
        if (!c.crops)
            ASSERT_EQ(image.size(), reference.size());
        EXPECT_LE(largestDifference(image, compared, origins), 1);
        if (!c.crops) // the whole picture, beyond the first square
            EXPECT_LE(largestDifference(image.copy(w - h, 0, h, h), reference.copy(w - h, 0, h, h), {{0, 0}}), 1);
    }
}

// A JPEG's ICC chunk: "ICC_PROFILE\0", sequence number, chunk count.
qsizetype iccChunkHeader(const QByteArray &jpeg) { return jpeg.indexOf(QByteArray("ICC_PROFILE\0", 12)); }

TEST(ColourIntake, SrgbAndBrokenProfilesLeavePixelsUntouched)
{
    const QByteArray tagged = bytesOf(QStringLiteral("colour/srgb-tagged.jpg"));
    const QByteArray adobe = bytesOf(QStringLiteral("colour/adobe-rgb.jpg"));
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
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
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
