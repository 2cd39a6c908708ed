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

int runCli(const QStringList &arguments, QString *errorText = nullptr, const QString &configHome = {})
{
    const CliRun run = CliTest::runCli(arguments, configHome);
    if (errorText)
        *errorText = run.err;
    return run.exitCode;
}

TEST(ConvertOptions, ParsesAndRejects)
{
    const PipelineOptions o = parsePipelineOptions(
        {QStringLiteral("--output=anaglyph-dubois"), QStringLiteral("--adjust"), QStringLiteral("1,-2,3.5,4"),
         QStringLiteral("--swap"), QStringLiteral("--color-ref=left"), QStringLiteral("in.jpg"), QStringLiteral("out.png")},
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
    const PipelineOptions pair = parsePipelineOptions(
        {QStringLiteral("--output"), QStringLiteral("separate"), QStringLiteral("--input"), QStringLiteral("separate"),
         QStringLiteral("l.jpg"), QStringLiteral("r.jpg"), QStringLiteral("d/o.x.png")},
        CliCommand::convert);
    const BatchJob pairJob = convertJob(pair, pair.settings({}));
    EXPECT_EQ(pairJob.outputs, (QStringList{QStringLiteral("d/o.x_L.png"), QStringLiteral("d/o.x_R.png")}));
    EXPECT_FALSE(pairJob.openAsWindow);

    const QStringList bad[] = {
        {QStringLiteral("--adjust"), QStringLiteral("1,2,3"), QStringLiteral("a"), QStringLiteral("b")},
        {QStringLiteral("--adjust"), QStringLiteral("1,x,3,4"), QStringLiteral("a"), QStringLiteral("b")},
        {QStringLiteral("--output"), QStringLiteral("cubes"), QStringLiteral("a"), QStringLiteral("b")},
        {QStringLiteral("--nope"), QStringLiteral("a"), QStringLiteral("b")},
        {QStringLiteral("--format"), QStringLiteral("png"), QStringLiteral("a"), QStringLiteral("b")}, // batch only
        {QStringLiteral("--shard"), QStringLiteral("0/2"), QStringLiteral("a"), QStringLiteral("b")},
        {QStringLiteral("a")},
        {QStringLiteral("--input"), QStringLiteral("separate"), QStringLiteral("a"), QStringLiteral("b")},
        {QStringLiteral("--input"), QStringLiteral("mpo"), QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")},
        {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")},
        {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("--input")},
        {QStringLiteral("--fov"), QStringLiteral("180"), QStringLiteral("a"), QStringLiteral("b")},
        {QStringLiteral("--resize"), QStringLiteral("10,0"), QStringLiteral("a"), QStringLiteral("b")},
        {QStringLiteral("--resize"), QStringLiteral("10,10,zoom"), QStringLiteral("a"), QStringLiteral("b")},
        {QStringLiteral("--crop"), QStringLiteral("1,2,3"), QStringLiteral("a"), QStringLiteral("b")},
        {QStringLiteral("--disparity-adj"), QStringLiteral("abc"), QStringLiteral("a"), QStringLiteral("b")},
        {QStringLiteral("--stereo-base"), QStringLiteral("0"), QStringLiteral("a"), QStringLiteral("b")},
    };
    for (const QStringList &arguments : bad)
        EXPECT_THROW(
            {
                const PipelineOptions parsed = parsePipelineOptions(arguments, CliCommand::convert);
                convertJob(parsed, parsed.settings({}));
            },
            UsageError)
            << arguments.join(QLatin1Char(' ')).toStdString();
}

struct CliCase {
    const char *name;
    QStringList inputs;
    QStringList options;
    const char *output;
    QSize expectedSize;
};

// Each output mode on real files; the sizes follow from the pair size and the mode.
TEST(ConvertProgram, WritesEachModeAtTheExpectedSize)
{
    const QString sbs = data + QStringLiteral("/stereo/02-super-mario.jpg"); // 1044x720, halves 522x720
    const CliCase cases[] = {
        {"sbs", {sbs}, {}, "out.png", {1044, 720}},
        {"half-sbs", {sbs}, {QStringLiteral("--output"), QStringLiteral("half-sbs")}, "out.png", {522, 720}},
        {"dubois", {sbs}, {QStringLiteral("--output"), QStringLiteral("anaglyph-dubois")}, "out.JPG", {522, 720}},
        {"adjusted", {sbs}, {QStringLiteral("--adjust"), QStringLiteral("10,0,0,0")}, "out.tif", {938, 720}}, // 522 - 52.2 truncated, twice,
        {"crop", {sbs}, {QStringLiteral("--crop"), QStringLiteral("10,20,100,50")}, "out.png", {200, 50}},
        {"letterbox", {sbs}, {QStringLiteral("--resize"), QStringLiteral("300,200,letterbox")}, "out.png", {600, 200}},
        {"crop then resize",
         {sbs},
         {QStringLiteral("--resize=261,180,crop-fit"), QStringLiteral("--crop=0,0,522,360")},
         "out.png",
         {522, 180}},
        {"separate",
         {data + QStringLiteral("/stereo/left01.jpg"), data + QStringLiteral("/stereo/right01.jpg")},
         {QStringLiteral("--output"), QStringLiteral("anaglyph-gray")},
         "out.bmp",
         {640, 480}},
        {"over/under", {sbs}, {QStringLiteral("--output=over-under")}, "out.png", {522, 1440}},
        {"half over/under", {sbs}, {QStringLiteral("--output=half-over-under")}, "out.png", {522, 720}},
        {"interlaced", {sbs}, {QStringLiteral("--output=checkerboard")}, "out.png", {522, 720}},
        {"amber-blue", {sbs}, {QStringLiteral("--output=anaglyph-dubois-amber-blue")}, "out.png", {522, 720}},
        {"mpo, first picture", {sbs}, {QStringLiteral("--output=mpo")}, "out.mpo", {522, 720}},
        {"jps under a jpg name", {sbs}, {QStringLiteral("--output=jps")}, "out.jpg", {1044, 720}},
        {"over/under input", {sbs}, {QStringLiteral("--input=over-under")}, "out.png", {2088, 360}},
    };
    for (const CliCase &c : cases) {
        QTemporaryDir dir;
        const QString out = dir.filePath(QString::fromLatin1(c.output));
        QString errors;
        ASSERT_EQ(runCli(QStringList{QStringLiteral("convert")} + c.options + c.inputs + QStringList{out}, &errors),
                  0)
            << c.name << ": " << errors.toStdString();
        QImageReader reader(out);
        EXPECT_EQ(reader.size(), c.expectedSize) << c.name;
    }
}

// Every output file keeps the date and camera of the source; --strip-metadata writes none.
TEST(ConvertProgram, KeepsTheCameraExif)
{
    QTemporaryDir dir;
    const QString mpo = data + QStringLiteral("/mpo/Panasonic-DMC-GX8.mpo");
    const auto tags = [](const QString &path) {
        QProcess exiftool;
        exiftool.start(QStringLiteral("exiftool"), {QStringLiteral("-s3"), QStringLiteral("-DateTimeOriginal"),
                                                    QStringLiteral("-Model"), QStringLiteral("-Orientation#"), path});
        exiftool.waitForFinished();
        return QString::fromUtf8(exiftool.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    };
    const QStringList kept{QStringLiteral("2020:08:10 11:16:55"), QStringLiteral("DMC-GX8"), QStringLiteral("1")};
    const std::pair<const char *, const char *> outputs[] = {
        {"sbs", "a.jpg"}, {"sbs", "a.png"}, {"half-sbs", "a.tif"}, {"anaglyph-dubois", "a.heic"},
        {"mpo", "a.mpo"}, {"jps", "a.jps"}, {"separate", "s.png"}, {"spatial", "s.heic"}};
    for (const auto &[output, name] : outputs) {
        const QString out = dir.filePath(QLatin1String(name));
        QString errors;
        ASSERT_EQ(runCli({QStringLiteral("convert"), QStringLiteral("--output"), QLatin1String(output), mpo, out}, &errors),
                  0)
            << name << ": " << errors.toStdString();
        const QString written = QLatin1String(output) == QLatin1String("separate") ? dir.filePath(QStringLiteral("s_R.png")) : out;
        EXPECT_EQ(tags(written), kept) << name;
    }
    const QString bare = dir.filePath(QStringLiteral("bare.jpg"));
    ASSERT_EQ(runCli({QStringLiteral("convert"), QStringLiteral("--strip-metadata"), mpo, bare}), 0);
    EXPECT_EQ(tags(bare), QStringList());
}

// A spatial photo written headless opens again as the same pair; a HEIC without a stereo pair
// group is refused when spatial input is asked for.
TEST(ConvertProgram, SpatialPhotoRoundTrip)
{
    QTemporaryDir dir;
    const QString spatial = dir.filePath(QStringLiteral("pair.heic")), back = dir.filePath(QStringLiteral("back.png"));
    QString errors;
    // The writer's console line goes to stderr: output redirected to a file stays clean.
    const CliRun written = CliTest::runCli({QStringLiteral("convert"), QStringLiteral("--output"), QStringLiteral("spatial"),
                                            QStringLiteral("--fov"), QStringLiteral("70"), QStringLiteral("--disparity-adj"),
                                            QStringLiteral("-12"), data + QStringLiteral("/stereo/02-super-mario.jpg"), spatial});
    ASSERT_EQ(written.exitCode, 0) << written.err.toStdString();
    EXPECT_TRUE(written.err.contains(QStringLiteral("70\n-12\n"))) << written.err.toStdString();
    EXPECT_FALSE(written.out.contains(QStringLiteral("70\n-12\n"))) << written.out.toStdString();
    ASSERT_EQ(runCli({QStringLiteral("convert"), QStringLiteral("--input"), QStringLiteral("spatial"), spatial, back},
                     &errors),
              0)
        << errors.toStdString();
    EXPECT_EQ(QImageReader(back).size(), QSize(1044, 720)); // 522 x 720 eyes, even already
    EXPECT_EQ(runCli({QStringLiteral("convert"), QStringLiteral("--input"), QStringLiteral("spatial"),
                      data + QStringLiteral("/heic/example.heic"), back, QStringLiteral("--yes")},
                     &errors),
              1);
    EXPECT_TRUE(errors.contains(QStringLiteral("This is not a spartial photo: No stereo pair group found")))
        << errors.toStdString();
}

// The bordered picture follows the border settings stored by the window: here the side-by-side
// layout at 3 % of 522 px (b = 15.66, top band 31.32), 1090.98 x 766.98 truncated.
TEST(ConvertProgram, BorderUsesTheStoredSettings)
{
    QTemporaryDir config;
    ASSERT_TRUE(QDir().mkpath(config.filePath(QStringLiteral("Vorel"))));
    QFile store(config.filePath(QStringLiteral("Vorel/Vorel.ini")));
    ASSERT_TRUE(store.open(QIODevice::WriteOnly));
    store.write("[General]\nib.layoutKind=0\n");
    store.close();
    const QString out = config.filePath(QStringLiteral("framed.png"));
    QString errors;
    ASSERT_EQ(runCli({QStringLiteral("convert"), QStringLiteral("--output"), QStringLiteral("border"),
                      data + QStringLiteral("/stereo/02-super-mario.jpg"), out},
                     &errors, config.path()),
              0)
        << errors.toStdString();
    EXPECT_EQ(QImageReader(out).size(), QSize(1090, 766));
}

TEST(ConvertProgram, ExitCodesAndNoClobbering)
{
    QTemporaryDir dir;
    const QString existing = dir.filePath(QStringLiteral("keep.png"));
    QFile file(existing);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("precious");
    file.close();
    const QString sbs = data + QStringLiteral("/stereo/02-super-mario.jpg");
    const QString garbage = dir.filePath(QStringLiteral("text.jpg"));
    QFile text(garbage);
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("not a picture");
    text.close();

    QString errors;
    EXPECT_EQ(runCli({QStringLiteral("convert"), garbage, dir.filePath(QStringLiteral("o.png"))}, &errors), 1);
    EXPECT_TRUE(errors.contains(garbage)) << errors.toStdString();
    EXPECT_EQ(runCli({QStringLiteral("convert"), sbs, existing}), 1); // exists, no --yes, no terminal
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("precious"));
    file.close();
    EXPECT_EQ(runCli({QStringLiteral("convert"), QStringLiteral("--yes"), sbs, existing}), 0);
    EXPECT_EQ(runCli({QStringLiteral("convert"), QStringLiteral("--what"), sbs, existing}), 2);
    EXPECT_EQ(runCli({}), 2);
}

TEST(ConvertProgram, AutoAlignAndColourMatching)
{
    QTemporaryDir dir;
    const QString left = data + QStringLiteral("/stereo/left01.jpg"), right = data + QStringLiteral("/stereo/right01.jpg");
    const QString out = dir.filePath(QStringLiteral("aligned.png"));
    QString errors;
    ASSERT_EQ(runCli({QStringLiteral("convert"), QStringLiteral("--auto-align"), QStringLiteral("--color-ref"),
                      QStringLiteral("right"), left, right, out},
                     &errors),
              0)
        << errors.toStdString();
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
    EXPECT_EQ(runCli({QStringLiteral("convert"), QStringLiteral("--auto-align"), flat, none}, &errors), 0);
    EXPECT_TRUE(errors.contains(QStringLiteral("found nothing to match"))) << errors.toStdString();
    EXPECT_EQ(QImageReader(none).size(), QSize(400, 200));
    EXPECT_EQ(runCli({QStringLiteral("convert"), QStringLiteral("--color-ref"), QStringLiteral("middle"), flat, none}),
              2);
}

// --color-ref names the view, as shown after any swap, that keeps its pixels; the other one changes.
TEST(ConvertProgram, ColourReferenceStaysUnchanged)
{
    QTemporaryDir dir;
    const QString left = data + QStringLiteral("/stereo/left01.jpg"), right = data + QStringLiteral("/stereo/right01.jpg");
    for (const QString swap : {QString(), QStringLiteral("--swap")}) {
        const QString plain = dir.filePath(QStringLiteral("plain%1.png").arg(swap));
        ASSERT_EQ(runCli(QStringList{QStringLiteral("convert"), QStringLiteral("--output=separate"), left, right, plain} +
                         (swap.isEmpty() ? QStringList() : QStringList{swap})),
                  0);
        for (const QString side : {QStringLiteral("left"), QStringLiteral("right")}) {
            const QString matched = dir.filePath(side + swap + QStringLiteral(".png"));
            ASSERT_EQ(runCli(QStringList{QStringLiteral("convert"), QStringLiteral("--output=separate"),
                                         QStringLiteral("--color-ref"), side, left, right, matched} +
                             (swap.isEmpty() ? QStringList() : QStringList{swap})),
                      0);
            const auto view = [](const QString &path, const char *suffix) {
                return contents(QString(path).replace(QStringLiteral(".png"), QLatin1String(suffix)));
            };
            const bool leftKept = side == QLatin1String("left");
            EXPECT_EQ(view(matched, "_L.png") == view(plain, "_L.png"), leftKept) << side.toStdString() << swap.toStdString();
            EXPECT_EQ(view(matched, "_R.png") == view(plain, "_R.png"), !leftKept) << side.toStdString() << swap.toStdString();
        }
    }
}

// Asked for explicitly, an MPO that is none fails with the reader's text, as spatial input does.
TEST(ConvertProgram, ExplicitMpoInputIsStrict)
{
    QTemporaryDir dir;
    QString errors;
    EXPECT_EQ(runCli({QStringLiteral("convert"), QStringLiteral("--input"), QStringLiteral("mpo"),
                      data + QStringLiteral("/stereo/left01.jpg"), dir.filePath(QStringLiteral("o.png"))},
                     &errors),
              1);
    EXPECT_TRUE(errors.contains(QStringLiteral("Invalid MPO file"))) << errors.toStdString();
    EXPECT_EQ(runCli({QStringLiteral("convert"), QStringLiteral("--input"), QStringLiteral("mpo"),
                      data + QStringLiteral("/mpo/sugarshack.mpo"), dir.filePath(QStringLiteral("o.png"))}),
              0);
}

} // namespace
