// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Spatial photos: camera property boxes against known byte strings, write/read round trips,
// the real headset capture, and each error with its text.
#include <cmath>

#include <QtEndian>

#include <gtest/gtest.h>

#include "core/stereoimageprocessor.h"
#include "core/stereointake.h"
#include "formats/cameraproperties.h"
#include "formats/heifboxes.h"
#include "formats/heifimage.h"
#include "formats/spatialphoto.h"
#include "tests/testsupport.h"

using namespace Vorel;
using namespace Vorel::TestSupport;

namespace {

const QString data = testData(QStringLiteral("heic/"));

QImage filled(int w, int h, QRgb colour)
{
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

QString errorOf(const std::function<void()> &run)
{
    try {
        run();
    } catch (const SpatialPhotoError &error) {
        return error.description();
    }
    return QStringLiteral("(no error)");
}

QByteArray box(const char *type, const char *hexPayload)
{
    const QByteArray payload = QByteArray::fromHex(hexPayload);
    QByteArray header = QByteArray::fromHex("00000000") + type;
    header[3] = char(8 + payload.size());
    return header + payload;
}

QByteArray uuidBox(const char *hexUuid, const char *hexPayload)
{
    return box("uuid", (QByteArray(hexUuid) + hexPayload).constData());
}

} // namespace

// Byte strings as captures and reference files store them.
TEST(CameraProperties, DecodeKnownBoxes)
{
    const auto cmin = Heif::readIntrinsics(box("cmin", "00001A00020000000100000000800000"), 1024, 768);
    ASSERT_TRUE(cmin);
    EXPECT_DOUBLE_EQ(cmin->focalLength, 512);
    EXPECT_DOUBLE_EQ(cmin->principalX, 256);
    EXPECT_DOUBLE_EQ(cmin->principalY, 96);
    const auto device = Heif::readIntrinsics(
        uuidBox("22cc04c7d6d94e079d904eb6ecbaf3a3", "00001E002622D86E2000000020000000"), 2560, 2560);
    ASSERT_TRUE(device);
    EXPECT_NEAR(2 * std::atan(1280 / device->focalLength) * 180 / 3.141592653589793, 80.0, 1e-4);
    EXPECT_DOUBLE_EQ(device->principalX, 1280);
    EXPECT_EQ(Heif::readPositionX(uuidBox("4363e9145b7d4aab97aebea69803b434", "000000010000F93F")), 0.063807);
    EXPECT_EQ(Heif::readPositionX(uuidBox("4363e9145b7d4aab97aebea69803b434", "00000000")), 0.0);
    EXPECT_EQ(Heif::readDisparity(uuidBox("de22508536cb436587432f8705e7c78a", "00000125")), 293);
    EXPECT_FALSE(Heif::readDisparity(uuidBox("4363e9145b7d4aab97aebea69803b434", "00000125")));
    EXPECT_FALSE(Heif::readIntrinsics(box("cmin", "0000"), 10, 10)); // truncated
}

// 90 degrees over 4000 px: f = 2000; the principal point stays at (2W, 2H) whatever its size.
TEST(CameraProperties, IntrinsicsRoundTrip)
{
    for (const auto &[w, h, f] : {std::tuple{4000, 3000, 2000.0}, std::tuple{64, 48, 1000.0}, std::tuple{2, 2, 0.5}}) {
        const auto back = Heif::readIntrinsics(Heif::intrinsicsProperty({f, 2.0 * w, 2.0 * h}, w, h), w, h);
        ASSERT_TRUE(back);
        EXPECT_NEAR(back->focalLength, f, f * 1e-8) << w;
        EXPECT_EQ(back->principalX, 2.0 * w);
        EXPECT_EQ(back->principalY, 2.0 * h);
    }
}

// Left is the group's first entity, whatever the order of the images in the file: swapping the
// two entities of the capture's group swaps the eyes.
TEST(SpatialPhoto, ReadsTheHeadsetCaptureInGroupOrder)
{
    const QString capture = data + QStringLiteral("vision-pro.HEIC");
    QByteArray bytes = readAll(capture);
    const SpatialParameters parameters = readSpatialParameters(bytes);
    EXPECT_NEAR(*parameters.fov, 80.0, 1e-3);
    EXPECT_EQ(parameters.stb, 0.063774);
    EXPECT_EQ(parameters.adj, 293);

    const ImagePair pair = readSpatialPhoto(capture);
    EXPECT_EQ(pair.left.size(), QSize(2560, 2560));
    EXPECT_FALSE(pair.left == pair.right);
    const qsizetype entities = bytes.indexOf("ster") + 16;
    const QByteArray first = bytes.mid(entities, 4);
    bytes.replace(entities, 4, bytes.mid(entities + 4, 4)).replace(entities + 4, 4, first);
    QTemporaryDir dir;
    const QString swapped = dir.filePath(QStringLiteral("swapped.heic"));
    ASSERT_TRUE(writeAll(swapped, bytes));
    const ImagePair reversed = readSpatialPhoto(swapped);
    EXPECT_TRUE(reversed.left == pair.right);
    EXPECT_TRUE(reversed.right == pair.left);
}

// A photograph survives the default quality at 40 dB or better, each eye in its place; odd sizes
// lose their last column and row, so that each eye is one plain coded image. The parameters read
// back, the stereo pair group is one 28-byte box (version 0) of the two eyes with an id after
// every item's, and the camera properties are associated with both eyes as not essential, so
// readers that do not know them still decode.
TEST(SpatialPhoto, WriteThenReadKeepsEyesParametersAndProperties)
{
    const QImage left = QImage(testData(QStringLiteral("stereo/left.jpg"))).copy(0, 0, 611, 459);
    const QImage right = QImage(testData(QStringLiteral("stereo/right.jpg"))).copy(0, 0, 611, 459);
    ASSERT_FALSE(left.isNull() || right.isNull());
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("photo.heic"));
    writeSpatialPhoto(left, right, path, -35, 90, 0.065);
    const ImagePair back = readSpatialPhoto(path);
    for (const auto &[source, decoded] : {std::pair{left, back.left}, std::pair{right, back.right}}) {
        ASSERT_EQ(decoded.size(), QSize(610, 458));
        EXPECT_GE(pixelDifference(source.copy(0, 0, 610, 458), decoded).psnr, 40.0);
    }

