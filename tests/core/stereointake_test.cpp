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
