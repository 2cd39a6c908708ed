// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// MPO and JPS writing read back by our readers and by other tools; the MP index bytes
// against docs/mpo-layout.md; JPS descriptors; failed writes leave nothing behind.
#include <unistd.h> // geteuid

#include <QDir>
#include <QPainter>

#include <gtest/gtest.h>

#include "formats/cameraexif.h"
#include "formats/imagewriter.h"
#include "formats/jpegcodec.h"
#include "formats/jps.h"
#include "formats/mpindex.h"
#include "formats/mpo.h"
#include "formats/sidebysidejpeg.h"
#include "formats/stereofilewriter.h"
#include "tests/testsupport.h"

using namespace Vorel;
using namespace Vorel::TestSupport;

namespace {

QImage pattern(int w, int h, int seed)
{
    QImage image(w, h, QImage::Format_RGB32);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            image.setPixel(x, y, qRgb((x * 7 + seed) & 255, (y * 5 + seed * 3) & 255, (x ^ y) & 255));
    return image;
}

// What a reader gets from the picture encoded on its own.
QImage decoded(const QImage &picture)
{
    const QByteArray jpeg = *encodeJpeg(picture, lossyQuality);
    return *decodeJpeg(jpeg.constData(), jpeg.size());
}

// The pair as our reader, exiftool and Pillow read it back, and the MP segments as
// docs/mpo-layout.md draws them, with and without an Exif segment in front.
TEST(MpoWriter, ReadsBackEverywhereWithTheDocumentedIndex)
{
    const QByteArray exifs[] = { {}, readCameraExif(testData(QStringLiteral("mpo/Panasonic-DMC-GX8.mpo"))) };
    for (const QByteArray &exif : exifs) {
        SCOPED_TRACE(exif.size());
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("pair.mpo"));
        const QImage left = pattern(64, 48, 3), right = pattern(64, 48, 4);
        writeStereoFile(left, right, path, StereoFileFormat::mpo, exif);
        const auto [readLeft, readRight] = extractMPO(path);
        EXPECT_EQ(readLeft, decoded(left));
        EXPECT_EQ(readRight, decoded(right));

        const QByteArray file = readAll(path);
        const std::vector<MpPicture> pictures = readMpIndex(file);
        ASSERT_EQ(pictures.size(), 2u);
        EXPECT_EQ(pictures[1].offset, pictures[0].size); // no gap
        EXPECT_EQ(pictures[1].offset + pictures[1].size, file.size());
        const QByteArray secondPicture = file.mid(pictures[1].offset);
        EXPECT_TRUE(secondPicture.startsWith("\xFF\xD8") && secondPicture.endsWith("\xFF\xD9"));
        EXPECT_EQ(runProgram(QStringLiteral("exiftool"), { QStringLiteral("-MPImage2"), QStringLiteral("-b"), path }),
            secondPicture);
        EXPECT_EQ(runProgram(QStringLiteral("/usr/bin/python3"),
                      { QStringLiteral("-c"),
                          QStringLiteral("import sys; from PIL import Image; im = Image.open(sys.argv[1]); "
                                         "print(im.format, im.n_frames)"),
                          path })
                      .trimmed(),
            QByteArray("MPO 2"));
        // Each picture: SOI, then the Exif APP1 when there is one, then the MP APP2.
        const auto app2 = [&](qsizetype picture) {
            qsizetype at = picture + 2;
            if (quint8(file[at + 1]) == 0xE1)
                at += 2 + (quint8(file[at + 2]) << 8 | quint8(file[at + 3]));
            return at;
        };
        const qsizetype first = app2(0), second = app2(pictures[1].offset);
        const qsizetype mpEndian = first + 8;
        const auto hex = [](qint64 value) { return QByteArray::number(value, 16).rightJustified(8, '0'); };
        const QByteArray unknowns = "ffffffffffffffff" "ffffffffffffffff";
        const QByteArray firstExpected = "ffe2009e" "4d504600" "4d4d002a00000008"
                                         "0003" "b000000700000004" "30313030" "b00100040000000100000002"
                                         "b00200070000002000000032" "00000052"
                                         "20020002" + hex(pictures[0].size) + "00000000" "00000000"
                                         "00020002" + hex(pictures[1].size) + hex(pictures[1].offset - mpEndian) + "00000000"
                                         "0004" "b10100040000000100000001" "b20400040000000100000001"
                                         "b205000a0000000100000088" "b20600050000000100000090" "00000000" + unknowns;
        const QByteArray secondExpected = "ffe20060" "4d504600" "4d4d002a00000008"
                                          "0005" "b000000700000004" "30313030" "b10100040000000100000002"
                                          "b20400040000000100000001" "b205000a000000010000004a"
                                          "b20600050000000100000052" "00000000" + unknowns;
        EXPECT_EQ(file.mid(first, 0xA0).toHex(), firstExpected);
        EXPECT_EQ(file.mid(second, 0x62).toHex(), secondExpected);
        EXPECT_EQ(first, exif.isEmpty() ? 2 : 2 + 4 + 6 + exifForWrittenPicture(exif, {64, 48}).size()); // no JFIF
    }
}

