// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Reading real files upright, and refusing broken ones without crashing or over-allocating.
#include <gtest/gtest.h>

#include "formats/imagereader.h"
#include "tests/formats/bytebuilders.h"
#include "tests/testsupport.h"

using namespace Vorel;
using namespace Vorel::TestSupport;

namespace {

QImage load(const QString &relative)
{
    return loadCorrectImageOriented(testData(relative)).value_or(QImage());
}

// Every file of a family shows the same upright picture once its tag is applied: the
// orientation-1 file is the oracle, decoded by the same path without any turn.
TEST(ImageReader, EveryExifOrientationComesOutUpright)
{
    struct Family {
        const char *upright, *pattern; // in orientation/; %1 = orientation
        QSize size;
        double tolerance; // mean difference: JPEG noise allowed
    } families[] = {
        { "Landscape_1.jpg", "Landscape_%1.jpg", { 1800, 1200 }, 6 },
        { "Portrait_1.jpg", "Portrait_%1.jpg", { 1200, 1800 }, 6 },
        { "g4_orientation_1.tif", "g4_orientation_%1.tif", { 590, 88 }, 1 },
        // Square: catches wrong pixel turns; the 2x1 rectangle below catches a missed swap.
        { "hopper.jpg", "hopper_orientation_%1.jpg", { 128, 128 }, 17 },
    };
    for (const Family &family : families) {
        const QImage reference = load(QStringLiteral("orientation/") + QLatin1String(family.upright));
        ASSERT_EQ(reference.size(), family.size) << family.upright;
        for (int orientation = 2; orientation <= 8; ++orientation) {
            const QImage image
                = load((QStringLiteral("orientation/") + QLatin1String(family.pattern)).arg(orientation));
            ASSERT_EQ(image.size(), family.size) << family.pattern << " " << orientation;
            EXPECT_LT(pixelDifference(image, reference).mean, family.tolerance) << family.pattern << " " << orientation;
        }
    }
    EXPECT_EQ(load(QStringLiteral("orientation/orientation_rectangle.jpg")).size(), QSize(1, 2));
    EXPECT_EQ(load(QStringLiteral("orientation/Landscape_0.jpg")).size(), QSize(1800, 1200)); // invalid tag: as stored
}

TEST(ImageReader, OpensEveryFormatAtItsUprightSize)
{
    struct Row {
        const char *file;
        QSize size;
    } rows[] = {
        {"heic/iphone_13_pro_max.heic", {3024, 4032}}, // irot applied once, not twice with the EXIF tag
        {"heic/rainbow-451x461.heic", {451, 461}},
        {"heic/with-alpha-512x512.heic", {512, 512}},
        {"orientation/exif.png", {512, 512}},
        {"other/hopper.bmp", {128, 128}},
        {"stereo/left01.jpg", {640, 480}}, // 8-bit grayscale JPEG
        {"stereo/motorcycle_left.png", {741, 500}},
        {"stereo/stereograph.left-right.jpg", {3643, 1574}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(load(QString::fromLatin1(row.file)).size(), row.size) << row.file;
    EXPECT_TRUE(load(QStringLiteral("heic/with-alpha-512x512.heic")).hasAlphaChannel());
}

// A PNG signature and IHDR chunk declaring the given size (8-bit RGB), with a valid CRC.
QByteArray pngHeader(quint32 w, quint32 h)
{
    QByteArray ihdr;
    TestSupport::putTiff(ihdr, false, w, 4);
    TestSupport::putTiff(ihdr, false, h, 4);
    return TestSupport::pngSignature + TestSupport::pngChunk("IHDR", ihdr + QByteArray("\x08\x02\0\0\0", 5));
}

TEST(ImageReader, BrokenFilesGiveNothing)
{
    QTemporaryDir dir;
    const QByteArray jpeg = readAll(testData(QStringLiteral("orientation/hopper.jpg")));
    const QByteArray heic = readAll(testData(QStringLiteral("heic/rainbow-451x461.heic")));
    const QByteArray png = readAll(testData(QStringLiteral("orientation/exif.png")));
    const struct {
        const char *name;
        QByteArray bytes;
    } cases[] = {
        {"empty.jpg", {}},
        {"text.jpg", "this is not a picture\n"},
        {"header-only.jpg", jpeg.left(20)},
        {"header-only.heic", heic.left(40)},
        {"half.heic", heic.left(heic.size() / 2)},
        {"header-only.png", png.left(30)},
        {"huge.png", pngHeader(100000, 100000)},
        {"huge-narrow.png", pngHeader(1, 2000000000)},
    };
    const auto load = [&](const QString &name, const QByteArray &bytes) {
        EXPECT_TRUE(writeAll(dir.filePath(name), bytes));
        return loadCorrectImageOriented(dir.filePath(name));
    };
    for (const auto &c : cases)
        EXPECT_FALSE(load(QString::fromLatin1(c.name), c.bytes)) << c.name;
    EXPECT_FALSE(loadCorrectImageOriented(dir.filePath(QStringLiteral("missing.jpg"))));
    // A JPEG cut short still shows what arrived, like every viewer does; it must not crash.
    for (qsizetype cut : {jpeg.size() / 2, jpeg.size() - 10}) {
        const std::optional<QImage> image = load(QStringLiteral("cut%1.jpg").arg(cut), jpeg.left(cut));
        if (image)
            EXPECT_EQ(image->size(), QSize(128, 128));
    }
}

} // namespace
