// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The kind and size of real stereo files from their headers, and albums over folder trees with
// hidden folders, a symlink loop and an unreadable folder.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "photos/photolibrary.h"
#include "tests/testsupport.h"

namespace Vorel {
namespace {

using TestSupport::testData;

TEST(PhotoLibrary, DescribesRealFilesFromTheirHeaders)
{
    struct Row {
        const char *file;
        PhotoKind kind;
        QSize size;
    };
    const Row rows[] = {
        {"mpo/sugarshack.mpo", PhotoKind::mpo, {640, 480}},
        {"mpo/sugarshack_bad_mpo_header.jpg", PhotoKind::single, {640, 480}},
        {"heic/vision-pro.HEIC", PhotoKind::spatial, {2560, 2560}},
        {"heic/example.heic", PhotoKind::single, {1280, 854}}, // two pictures, but no stereo group
        {"heic/iphone_13_pro_max.heic", PhotoKind::single, {3024, 4032}}, // irot turns it upright
        {"stereo/stereograph.left-right.jpg", PhotoKind::sideBySide, {3643, 1574}},
        {"orientation/Landscape_6.jpg", PhotoKind::single, {1800, 1200}},
        {"orientation/g4_orientation_6.tif", PhotoKind::sideBySide, {590, 88}}, // stored 88x590
    };
    for (const Row &row : rows) {
        const PhotoAsset asset = describeFile(testData(QLatin1String(row.file)), QStringLiteral("album"));
        EXPECT_EQ(photoKindName(asset.kind), photoKindName(row.kind)) << row.file;
        EXPECT_EQ(asset.size, row.size) << row.file;
    }
    EXPECT_EQ(describeFile(testData(QStringLiteral("missing.jpg")), {}).size, QSize());
}

TEST(PhotoLibrary, NamePairsAmongTheAlbumsFilesAreLeftAndRight)
{
    const QStringList files{testData(QStringLiteral("stereo/Panasonic-DMC-GX8-left.jpg")),
                            testData(QStringLiteral("stereo/Panasonic-DMC-GX8-right.jpg")),
                            testData(QStringLiteral("stereo/left.jpg"))};
    const std::vector<PhotoAsset> assets = describePhotos(files, QStringLiteral("a"));
    ASSERT_EQ(assets.size(), 3u);
    EXPECT_EQ(assets[0].kind, PhotoKind::left);
    EXPECT_EQ(assets[0].partner, files[1]);
    EXPECT_EQ(assets[1].kind, PhotoKind::right);
    EXPECT_EQ(assets[2].kind, PhotoKind::single);
    EXPECT_EQ(photoKindFromName(QStringLiteral("sbs")), PhotoKind::sideBySide);
}

// Pictures/ a.jpg, Trip/ b10.jpg b2.jpg loop->.., .hidden/ c.jpg, Locked/ (mode 000) d.jpg;
// Elsewhere/ e.jpg as an extra folder.
TEST(PhotoLibrary, AlbumsSurviveLoopsHiddenAndUnreadableFolders)
{
    QTemporaryDir root;
    const QString pictures = root.path() + QStringLiteral("/Pictures");
    const QString picture = testData(QStringLiteral("stereo/left.jpg"));
    for (const char *file : {"a.jpg", "Trip/b10.jpg", "Trip/b2.jpg", ".hidden/c.jpg", "Locked/d.jpg"}) {
        const QString path = pictures + QLatin1Char('/') + QLatin1String(file);
        QDir().mkpath(QFileInfo(path).path());
        ASSERT_TRUE(QFile::copy(picture, path));
    }
    QDir().mkpath(root.path() + QStringLiteral("/Elsewhere"));
    QFile::copy(picture, root.path() + QStringLiteral("/Elsewhere/e.jpg"));
    ASSERT_TRUE(QFile::link(pictures, pictures + QStringLiteral("/Trip/loop")));
    QFile::setPermissions(pictures + QStringLiteral("/Locked"), {});

    const std::vector<PhotoAlbum> albums =
        PhotoLibrary(pictures, {root.path() + QStringLiteral("/Elsewhere"), root.path() + QStringLiteral("/gone")}).albums();
    QFile::setPermissions(pictures + QStringLiteral("/Locked"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_EQ(albums.size(), 4u);
    const struct {
        const char *title;
        int count;
        const char *cover;
    } expected[] = {{"All Photos", 3, "Pictures/a.jpg"}, {"Elsewhere", 1, "Elsewhere/e.jpg"},
                    {"Locked", 0, ""}, {"Trip", 2, "Pictures/Trip/b2.jpg"}};
    for (size_t i = 0; i < albums.size(); ++i) {
        EXPECT_EQ(albums[i].title, QLatin1String(expected[i].title));
        EXPECT_EQ(albums[i].count, expected[i].count) << expected[i].title;
        const QString cover = QLatin1String(expected[i].cover);
        EXPECT_EQ(albums[i].cover, cover.isEmpty() ? cover : root.path() + QLatin1Char('/') + cover);
    }
    EXPECT_EQ(listAlbumFiles(pictures + QStringLiteral("/Trip")),
              QStringList({pictures + QStringLiteral("/Trip/b2.jpg"), pictures + QStringLiteral("/Trip/b10.jpg")}));
}

} // namespace
} // namespace Vorel
