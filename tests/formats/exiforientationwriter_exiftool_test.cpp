// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// `vorel-cli orientation` end to end, with exiftool as the independent reader of the results.
#include <QJsonObject>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include "tests/testsupport.h"

using namespace Vorel::TestSupport;

namespace {

struct CliRun {
    int exitCode;
    QString out;
};

CliRun runCli(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral(VOREL_CLI), QStringList {QStringLiteral("orientation")} + arguments);
    process.waitForFinished(120000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
        QString::fromUtf8(process.readAllStandardOutput())};
}

TEST(OrientationCli, EveryValueReadsBackInExiftool)
{
    if (QStandardPaths::findExecutable(QStringLiteral("exiftool")).isEmpty())
        GTEST_SKIP() << "exiftool (libimage-exiftool-perl) is not installed";
    const QStringList sources = {QStringLiteral("orientation/hopper.jpg"),
        QStringLiteral("orientation/Landscape_5.jpg"), QStringLiteral("orientation/g4_orientation_3.tif"),
        QStringLiteral("orientation/exif.png"), QStringLiteral("orientation/xmp_tags_orientation_exiftool.png"),
        QStringLiteral("orientation/exif_imagemagick_orientation.png"), QStringLiteral("heic/iphone_13_pro_max.heic")};
    QTemporaryDir dir;
    for (int value = 1; value <= 8; ++value) {
        QStringList paths;
        for (const QString &source : sources)
            paths << copiedInto(dir, source, QStringLiteral("%1_%2").arg(value).arg(QFileInfo(source).fileName()));
        ASSERT_FALSE(paths.contains(QString()));
        const CliRun run = runCli(QStringList {QString::number(value)} + paths);
        EXPECT_EQ(run.exitCode, 0) << run.out.toStdString();
        EXPECT_TRUE(run.out.startsWith(QStringLiteral("✅ All 7 files written successfully\n")));
    }

    const QJsonArray files = exiftoolJson({ QStringLiteral("-EXIF:Orientation"), dir.path() });
    ASSERT_EQ(files.size(), 8 * sources.size());
    for (const QJsonValue &file : files) {
        const QString name = QFileInfo(file[QStringLiteral("SourceFile")].toString()).fileName();
        EXPECT_EQ(file[QStringLiteral("Orientation")].toInt(), name.section(QLatin1Char('_'), 0, 0).toInt())
            << name.toStdString();
    }
}

TEST(OrientationCli, MpoIndexFollowsAGrownFirstPicture)
{
    if (QStandardPaths::findExecutable(QStringLiteral("exiftool")).isEmpty())
        GTEST_SKIP() << "exiftool (libimage-exiftool-perl) is not installed";
    const QStringList tags = {QStringLiteral("-a"), QStringLiteral("-G1"), QStringLiteral("-MPImageLength"),
        QStringLiteral("-MPImageStart"), QStringLiteral("-MPImage2"), QStringLiteral("-b")};
    for (const char *name : {"sugarshack.mpo", "frozenpond.mpo", "Panasonic-DMC-GX8.mpo"}) {
        SCOPED_TRACE(name);
        QTemporaryDir dir;
        const QString original = testData(QStringLiteral("mpo/") + QLatin1String(name));
        const QString path = copiedInto(dir, QStringLiteral("mpo/") + QLatin1String(name));
        ASSERT_EQ(runCli({QStringLiteral("6"), path}).exitCode, 0);

        const QJsonObject before = exiftoolJson(tags + QStringList { original }).at(0).toObject();
        const QJsonObject after = exiftoolJson(tags + QStringList { path }).at(0).toObject();
        const auto growth = QFileInfo(path).size() - QFileInfo(original).size();
        const auto change = [&](const char *key) {
            return after[QLatin1String(key)].toInteger() - before[QLatin1String(key)].toInteger();
        };
        EXPECT_EQ(change("MPImage1:MPImageLength"), growth);
        EXPECT_EQ(change("MPImage2:MPImageStart"), growth); // exiftool gives it from the file's start
        EXPECT_EQ(after[QStringLiteral("MPImage2:MPImage2")], before[QStringLiteral("MPImage2:MPImage2")]);
        EXPECT_FALSE(before[QStringLiteral("MPImage2:MPImage2")].toString().isEmpty());
    }
}

TEST(OrientationCli, ExitStatusReportsFailuresAndUsage)
{
    QTemporaryDir dir;
    const QString good = copiedInto(dir, QStringLiteral("orientation/hopper.jpg"), QStringLiteral("a.jpg"));
    const QString gif = copiedInto(dir, QStringLiteral("other/hopper.gif"), QStringLiteral("b.gif"));
    ASSERT_FALSE(good.isEmpty() || gif.isEmpty());

    const CliRun mixed = runCli({QStringLiteral("3"), good, gif});
    EXPECT_EQ(mixed.exitCode, 1);
    EXPECT_EQ(mixed.out,
        QStringLiteral("⚠️ 1 succeeded / 1 failed\n✅ a.jpg\n   → Success (Orientation → 3)\n"
                       "❌ b.gif\n   → Unsupported format: image/gif\n"));
    for (const QStringList &usage : {QStringList {QStringLiteral("9"), good}, QStringList {QStringLiteral("x"), good},
             QStringList {QStringLiteral("3")}})
        EXPECT_EQ(runCli(usage).exitCode, 2) << usage.join(QLatin1Char(' ')).toStdString();
}

} // namespace