    const QByteArray bytes = readAll(path);
    const SpatialParameters parameters = readSpatialParameters(bytes);
    EXPECT_NEAR(*parameters.fov, 90, 1e-6);
    EXPECT_EQ(parameters.adj, -35);
    EXPECT_DOUBLE_EQ(*parameters.stb, 0.065);
    const qsizetype ster = bytes.indexOf("ster");
    ASSERT_GT(ster, 4);
    const auto u32 = [&](qsizetype at) { return qFromBigEndian<quint32>(bytes.constData() + at); };
    EXPECT_EQ(u32(ster - 4), 28u);
    EXPECT_EQ(u32(ster + 4), 0u);
    EXPECT_GT(u32(ster + 8), std::max(u32(ster + 16), u32(ster + 20)));
    using namespace Heif;
    const BoxSpan meta = requireBox(readBoxes(bytes, 0, bytes.size()), "meta");
    const std::vector<BoxSpan> children = readBoxes(bytes, meta.payload + 4, meta.end);
    const std::vector<BoxSpan> iprp = readBoxes(bytes, requireBox(children, "iprp").payload, requireBox(children, "iprp").end);
    const BoxSpan ipco = requireBox(iprp, "ipco");
    const std::vector<BoxSpan> properties = readBoxes(bytes, ipco.payload, ipco.end);
    const std::vector<EntityGroup> groups = readEntityGroups(bytes, requireBox(children, "grpl"));
    ASSERT_EQ(groups.size(), 1u);
    const quint32 primary = qFromBigEndian<quint32>(bytes.constData() + requireBox(children, "pitm").payload + 4) >> 16;
    EXPECT_EQ(groups[0].entities, (std::vector<quint32>{primary, primary + 1}));
    for (const auto &[id, list] : readPropertyAssociations(bytes, requireBox(iprp, "ipma")).entries) {
        ASSERT_GE(list.size(), 3u);
        for (size_t k = list.size() - 3; k < list.size(); ++k) {
            EXPECT_FALSE(list[k].essential) << id;
            EXPECT_EQ(properties[list[k].index - 1].type, "uuid") << id;
        }
    }
}

