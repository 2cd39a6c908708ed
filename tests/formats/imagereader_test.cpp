// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Reading real files upright, and refusing broken ones without crashing or over-allocating.
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "formats/imagereader.h"

using namespace Vorel;

namespace {

const QString data = QStringLiteral(VOREL_TEST_DATA);

QImage load(const QString &relative)
{
    const std::optional<QImage> image = loadCorrectImageOriented(data + QLatin1Char('/') + relative);
    return image ? *image : QImage();
}

// Mean absolute difference per channel, on a grid of samples (JPEG noise allowed).
double meanDifference(const QImage &a, const QImage &b)
{
    double sum = 0;
    int n = 0;
    for (int y = 0; y < a.height(); y += 7)
        for (int x = 0; x < a.width(); x += 7) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
            n += 3;
        }
    return sum / n;
}

// Every file of a family shows the same upright picture once its tag is applied: the
// orientation-1 file is the oracle, decoded by the same path without any turn.
TEST(ImageReader, EveryExifOrientationComesOutUpright)
{
    struct Family {
        const char *pattern; // %1 = orientation
        QSize upright;
        double tolerance;
    } families[] = {
        {"orientation/Landscape_%1.jpg", {1800, 1200}, 6},
        {"orientation/Portrait_%1.jpg", {1200, 1800}, 6},
        {"orientation/g4_orientation_%1.tif", {590, 88}, 1},
    };
    for (const Family &family : families) {
        const QImage reference = load(QString::fromLatin1(family.pattern).arg(1));
        ASSERT_EQ(reference.size(), family.upright) << family.pattern;
        for (int orientation = 2; orientation <= 8; ++orientation) {
            const QImage image = load(QString::fromLatin1(family.pattern).arg(orientation));
            ASSERT_EQ(image.size(), family.upright) << family.pattern << " " << orientation;
            EXPECT_LT(meanDifference(image, reference), family.tolerance) << family.pattern << " " << orientation;
        }
    }
    // Hopper files are square: they catch wrong pixel turns, the 2x1 rectangle a missed swap.
    const QImage hopper = load(QStringLiteral("orientation/hopper.jpg"));
    for (int orientation = 2; orientation <= 8; ++orientation)
        EXPECT_LT(meanDifference(load(QStringLiteral("orientation/hopper_orientation_%1.jpg").arg(orientation)), hopper),
                  17)
            << orientation;
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

QByteArray fileBytes(const QString &relative)
{
    QFile file(data + QLatin1Char('/') + relative);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

// A PNG signature and IHDR chunk declaring the given size, with a valid CRC.
QByteArray pngHeader(quint32 w, quint32 h)
{
    QByteArray ihdr("IHDR");
    for (quint32 v : {w, h})
        for (int s = 24; s >= 0; s -= 8)
            ihdr.append(char((v >> s) & 0xff));
    ihdr.append("\x08\x02\x00\x00\x00", 5);
    quint32 crc = 0xffffffff;
    for (char c : ihdr) {
        crc ^= quint8(c);
        for (int k = 0; k < 8; ++k)
            crc = (crc >> 1) ^ (0xedb88320u & (0u - (crc & 1)));
    }
    crc ^= 0xffffffff;
    QByteArray png("\x89PNG\r\n\x1a\n\x00\x00\x00\x0d", 12);
    png += ihdr;
    for (int s = 24; s >= 0; s -= 8)
        png.append(char((crc >> s) & 0xff));
    return png;
}

TEST(ImageReader, BrokenFilesGiveNothing)
{
    QTemporaryDir dir;
    const QByteArray jpeg = fileBytes(QStringLiteral("orientation/hopper.jpg"));
    const QByteArray heic = fileBytes(QStringLiteral("heic/rainbow-451x461.heic"));
    const QByteArray png = fileBytes(QStringLiteral("orientation/exif.png"));
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
        QFile file(dir.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        return loadCorrectImageOriented(file.fileName());
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
