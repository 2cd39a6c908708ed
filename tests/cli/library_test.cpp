// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// vorel-cli library through the real binary: albums, one folder's pictures with their kinds,
// the thumbnail cache filled, and the exit statuses.
#include <gtest/gtest.h>

#include "tests/cli/clirun.h"

namespace Vorel::CliTest {
namespace {

TEST(Library, ListsPicturesWithTheirKindsAndFillsTheCache)
{
    QTemporaryDir root;
    const QString photos = root.path() + QStringLiteral("/Photos");
    QDir().mkpath(photos + QStringLiteral("/Sub"));
    ASSERT_TRUE(copyData(photos, {{"mpo/sugarshack.mpo", "a.mpo"}, {"heic/vision-pro.HEIC", "b.heic"},
                                  {"stereo/stereograph.left-right.jpg", "c.jpg"}, {"stereo/left.jpg", "Sub/d_L.jpg"},
                                  {"stereo/right.jpg", "Sub/d_R.jpg"}, {"stereo/left01.jpg", "Sub/e.jpg"}}));
    const QString config = root.path() + QStringLiteral("/config");
    QDir().mkpath(config);
    qputenv("XDG_CACHE_HOME", root.path().toUtf8() + "/cache");
    const CliRun run = runCli({QStringLiteral("library"), QStringLiteral("--thumbnails"), photos}, config);
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QList<QJsonObject> lines = jsonLines(run.out.toUtf8());
    const struct {
        const char *name, *kind;
        int width, height;
    } expected[] = {{"a.mpo", "mpo", 640, 480},           {"b.heic", "spatial", 2560, 2560},
                    {"c.jpg", "sbs", 3643, 1574},          {"Sub/d_L.jpg", "left", 612, 459},
                    {"Sub/d_R.jpg", "right", 612, 459},    {"Sub/e.jpg", "single", 640, 480}};
    ASSERT_EQ(lines.size(), qsizetype(std::size(expected))) << run.out.toStdString();
    for (qsizetype i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i][QStringLiteral("path")].toString(), photos + QLatin1Char('/') + QLatin1String(expected[i].name));
        EXPECT_EQ(lines[i][QStringLiteral("album")].toString(), photos);
        EXPECT_EQ(lines[i][QStringLiteral("kind")].toString(), QLatin1String(expected[i].kind));
        EXPECT_EQ(lines[i][QStringLiteral("width")].toInt(), expected[i].width);
        EXPECT_EQ(lines[i][QStringLiteral("height")].toInt(), expected[i].height);
    }
    for (const char *size : {"/cache/thumbnails/normal", "/cache/thumbnails/large"})
        EXPECT_EQ(QDir(root.path() + QLatin1String(size)).entryList(QDir::Files).size(), 6) << size;

    // Albums: the Pictures folder of the user dirs file, and a folder added in the settings.
    QDir().mkpath(root.path() + QStringLiteral("/Pictures/Trip"));
    ASSERT_FALSE(writeFile(config + QStringLiteral("/user-dirs.dirs"),
                           "XDG_PICTURES_DIR=\"" + root.path().toUtf8() + "/Pictures\"\n").isEmpty());
    const QByteArray settings = "[General]\nphotos.folders=" + photos.toUtf8() + "\n";
    ASSERT_FALSE(writeFile(config + QStringLiteral("/Vorel/Vorel.ini"), settings).isEmpty());
    const CliRun albums = runCli({QStringLiteral("library")}, config);
    ASSERT_EQ(albums.exitCode, 0) << albums.err.toStdString();
    QStringList titles;
    for (const QJsonObject &album : jsonLines(albums.out.toUtf8()))
        titles.append(album[QStringLiteral("title")].toString() + QLatin1Char('/') +
                      QString::number(album[QStringLiteral("count")].toInt()));
    EXPECT_EQ(titles, QStringList({QStringLiteral("All Photos/0"), QStringLiteral("Photos/6"), QStringLiteral("Trip/0")}));
}

TEST(Library, ExitStatuses)
{
    QTemporaryDir root;
    qputenv("XDG_CACHE_HOME", root.path().toUtf8() + "/cache");
    ASSERT_TRUE(copyData(root.path() + QStringLiteral("/p"), {{"stereo/left.jpg", "x.jpg"}}));
    ASSERT_FALSE(writeFile(root.path() + QStringLiteral("/p/broken.jpg"), "not a picture").isEmpty());
    const struct {
        QStringList arguments;
        int exitCode;
    } rows[] = {
        {{QStringLiteral("library"), root.path() + QStringLiteral("/missing")}, 1},
        {{QStringLiteral("library"), QStringLiteral("--thumbnails"), root.path() + QStringLiteral("/p")}, 1},
        {{QStringLiteral("library"), QStringLiteral("--bogus")}, 2},
        {{QStringLiteral("library"), QStringLiteral("a"), QStringLiteral("b")}, 2},
    };
    for (const auto &row : rows)
        EXPECT_EQ(runCli(row.arguments).exitCode, row.exitCode) << row.arguments.join(QLatin1Char(' ')).toStdString();
}

} // namespace
} // namespace Vorel::CliTest