TEST(SpatialPhoto, Errors)
{
    QTemporaryDir dir;
    const auto save = [&](const char *name, const QByteArray &content) {
        EXPECT_TRUE(writeAll(dir.filePath(QLatin1String(name)), content));
        return dir.filePath(QLatin1String(name));
    };
    const Heif::Context context(heif_context_alloc());
    Heif::encodeImage(context.get(), filled(16, 16, qRgb(1, 2, 3)), 50);
    Heif::encodeImage(context.get(), filled(16, 16, qRgb(1, 2, 3)), 50);
    const QString twoImages = save("two.heic", *Heif::writeContext(context.get()));
    // The capture damaged: a stereo group claiming three entities in room for two, and the file
    // cut in the middle of its picture data.
    const QByteArray bytes = readAll(data + QStringLiteral("vision-pro.HEIC"));
    QByteArray lyingGroup = bytes;
    lyingGroup[lyingGroup.indexOf("ster") + 15] = 3;
    const QString lying = save("lying.heic", lyingGroup), cut = save("cut.heic", bytes.left(bytes.size() / 2));
    const QImage eye = filled(8, 8, qRgb(9, 9, 9));
    const std::pair<std::function<void()>, QString> cases[] = {
        { [&] { readSpatialPhoto(data + QStringLiteral("colors-no-alpha-thumbnail.heic")); },
            QStringLiteral("This is not a spartial photo: Does not contain two or more images (count=1)") },
        { [&] { readSpatialPhoto(data + QStringLiteral("example.heic")); },
            QStringLiteral("This is not a spartial photo: No stereo pair group found") },
        { [&] { readSpatialPhoto(twoImages); },
            QStringLiteral("This is not a spartial photo: No stereo pair group found") },
        { [&] { readSpatialPhoto(dir.filePath(QStringLiteral("missing.heic"))); },
            QStringLiteral("Could not open the file: missing.heic") },
        { [&] { readSpatialPhoto(testData(QStringLiteral("stereo/left01.jpg"))); },
            QStringLiteral("Could not open the file: left01.jpg") },
        { [&] { writeSpatialPhoto(eye, eye, dir.filePath(QStringLiteral("no/such/dir/x.heic")), 200, 63.4, 0.01924); },
            QStringLiteral("Could not create the output destination: x.heic") },
        { [&] { writeSpatialPhoto(QImage(), eye, dir.filePath(QStringLiteral("y.heic")), 200, 63.4, 0.01924); },
            QStringLiteral("Could not convert NSImage to CGImage") },
        { [&] { readSpatialPhoto(lying); },
            QStringLiteral("This is not a spartial photo: The container property cannot be retrieved.") },
        { [&] { readSpatialPhoto(cut); }, QStringLiteral("Could not open the file: cut.heic") },
    };
    for (const auto &[run, text] : cases)
        EXPECT_EQ(errorOf(run), text);
}

// Half side-by-side is a way of showing the pair: the spatial photo still gets full-width eyes.
TEST(SpatialPhoto, ProcessorSavesFullWidthInHalfMode)
{
    QTemporaryDir dir;
    StereoImageProcessor proc;
    proc.loadSideBySide(filled(200, 60, qRgb(50, 100, 150)), true);
    proc.isHalf = true;
    ASSERT_TRUE(proc.saveAsSpatialPhoto(dir.filePath(QStringLiteral("p.heic")), 200, 63.4, 0.01924));
    EXPECT_TRUE(proc.isHalf);
    EXPECT_EQ(readSpatialPhoto(dir.filePath(QStringLiteral("p.heic"))).left.size(), QSize(100, 60));
    EXPECT_FALSE(StereoImageProcessor().saveAsSpatialPhoto(dir.filePath(QStringLiteral("q.heic")), 200, 63.4, 0.01924));
}

// Opening: a spatial photo becomes its pair, a HEIC without a stereo pair group a side-by-side picture.
TEST(SpatialPhoto, OpensThroughIntake)
{
    for (const auto &[file, eye] : {std::pair{"vision-pro.HEIC", QSize(2560, 2560)}, std::pair{"example.heic", QSize(640, 854)}}) {
        StereoImageProcessor proc;
        ASSERT_TRUE(openEntry(proc, {data + QString::fromLatin1(file), {}})) << file;
        EXPECT_EQ(proc.leftOriginal->size(), eye) << file;
    }
}
