// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Hostile pictures through the real vorel-cli, under hard limits of 1 GiB of address space and
// 10 s of processor time: each is refused, or read within those bounds; none crashes.
#include <functional>

#include <gtest/gtest.h>

#include <sys/resource.h>

#include "tests/cli/clirun.h"
#include "tests/cli/hostilefiles.h"

using namespace Vorel;
using namespace Vorel::CliTest;

namespace {

enum class Outcome { refused, bounded };

struct LimitCase {
    const char *name;
    const char *file;
    std::function<QByteArray()> craft;
    Outcome outcome;
};

QByteArray testData(const char *path) { return readAll(data + QLatin1Char('/') + QLatin1String(path)); }

// AddressSanitizer reserves terabytes of address space for its shadow memory, so a sanitized
// build runs the files under the time limit alone.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool addressSpaceLimited = false;
#else
constexpr bool addressSpaceLimited = true;
#endif

void limitChild()
{
    const rlimit memory{rlim_t(1) << 30, rlim_t(1) << 30}, processor{10, 10};
    if (addressSpaceLimited)
        setrlimit(RLIMIT_AS, &memory);
    setrlimit(RLIMIT_CPU, &processor);
}

TEST(Limits, HostilePicturesAreRefusedOrBounded)
{
    const LimitCase cases[] = {
        {"JPEG claiming 65535 x 65535", "huge.jpg",
         [] { return Hostile::jpegClaiming(testData("orientation/hopper.jpg"), 65535); }, Outcome::refused},
        {"PNG claiming 65535 x 65535", "huge.png",
         [] { return Hostile::pngClaiming(testData("orientation/exif.png"), 65535); }, Outcome::refused},
        {"TIFF claiming 65535 x 65535", "huge.tif",
         [] { return Hostile::tiffClaiming(testData("orientation/g4_orientation_5.tif"), 65535); }, Outcome::refused},
        {"progressive JPEG of 500 scans", "scans.jpg", [] { return Hostile::progressiveJpeg(2048, 500); },
         Outcome::bounded},
        {"large progressive JPEG of 400 scans", "largescans.jpg", [] { return Hostile::progressiveJpeg(8192, 400); },
         Outcome::refused},
        {"progressive JPEG of 5000 scans", "manyscans.jpg", [] { return Hostile::progressiveJpeg(256, 5000); },
         Outcome::refused},
        {"PNG with a zTXt of 2 GiB", "text.png",
         [] { return Hostile::pngWithTextBomb(testData("orientation/exif.png"), qint64(2) << 30); }, Outcome::bounded},
        {"HEIF grid of 4096 tiles", "grid.heic",
         [] { return Hostile::heifGrid(testData("heic/colors-no-alpha-thumbnail.heic"), 64, 64); }, Outcome::bounded},
        {"HEIF grid of 10,000 tiles", "largegrid.heic",
         [] { return Hostile::heifGrid(testData("heic/colors-no-alpha-thumbnail.heic"), 100, 100); },
         Outcome::refused},
    };
    for (const LimitCase &c : cases) {
        QTemporaryDir dir, config;
        const QString input = dir.filePath(QLatin1String(c.file)), output = dir.filePath(QStringLiteral("out.png"));
        QFile file(input);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(c.craft()) > 0) << c.name;
        file.close();
        QProcess run;
        run.setChildProcessModifier(limitChild);
        startCli(run, {QStringLiteral("convert"), input, output}, config.path());
        ASSERT_TRUE(run.waitForFinished(60000)) << c.name;
        const QString errors = QString::fromUtf8(run.readAllStandardError());
        ASSERT_EQ(run.exitStatus(), QProcess::NormalExit) << c.name << ": killed by a limit\n" << errors.toStdString();
        if (c.outcome == Outcome::refused) {
            EXPECT_EQ(run.exitCode(), 1) << c.name << errors.toStdString();
            EXPECT_FALSE(QFile::exists(output)) << c.name;
        } else {
            EXPECT_LE(run.exitCode(), 1) << c.name << errors.toStdString();
        }
    }
}

} // namespace
