// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Orientation rewrites of real JPEG, TIFF and PNG files, read back with our EXIF reader and our
// image reader, compared with the coded pixels, and byte by byte with the original.
#include <QImageReader>
#include <QtEndian>

#include <gtest/gtest.h>

#include "formats/exiforientation.h"
#include "formats/exiforientationwriter.h"
#include "formats/imagereader.h"
#include "formats/orientationrewriterun.h"
#include "tests/formats/bytebuilders.h"
#include "tests/testsupport.h"

using namespace Vorel;
using namespace Vorel::TestSupport;

namespace {

QImage codedPixels(const QString &path)
{
    QImageReader reader(path);
    reader.setAutoTransform(false);
    return reader.read();
}

// The parts of a file that must survive a rewrite untouched, in order: for JPEG every segment
// but the Exif and XMP APP1 plus everything from the first SOS on; for PNG every chunk but
// those that carry an orientation (eXIf, orNT, XMP, ImageMagick's raw Exif profile).
QList<QByteArray> preservedParts(const QByteArray &file)
{
    const auto carriesOrientation = [](const QByteArray &payload) {
        for (const QByteArray &prefix : {QByteArray("Exif\0\0", 6), QByteArray("http://ns.adobe.com/xap/1.0/\0", 29),
                 QByteArray("Raw profile type exif\0", 22), QByteArray("XML:com.adobe.xmp\0", 18)})
            if (payload.startsWith(prefix))
                return true;
        return false;
    };
    QList<QByteArray> parts;
    if (file.startsWith("\xFF\xD8")) {
        qsizetype at = 2;
        while (static_cast<quint8>(file[at + 1]) != 0xDA) {
            const qsizetype length = static_cast<quint8>(file[at + 2]) << 8 | static_cast<quint8>(file[at + 3]);
            if (!carriesOrientation(file.mid(at + 4, length - 2)))
                parts << file.mid(at, 2 + length);
            at += 2 + length;
        }
        parts << file.mid(at);
    } else if (file.startsWith("\x89PNG")) {
        for (qsizetype at = 8; at < file.size();) {
            const qsizetype length = qFromBigEndian<quint32>(file.constData() + at);
            const QByteArray type = file.mid(at + 4, 4);
            if (type != "eXIf" && type != "orNT" && !carriesOrientation(file.mid(at + 8, length)))
                parts << file.mid(at, 12 + length);
            at += 12 + length;
        }
    }
    return parts;
}

// A 3x1 8-bit gray uncompressed TIFF without an Orientation tag, in either byte order; its
// odd length makes the appended IFD need a padding byte.
QByteArray untaggedTiff(bool little)
{
    const quint32 pixels = tiffTailOffset(8);
    return tiffBlock(little,
        { { 256, 4, 1, 3 }, { 257, 4, 1, 1 }, { 258, 3, 1, 8 }, { 259, 3, 1, 1 }, { 262, 3, 1, 1 },
            { 273, 4, 1, pixels }, { 278, 4, 1, 1 }, { 279, 4, 1, 3 } },
        0, QByteArray("\x10\x80\xF0", 3));
}

struct RewriteCase {
    const char *file; // in orientation/, or "untagged II.tif" / "untagged MM.tif" from untaggedTiff
    int maxChangedBytes; // when the tag exists the size stays and only this many bytes change; -1: tag added
};

class RealFileRewrite : public ::testing::TestWithParam<std::tuple<RewriteCase, int>> { };

TEST_P(RealFileRewrite, ChangesOnlyTheOrientation)
{
    const auto [fileCase, orientation] = GetParam();
    const QString name = QString::fromLatin1(fileCase.file);
    const QByteArray before = name.startsWith(QLatin1String("untagged"))
        ? untaggedTiff(name.contains(QLatin1String("II")))
        : readAll(testData(QStringLiteral("orientation/") + name));
    QTemporaryDir dir;
    const QString path = dir.filePath(name);
    ASSERT_TRUE(writeAll(path, before));
    const QImage coded = codedPixels(path);
    ASSERT_FALSE(coded.isNull());

    ExifOrientationWriter::rewrite(path, orientation);

    const QByteArray after = readAll(path);
    EXPECT_EQ(readExifOrientation(after), orientation);
    EXPECT_EQ(codedPixels(path), coded);
    EXPECT_TRUE(preservedParts(after) == preservedParts(before));
    if (fileCase.maxChangedBytes >= 0) {
        ASSERT_EQ(after.size(), before.size());
        EXPECT_LE(changedBytes(before, after), fileCase.maxChangedBytes);
    } else if (name.endsWith(QLatin1String(".tif"))) { // a new IFD0 appended: only the pointer to it changes
        EXPECT_EQ(after.left(4), before.left(4));
        EXPECT_EQ(after.mid(8, before.size() - 8), before.mid(8));
    }
    // Our image reader shows the coded pixels the chosen way (coded = the same file rewritten to 1).
    const QImage shown = *loadCorrectImageOriented(path);
    ExifOrientationWriter::rewrite(path, 1);
    EXPECT_EQ(shown, applyExifOrientation(*loadCorrectImageOriented(path), orientation));
    ExifOrientationWriter::rewrite(path, orientation);
    // Rewriting with the same value again changes nothing.
    ExifOrientationWriter::rewrite(path, orientation);
    EXPECT_EQ(readAll(path), after);
}

const RewriteCase rewriteCases[] = {
    { "hopper.jpg", -1 }, // JFIF, no Exif at all
    { "Landscape_3.jpg", 1 }, // the value's low byte (big-endian Exif)
    { "Portrait_0.jpg", 1 }, // invalid value 0 in the tag
    { "orientation_rectangle.jpg", 1 }, { "g4_orientation_1.tif", 1 }, { "g4_orientation_6.tif", 1 },
    { "untagged II.tif", -1 }, { "untagged MM.tif", -1 },
    { "exif.png", 1 + 4 + 1 + 4 }, // eXIf after IDAT and its CRC, orNT and its CRC
    { "xmp_tags_orientation_exiftool.png", -1 }, // no eXIf chunk, XMP with the tag
    { "exif_imagemagick_orientation.png", -1 }, // no eXIf chunk, ImageMagick's raw Exif profile
};

INSTANTIATE_TEST_SUITE_P(
    AllValues, RealFileRewrite, ::testing::Combine(::testing::ValuesIn(rewriteCases), ::testing::Range(1, 9)));

struct FailureCase {
    const char *name;
    QByteArray content; // written to the file; empty name -> no file at all
    const char *message;
};

TEST(RewriteFailure, ReportsTheErrorAndLeavesTheFileAlone)
{
    const FailureCase cases[] = {
        { "hopper.gif", readAll(testData(QStringLiteral("other/hopper.gif"))), "Unsupported format: image/gif" },
        { "hopper.webp", readAll(testData(QStringLiteral("other/hopper.webp"))), "Unsupported format: image/webp" },
        { "hopper.bmp", readAll(testData(QStringLiteral("other/hopper.bmp"))), "Unsupported format: image/bmp" },
        { "notes.jpg", "just some text\n", "Could not determine file type" },
        { "noise.jpg", QByteArray("\x01\x02\x03\x9a\xff\x00\x17", 7), "Could not determine file type" },
        { "empty.jpg", QByteArray(), "Could not read the file" },
        { "cut.jpg", readAll(testData(QStringLiteral("orientation/hopper.jpg"))).left(300), "Could not read the file" },
        { "cut.png", readAll(testData(QStringLiteral("orientation/exif.png"))).left(5000), "Could not read the file" },
    };
    QTemporaryDir dir;
    for (const FailureCase &c : cases) {
        SCOPED_TRACE(c.name);
        const QString path = dir.filePath(QString::fromLatin1(c.name));
        ASSERT_TRUE(writeAll(path, c.content));
        const ProcessResult result = rewriteOrientation(path, 6);
        EXPECT_FALSE(result.success);
        EXPECT_EQ(result.message, QString::fromUtf8(c.message));
        EXPECT_EQ(readAll(path), c.content);
    }
    const ProcessResult missing = rewriteOrientation(dir.filePath(QStringLiteral("missing.jpg")), 6);
    EXPECT_EQ(missing.message, QStringLiteral("Could not read the file"));
}

TEST(RewriteRun, ContinuesPastAReadOnlyFileAndSummarises)
{
    QTemporaryDir dir;
    QStringList paths;
    for (const char *name : { "Landscape_1.jpg", "exif.png", "g4_orientation_2.tif" })
        paths << copiedInto(dir, QStringLiteral("orientation/") + QLatin1String(name));
    ASSERT_FALSE(paths.contains(QString()));
    QFile::setPermissions(paths[1], QFileDevice::ReadOwner);
    const QByteArray readOnlyBefore = readAll(paths[1]);
    QList<int> progress;

    const QList<ProcessResult> results = rewriteOrientations(paths, 6, [&](int n) { progress << n; });

    EXPECT_EQ(progress, (QList<int> {1, 2, 3}));
    EXPECT_EQ(readAll(paths[1]), readOnlyBefore);
    EXPECT_EQ(readExifOrientation(readAll(paths[2])), 6);
    EXPECT_EQ(summaryText(results),
        QStringLiteral("⚠️ 2 succeeded / 1 failed\n"
                       "✅ Landscape_1.jpg\n   → Success (Orientation → 6)\n"
                       "❌ exif.png\n   → Could not create write destination\n"
                       "✅ g4_orientation_2.tif\n   → Success (Orientation → 6)"));
    QList<ProcessResult> allGood = results;
    allGood[1] = {QStringLiteral("x.png"), true, QStringLiteral("Success (Orientation → 6)")};
    EXPECT_TRUE(summaryText(allGood).startsWith(QStringLiteral("✅ All 3 files written successfully\n✅ ")));
    EXPECT_EQ(progressText(0, 3), QStringLiteral("Processing 0 of 3 files"));
}

} // namespace