QByteArray descriptor(const char *hex) { return QByteArray("_JPSJPS_") + QByteArray::fromHex(hex); }

TEST(Jps, DescriptorTable)
{
    using L = JpsDescriptor::Layout;
    const struct {
        QByteArray payload;
        std::optional<JpsDescriptor> expected; // none: JpsError
    } rows[] = {
        {descriptor("0004 00000201 0000"), JpsDescriptor{L::sideBySide, false, false, false}},
        {descriptor("0004 00040201 0010") + "Written by hand.", JpsDescriptor{L::sideBySide, true, false, false}},
        {descriptor("0004 00060201 0000"), JpsDescriptor{L::sideBySide, true, true, false}},
        {descriptor("0004 00010301 0000"), JpsDescriptor{L::overUnder, false, false, true}},
        {descriptor("0006 00040301 0000 0000"), JpsDescriptor{L::overUnder, true, false, false}}, // longer descriptor
        {descriptor("0004 05000201"), JpsDescriptor{L::sideBySide, false, false, false}},         // no comment field
        {descriptor("0008 00000201 0000"), std::nullopt},                                         // length past the end
        {descriptor("0002 0000"), std::nullopt},                                                  // too short
        {descriptor("00"), std::nullopt},
        {descriptor("0004 00000200 0000"), std::nullopt}, // mono
        {descriptor("0004 00000207 0000"), std::nullopt}, // unknown type
        {descriptor("0004 00000101 0000"), std::nullopt}, // interleaved
        {descriptor("0004 00000401 0000"), std::nullopt}, // anaglyph
        {descriptor("0004 00000901 0000"), std::nullopt}, // unknown layout
        {descriptor("0004 00010201 0000"), std::nullopt}, // side by side with half height
        {descriptor("0004 00020301 0000"), std::nullopt}, // over/under with half width
    };
    for (const auto &row : rows) {
        try {
            const JpsDescriptor parsed = parseJpsDescriptor(row.payload);
            EXPECT_TRUE(row.expected && parsed == *row.expected) << row.payload.toHex().constData();
        } catch (const JpsError &error) {
            EXPECT_FALSE(row.expected) << row.payload.toHex().constData();
            EXPECT_TRUE(error.description().startsWith(QStringLiteral("Invalid JPS file: ")));
        }
    }
}

TEST(Jps, WrittenRightFirstWithADescriptorThatSaysSo)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("pair.jps"));
    const QImage left = pattern(96, 64, 5), right = pattern(96, 64, 6);
    writeStereoFile(left, right, path, StereoFileFormat::jps);
    const QByteArray file = readAll(path);
    EXPECT_EQ(readJpsDescriptor(path), JpsDescriptor{});
    EXPECT_EQ(runProgram(QStringLiteral("exiftool"),
                  { QStringLiteral("-s3"), QStringLiteral("-JPSLayout"), QStringLiteral("-JPSType"),
                      QStringLiteral("-JPSFlags"), path }),
        QByteArray("Side By Side\nStereo\n(none)\n"));
    const QImage picture = *decodeJpeg(file.constData(), file.size());
    ASSERT_EQ(picture.size(), QSize(192, 64));
    // Lossy: each half is compared with the view it should hold by their mean difference.
    const auto meanDifference = [&](int x0, const QImage &view) {
        qint64 sum = 0;
        for (int y = 0; y < view.height(); ++y)
            for (int x = 0; x < view.width(); ++x)
                sum += std::abs(qGreen(picture.pixel(x0 + x, y)) - qGreen(view.pixel(x, y)));
        return double(sum) / (view.width() * view.height());
    };
    EXPECT_LT(meanDifference(0, right), 4.0);
    EXPECT_LT(meanDifference(right.width(), left), 4.0);
    // Pictures without a descriptor (PNS, plain JPEG) take the default.
    for (const char *other : {"stereo/motorcycle_left.png", "stereo/left.jpg", "does-not-exist.jps"})
        EXPECT_EQ(readJpsDescriptor(testData(QLatin1String(other))), JpsDescriptor {}) << other;
}

