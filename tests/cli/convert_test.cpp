// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// vorel-cli convert: option parsing, and the real program on real files with its exit codes.
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "cli/convertcommand.h"
#include "cli/pipelineoptions.h"
#include "tests/cli/clirun.h"

using namespace Vorel;
using namespace Vorel::CliTest;

namespace {

const QString sbs = data + QStringLiteral("/stereo/02-super-mario.jpg"); // 1044x720, halves 522x720
const QString left01 = data + QStringLiteral("/stereo/left01.jpg");
const QString right01 = data + QStringLiteral("/stereo/right01.jpg");

// A command line: the words of `line` (no paths: they may hold spaces), then `paths`.
QStringList cli(const char *line, const QStringList &paths = {})
{
    return QString::fromLatin1(line).split(QLatin1Char(' '), Qt::SkipEmptyParts) + paths;
}

TEST(ConvertOptions, ParsesAndRejects)
{
    const PipelineOptions o =
        parsePipelineOptions(cli("--output=anaglyph-dubois --adjust 1,-2,3.5,4 --swap --color-ref=left in.jpg out.png"),
                             CliCommand::convert);
    BatchSettings expected;
    expected.outputFormat = BatchOutputFormat::anaglyphDubois;
    expected.manualAdj = expected.swapLR = expected.autoAdjCol = true;
    expected.manualH = 1;
    expected.manualV = -2;
    expected.manualRot = 3.5;
    expected.manualScale = 4;
    EXPECT_EQ(o.settings({}), expected);
    const BatchJob job = convertJob(o, o.settings({}));
    EXPECT_EQ(job.inputs, QStringList{QStringLiteral("in.jpg")});
    EXPECT_TRUE(job.openAsWindow);
    const PipelineOptions pair =
        parsePipelineOptions(cli("--output separate --input separate l.jpg r.jpg d/o.x.png"), CliCommand::convert);
    const BatchJob pairJob = convertJob(pair, pair.settings({}));
    EXPECT_EQ(pairJob.outputs, (QStringList{QStringLiteral("d/o.x_L.png"), QStringLiteral("d/o.x_R.png")}));
    EXPECT_FALSE(pairJob.openAsWindow);

    const char *bad[] = {
        "--adjust 1,2,3 a b", "--adjust 1,x,3,4 a b", "--output cubes a b", "--nope a b",
        "--format png a b", // batch only
        "--shard 0/2 a b", "a", "--input separate a b", "--input mpo a b c", "a b c d", "a b --input",
        "--fov 180 a b", "--resize 10,0 a b", "--resize 10,10,zoom a b", "--crop 1,2,3 a b",
        "--disparity-adj abc a b", "--stereo-base 0 a b",
    };
    for (const char *arguments : bad)
        EXPECT_THROW(
            {
                const PipelineOptions parsed = parsePipelineOptions(cli(arguments), CliCommand::convert);
                convertJob(parsed, parsed.settings({}));
            },
            UsageError)
            << arguments;
}

// Each output mode on real files; the sizes follow from the pair size and the mode.
TEST(ConvertProgram, WritesEachModeAtTheExpectedSize)
{
    const struct {
        const char *name, *options, *output;
        QSize expectedSize;
        QStringList inputs = {sbs};
        QByteArray stored = {}; // the preferences the window saved
    } cases[] = {
        {"sbs", "", "out.png", {1044, 720}},
        {"half-sbs", "--output half-sbs", "out.png", {522, 720}},
        {"dubois", "--output anaglyph-dubois", "out.JPG", {522, 720}},
        {"adjusted", "--adjust 10,0,0,0", "out.tif", {938, 720}}, // 522 - 52.2 truncated, twice
        {"crop", "--crop 10,20,100,50", "out.png", {200, 50}},
        {"letterbox", "--resize 300,200,letterbox", "out.png", {600, 200}},
        {"crop then resize", "--resize=261,180,crop-fit --crop=0,0,522,360", "out.png", {522, 180}},
        {"separate", "--output anaglyph-gray", "out.bmp", {640, 480}, {left01, right01}},
        {"over/under", "--output=over-under", "out.png", {522, 1440}},
        {"half over/under", "--output=half-over-under", "out.png", {522, 720}},
        {"interlaced", "--output=checkerboard", "out.png", {522, 720}},
        {"amber-blue", "--output=anaglyph-dubois-amber-blue", "out.png", {522, 720}},
        {"mpo, first picture", "--output=mpo", "out.mpo", {522, 720}},
        {"jps under a jpg name", "--output=jps", "out.jpg", {1044, 720}},
        {"over/under input", "--input=over-under", "out.png", {2088, 360}},
        {"explicit mpo input", "--input mpo", "out.png", {1280, 480}, {data + QStringLiteral("/mpo/sugarshack.mpo")}},
        // The window's border settings: the side-by-side layout at 3 % of 522 px (b = 15.66, top band
        // 31.32), 1090.98 x 766.98 truncated.
        {"border", "--output border", "out.png", {1090, 766}, {sbs}, "[General]\nib.layoutKind=0\n"},
    };
    for (const auto &c : cases) {
        QTemporaryDir dir;
        const QString out = dir.filePath(QString::fromLatin1(c.output));
        ASSERT_FALSE(writeFile(dir.filePath(QStringLiteral("Vorel/Vorel.ini")), c.stored).isEmpty());
        const CliRun run = runCli(cli("convert") + cli(c.options, c.inputs) + QStringList{out}, dir.path());
        ASSERT_EQ(run.exitCode, 0) << c.name << ": " << run.err.toStdString();
        EXPECT_EQ(QImageReader(out).size(), c.expectedSize) << c.name;
    }
}

// What cannot be converted exits with 1 and says why, bad usage with 2; an existing output is
// replaced only with --yes.
TEST(ConvertProgram, RefusalsGiveTheExitCodeAndReason)
{
    QTemporaryDir dir;
    const QString garbage = writeFile(dir.filePath(QStringLiteral("text.jpg")), "not a picture");
    const QString out = dir.filePath(QStringLiteral("o.png"));
    const QString existing = writeFile(dir.filePath(QStringLiteral("keep.png")), "precious");
    const struct {
        const char *name;
        QStringList arguments;
        int exitCode;
        QString reason; // empty: any
    } cases[] = {
        {"not a picture", cli("convert", {garbage, out}), 1, garbage},
        // Asked for explicitly, an MPO that is none fails with the reader's text, as spatial input does.
        {"not an MPO", cli("convert --input mpo", {left01, out}), 1, QStringLiteral("Invalid MPO file")},
        {"HEIC without a stereo pair group",
         cli("convert --input spatial", {data + QStringLiteral("/heic/example.heic"), out}), 1,
         QStringLiteral("This is not a spartial photo: No stereo pair group found")},
        {"unknown option", cli("convert --what", {sbs, out}), 2, {}},
        {"unknown colour reference", cli("convert --color-ref middle", {sbs, out}), 2, {}},
        {"no command", {}, 2, {}},
        {"existing output without --yes and no terminal to ask", cli("convert", {sbs, existing}), 1, {}},
    };
    for (const auto &c : cases) {
        const CliRun run = runCli(c.arguments);
        EXPECT_EQ(run.exitCode, c.exitCode) << c.name << ": " << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(c.reason)) << c.name << ": " << run.err.toStdString();
    }
    EXPECT_EQ(readAll(existing), QByteArray("precious"));
    EXPECT_EQ(runCli(cli("convert --yes", {sbs, existing})).exitCode, 0);
    EXPECT_NE(readAll(existing), QByteArray("precious"));
}

