// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Opening entries the way the window does, over real files.
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "core/stereoimageprocessor.h"
#include "core/stereointake.h"

using namespace Vorel;

namespace {

const QString data = QStringLiteral(VOREL_TEST_DATA);

TEST(StereoIntake, OpensEachFormAsItsPair)
{
    QTemporaryDir dir;
    // The extension decides how a file is tried, in any case; a failing MPO falls back to side-by-side.
    const QString upperMpo = dir.filePath(QStringLiteral("camera.MpO"));
    const QString fakeMpo = dir.filePath(QStringLiteral("single.mpo"));
    QFile::copy(data + QStringLiteral("/mpo/sugarshack.mpo"), upperMpo);
    QFile::copy(data + QStringLiteral("/orientation/Landscape_6.jpg"), fakeMpo);
    const struct {
        const char *name;
        StereoEntry entry;
        QSize each;
    } rows[] = {
        {"mpo any case", {upperMpo, {}}, {640, 480}},
        {"single jpeg named mpo", {fakeMpo, {}}, {900, 1200}}, // upright 1800x1200, split
        {"odd-width scan", {data + QStringLiteral("/stereo/stereograph.left-right.jpg"), {}}, {1821, 1574}},
        {"heic without a pair group", {data + QStringLiteral("/heic/rainbow-451x461.heic"), {}}, {225, 461}},
        {"separate pair of different sizes",
         {data + QStringLiteral("/stereo/Panasonic-DMC-GX8-left.jpg"),
          data + QStringLiteral("/stereo/Panasonic-DMC-GX8-right.jpg")},
         {1824, 1367}},
    };
    for (const auto &row : rows) {
        StereoImageProcessor proc;
        ASSERT_TRUE(openEntry(proc, row.entry)) << row.name;
        EXPECT_EQ(proc.leftOriginal->size(), row.each) << row.name;
        EXPECT_EQ(proc.rightOriginal->size(), row.each) << row.name;
        EXPECT_EQ(proc.history.undoCount(), 1) << row.name;
    }
}

// Two views of plain colours stacked or side by side, written losslessly.
QString twoViews(const QTemporaryDir &dir, const char *name, bool overUnder, int extent = 4)
{
    QImage image(overUnder ? 2 : extent, overUnder ? extent : 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if ((overUnder ? y : x) >= extent / 2)
                image.setPixel(x, y, qRgb(0, 0, 255));
    const QString path = dir.filePath(QLatin1String(name));
    image.save(path, "PNG");
    return path;
}

TEST(StereoIntake, StackedAndRightFirstPicturesGiveTheirLeftView)
{
    QTemporaryDir dir;
    const struct {
        const char *what;
        QString path;
        StereoFileKind kind;
        QRgb left;
    } rows[] = {
        {"pns: right view first", twoViews(dir, "a.pns", false), StereoFileKind::byExtension, qRgb(0, 0, 255)},
        {"side by side: left first", twoViews(dir, "a.png", false), StereoFileKind::byExtension, qRgb(255, 0, 0)},
        {"over/under: left on top", twoViews(dir, "b.png", true), StereoFileKind::overUnder, qRgb(255, 0, 0)},
    };
    for (const auto &row : rows) {
        StereoImageProcessor proc;
        loadEntry(proc, {row.path, {}}, row.kind);
        EXPECT_EQ(proc.leftOriginal->size(), QSize(2, 2)) << row.what;
        EXPECT_EQ(proc.leftOriginal->pixel(0, 0), row.left) << row.what;
    }
    StereoImageProcessor proc;
    try {
        loadEntry(proc, {twoViews(dir, "odd.png", true, 5), {}}, StereoFileKind::overUnder);
        ADD_FAILURE() << "an odd height was split";
    } catch (const StereoIntakeError &error) {
        EXPECT_EQ(error.description,
                  QStringLiteral("odd.png cannot be an over/under picture: its height of 5 rows is odd."));
    }
    EXPECT_FALSE(proc.hasPair());
}

TEST(StereoIntake, UnreadableEntryKeepsThePreviousPair)
{
    StereoImageProcessor proc;
    ASSERT_TRUE(openEntry(proc, {data + QStringLiteral("/mpo/frozenpond.mpo"), {}}));
    const qint64 before = proc.leftOriginal->cacheKey();
    EXPECT_FALSE(openEntry(proc, {data + QStringLiteral("/other/hopper.gif-missing"), {}}));
    EXPECT_FALSE(openEntry(proc, {data + QStringLiteral("/stereo/left01.jpg"), QStringLiteral("/nope.jpg")}));
    EXPECT_EQ(proc.leftOriginal->cacheKey(), before);
}

} // namespace
