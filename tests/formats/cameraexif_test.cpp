// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The camera's Exif read from every container and kept, fixed up for our pixels, in every
// format we write, as exiftool sees it.
#include <QJsonObject>

#include <gtest/gtest.h>

#include "formats/cameraexif.h"
#include "formats/imagereader.h"
#include "formats/imagewriter.h"
#include "formats/spatialphoto.h"
#include "formats/stereofilewriter.h"
#include "tests/testsupport.h"

using namespace Vorel;
using namespace Vorel::TestSupport;

namespace {

QJsonObject exiftoolTags(const QString &path)
{
    QStringList arguments;
    for (const char *tag : { "DateTimeOriginal", "Model", "Orientation", "ExifImageWidth", "ExifImageHeight",
             "ColorSpace", "ThumbnailLength", "MPFVersion" })
        arguments << QLatin1Char('-') + QLatin1String(tag);
    return exiftoolJson(arguments << path).at(0).toObject();
}

TEST(CameraExif, ReadFromEveryContainerFromTheHeaders)
{
    const struct {
        const char *file;
        const char *start; // of the TIFF block; empty: none
    } rows[] = {
        {"mpo/Panasonic-DMC-GX8.mpo", "II*"},  {"stereo/Panasonic-DMC-GX8-left.jpg", "MM"},
        {"orientation/exif.png", "MM"},        {"orientation/g4_orientation_1.tif", "II*"},
        {"heic/iphone_13_pro_max.heic", "MM"}, {"orientation/hopper.jpg", ""},
        {"heic/rainbow-451x461.heic", ""},     {"other/hopper.bmp", ""},
        {"does-not-exist.jpg", ""},
    };
    for (const auto &row : rows) {
        const QByteArray exif = readCameraExif(testData(QLatin1String(row.file)));
        EXPECT_EQ(exif.left(qstrlen(row.start)), QByteArray(row.start)) << row.file;
        EXPECT_EQ(exif.isEmpty(), !*row.start) << row.file;
    }
    EXPECT_TRUE(exifForWrittenPicture({}, {10, 10}).isEmpty());
    EXPECT_TRUE(exifForWrittenPicture("II*\0garbage", {10, 10}).isEmpty());
}

TEST(CameraExif, KeptInEveryWrittenFormat)
{
    const QByteArray camera = readCameraExif(testData(QStringLiteral("mpo/Panasonic-DMC-GX8.mpo")));
    const QImage image(120, 80, QImage::Format_RGB32);
    QTemporaryDir dir;
    const struct {
        const char *name;
        QSize size; // of the picture that carries the Exif
    } rows[] = {{"a.jpg", {120, 80}}, {"a.png", {120, 80}},         {"a.tif", {120, 80}}, {"a.heic", {120, 80}},
                {"a.mpo", {120, 80}}, {"a.jps", {240, 80}},         {"spatial.heic", {120, 80}}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        const QString name = QLatin1String(row.name), path = dir.filePath(name);
        if (name == QLatin1String("spatial.heic"))
            writeSpatialPhoto(image, image, path, 0, 60, 0.065, camera);
        else if (name == QLatin1String("a.mpo") || name == QLatin1String("a.jps"))
            writeStereoFile(image, image, path,
                name == QLatin1String("a.mpo") ? StereoFileFormat::mpo : StereoFileFormat::jps, camera);
        else
            ASSERT_TRUE(writeImage(image, path, camera));
        const QJsonObject tags = exiftoolTags(path);
        EXPECT_EQ(tags[QLatin1String("DateTimeOriginal")].toString(), QStringLiteral("2020:08:10 11:16:55"));
        EXPECT_EQ(tags[QLatin1String("Model")].toString(), QStringLiteral("DMC-GX8"));
        EXPECT_EQ(tags[QLatin1String("Orientation")].toInt(), 1);
        EXPECT_EQ(tags[QLatin1String("ColorSpace")].toInt(), 1); // our pixels are sRGB
        EXPECT_EQ(QSize(tags[QLatin1String("ExifImageWidth")].toInt(), tags[QLatin1String("ExifImageHeight")].toInt()),
            row.size);
        EXPECT_FALSE(tags.contains(QLatin1String("ThumbnailLength")));
        EXPECT_EQ(tags.contains(QLatin1String("MPFVersion")), name == QLatin1String("a.mpo")); // only our own index
        EXPECT_FALSE(readCameraExif(path).isEmpty());
        EXPECT_TRUE(loadCorrectImageOriented(path)); // the container is still whole
    }
}

} // namespace