// Encoded apart and interleaved, or composed where the blocks do not line up at the seam:
// always the pixels of the composed picture encoded in one piece.
TEST(Jps, SideBySideEncodingDecodesToTheComposedPicture)
{
    const QSize sizes[][2] = {{{96, 64}, {96, 64}}, {{64, 33}, {49, 33}}, {{4000, 9}, {3999, 9}},
                              {{16, 300}, {1, 300}}, {{95, 17}, {96, 17}}, {{64, 9}, {96, 9}}};
    for (const auto &[firstSize, secondSize] : sizes) {
        const QImage first = pattern(firstSize.width(), firstSize.height(), 9);
        const QImage second = pattern(secondSize.width(), secondSize.height(), 10);
        QImage composed(first.width() + second.width(), first.height(), QImage::Format_RGB32);
        QPainter painter(&composed);
        painter.drawImage(0, 0, first);
        painter.drawImage(first.width(), 0, second);
        painter.end();
        const QByteArray ours = *encodeSideBySideJpeg(first, second, lossyQuality);
        const QByteArray reference = *encodeJpeg(composed, lossyQuality);
        EXPECT_EQ(*decodeJpeg(ours.constData(), ours.size()), *decodeJpeg(reference.constData(), reference.size()))
            << firstSize.width() << " + " << secondSize.width();
    }
    EXPECT_FALSE(encodeSideBySideJpeg(pattern(16, 8, 1), pattern(16, 7, 1), lossyQuality));
}

TEST(StereoFileWriter, FailureLeavesNothingBehind)
{
    QTemporaryDir dir;
    const QString kept = dir.filePath(QStringLiteral("kept.mpo")), readOnly = dir.filePath(QStringLiteral("ro"));
    ASSERT_TRUE(writeAll(kept, "good old bytes"));
    QDir(dir.path()).mkdir(QStringLiteral("ro"));
    QFile::setPermissions(readOnly, QFile::ReadOwner | QFile::ExeOwner);
    const QImage image = pattern(32, 32, 7);
    const struct {
        QString path;
        StereoFileFormat format;
        QImage left, right;
        StereoFileError::Code code;
    } rows[] = {
        {kept, StereoFileFormat::mpo, QImage(), image, StereoFileError::encodingFailed},
        {kept, StereoFileFormat::jps, image, pattern(32, 16, 8), StereoFileError::encodingFailed}, // heights differ
        {kept + QStringLiteral("/inside-a-file.mpo"), StereoFileFormat::mpo, image, image, StereoFileError::cannotWrite},
        {readOnly + QStringLiteral("/x.jps"), StereoFileFormat::jps, image, image, StereoFileError::cannotWrite},
    };
    for (const auto &row : rows) {
        if (geteuid() == 0 && row.path.startsWith(readOnly))
            continue; // folder permissions do not stop root
        try {
            writeStereoFile(row.left, row.right, row.path, row.format);
            ADD_FAILURE() << qPrintable(row.path);
        } catch (const StereoFileError &error) {
            EXPECT_EQ(error.code(), row.code) << qPrintable(row.path);
        }
    }
    EXPECT_EQ(readAll(kept), QByteArray("good old bytes"));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("kept.mpo")});
    EXPECT_TRUE(QDir(readOnly).isEmpty());
}

} // namespace