// Every output file keeps the date and camera of the source; --strip-metadata writes none.
TEST(ConvertProgram, KeepsTheCameraExif)
{
    QTemporaryDir dir;
    const QString mpo = data + QStringLiteral("/mpo/Panasonic-DMC-GX8.mpo");
    const auto tags = [](const QString &path) {
        QProcess exiftool;
        exiftool.start(QStringLiteral("exiftool"), cli("-s3 -DateTimeOriginal -Model -Orientation#", {path}));
        exiftool.waitForFinished();
        return QString::fromUtf8(exiftool.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    };
    const QStringList kept{QStringLiteral("2020:08:10 11:16:55"), QStringLiteral("DMC-GX8"), QStringLiteral("1")};
    const struct {
        const char *output, *name, *written; // written: the file read back, when not `name`
    } outputs[] = {{"sbs", "a.jpg"},   {"sbs", "a.png"}, {"half-sbs", "a.tif"}, {"anaglyph-dubois", "a.heic"},
                   {"mpo", "a.mpo"},   {"jps", "a.jps"}, {"separate", "s.png", "s_R.png"}, {"spatial", "s.heic"}};
    for (const auto &o : outputs) {
        const CliRun run = runCli(cli("convert --output") + cli(o.output, {mpo, dir.filePath(QLatin1String(o.name))}));
        ASSERT_EQ(run.exitCode, 0) << o.name << ": " << run.err.toStdString();
        EXPECT_EQ(tags(dir.filePath(QLatin1String(o.written ? o.written : o.name))), kept) << o.name;
    }
    const QString bare = dir.filePath(QStringLiteral("bare.jpg"));
    ASSERT_EQ(runCli(cli("convert --strip-metadata", {mpo, bare})).exitCode, 0);
    EXPECT_EQ(tags(bare), QStringList());
}

// A spatial photo written headless opens again as the same pair.
TEST(ConvertProgram, SpatialPhotoRoundTrip)
{
    QTemporaryDir dir;
    const QString spatial = dir.filePath(QStringLiteral("pair.heic")), back = dir.filePath(QStringLiteral("back.png"));
    // The writer's console line goes to stderr: output redirected to a file stays clean.
    const CliRun written = runCli(cli("convert --output spatial --fov 70 --disparity-adj -12", {sbs, spatial}));
    ASSERT_EQ(written.exitCode, 0) << written.err.toStdString();
    EXPECT_TRUE(written.err.contains(QStringLiteral("70\n-12\n"))) << written.err.toStdString();
    EXPECT_FALSE(written.out.contains(QStringLiteral("70\n-12\n"))) << written.out.toStdString();
    const CliRun read = runCli(cli("convert --input spatial", {spatial, back}));
    ASSERT_EQ(read.exitCode, 0) << read.err.toStdString();
    EXPECT_EQ(QImageReader(back).size(), QSize(1044, 720)); // 522 x 720 eyes, even already
}

TEST(ConvertProgram, AutoAlignAndColourMatching)
{
    QTemporaryDir dir;
    const QString out = dir.filePath(QStringLiteral("aligned.png"));
    const CliRun aligned = runCli(cli("convert --auto-align --color-ref right", {left01, right01, out}));
    ASSERT_EQ(aligned.exitCode, 0) << aligned.err.toStdString();
    const QSize size = QImageReader(out).size();
    EXPECT_EQ(size.width() % 2, 0);
    EXPECT_LT(size.height(), 480); // cut to the area both corrected views cover
    EXPECT_GT(size.height(), 400);

    const QString flat = dir.filePath(QStringLiteral("flat.png"));
    QImage grey(400, 200, QImage::Format_RGB32);
    grey.fill(qRgb(120, 120, 120));
    ASSERT_TRUE(grey.save(flat));
    const QString none = dir.filePath(QStringLiteral("none.png"));
    // Nothing to match: the pair is written unaligned, as the batch writes it, with a warning.
    const CliRun unaligned = runCli(cli("convert --auto-align", {flat, none}));
    EXPECT_EQ(unaligned.exitCode, 0);
    EXPECT_TRUE(unaligned.err.contains(QStringLiteral("found nothing to match"))) << unaligned.err.toStdString();
    EXPECT_EQ(QImageReader(none).size(), QSize(400, 200));
}

// --color-ref names the view, as shown after any swap, that keeps its pixels; the other one changes.
TEST(ConvertProgram, ColourReferenceStaysUnchanged)
{
    QTemporaryDir dir;
    const auto view = [&dir](const QString &name, const char *eye) {
        return readAll(dir.filePath(name + QLatin1String(eye)));
    };
    for (const char *swap : {"", "--swap"}) {
        const QString plain = QStringLiteral("plain") + QLatin1String(swap);
        ASSERT_EQ(runCli(cli("convert --output=separate", {left01, right01, dir.filePath(plain + ".png")}) + cli(swap))
                      .exitCode,
                  0);
        for (const char *side : {"left", "right"}) {
            const QString matched = QLatin1String(side) + QLatin1String(swap);
            ASSERT_EQ(runCli(cli("convert --output=separate --color-ref") +
                             cli(side, {left01, right01, dir.filePath(matched + ".png")}) + cli(swap))
                          .exitCode,
                      0);
            const bool leftKept = side == std::string_view("left");
            EXPECT_EQ(view(matched, "_L.png") == view(plain, "_L.png"), leftKept) << side << swap;
            EXPECT_EQ(view(matched, "_R.png") == view(plain, "_R.png"), !leftKept) << side << swap;
        }
    }
}

} // namespace
