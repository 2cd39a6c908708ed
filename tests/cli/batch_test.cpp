// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// vorel-cli batch on real files: the job list as the window forms it, the overwrite refusal,
// shards that add up to one run, the JSON log, and resuming after an interrupted run.
#include <csignal>

#include <QImageReader>
#include <QJsonArray>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "tests/cli/clirun.h"

using namespace Vorel::CliTest;

namespace {

const QString sbs = QStringLiteral("stereo/02-super-mario.jpg");

QStringList lines(const QString &text) { return text.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }

void touch(const QString &folder, const QStringList &names, const QByteArray &content = {})
{
    QDir().mkpath(folder);
    for (const QString &name : names)
        ASSERT_FALSE(writeFile(folder + QLatin1Char('/') + name, content).isEmpty());
}

// Every file of the folder by name, with its bytes.
std::map<QString, QByteArray> folderContents(const QString &folder)
{
    std::map<QString, QByteArray> files;
    for (const QString &name : QDir(folder).entryList(QDir::Files | QDir::Hidden))
        files[name] = readAll(folder + QLatin1Char('/') + name);
    return files;
}

struct ListingCase {
    const char *name;
    QStringList inputs;
    QStringList existingOutputs;
    QStringList options;
    QStringList expected;     // the dry run's lines
    QByteArray stored = {}; // the preferences the window saved
};

TEST(BatchProgram, DryRunListsThePairedJobs)
{
    const QByteArray storedSeparatePng = "[General]\nbatch.outputFormat=6\nbatch.fileFormat=1\n";
    const ListingCase cases[] = {
        {"natural order, hidden and foreign files left out",
         {"b.jpg", "a10.jpg", "a2.JPG", ".hidden.jpg", "notes.txt"}, {}, {},
         {"a2.JPG -> a2.jpg", "a10.jpg -> a10.jpg", "b.jpg -> b.jpg"}},
        {"five files as separate pairs, separate output",
         {"1.jpg", "2.jpg", "3.jpg", "4.jpg", "5.jpg"}, {"3_R.png"},
         {"--input", "separate", "--output", "separate", "--format", "png"},
         {"1.jpg + 2.jpg -> 1_L.png, 1_R.png", "3.jpg + 4.jpg -> 3_L.png, 3_R.png (exists)", "5.jpg -> 5_L.png, 5_R.png"}},
        {"spatial output is always heic", {"name.jpg"}, {}, {"--output", "spatial", "--format", "jpg"},
         {"name.jpg -> name.heic"}},
        {"shard 1 of 2 takes the odd positions", {"a.mpo", "b.mpo", "c.mpo", "d.mpo"}, {}, {"--shard", "1/2"},
         {"b.mpo -> b.jpg", "d.mpo -> d.jpg"}},
        // The window's choices (separate PNG output) count only with --stored, the options override them.
        {"stored settings unused", {"x.jpg"}, {}, {}, {"x.jpg -> x.jpg"}, storedSeparatePng},
        {"stored settings with an option", {"x.jpg"}, {}, {"--stored", "--format=tiff"},
         {"x.jpg -> x_L.tiff, x_R.tiff"}, storedSeparatePng},
    };
    for (const ListingCase &c : cases) {
        QTemporaryDir dir;
        touch(dir.filePath(QStringLiteral("in")), c.inputs);
        touch(dir.filePath(QStringLiteral("out")), c.existingOutputs);
        touch(dir.filePath(QStringLiteral("Vorel")), {QStringLiteral("Vorel.ini")}, c.stored);
        const QStringList folders{dir.filePath(QStringLiteral("in")), dir.filePath(QStringLiteral("out"))};
        const CliRun run =
            runCli(QStringList{QStringLiteral("batch"), QStringLiteral("--dry-run")} + c.options + folders, dir.path());
        EXPECT_EQ(run.exitCode, 0) << c.name << run.err.toStdString();
        EXPECT_EQ(lines(run.out), c.expected) << c.name << "\n" << run.out.toStdString();
        EXPECT_EQ(QDir(dir.filePath(QStringLiteral("out"))).entryList(QDir::Files), c.existingOutputs) << c.name;
    }
}

TEST(BatchProgram, ListsExistingOutputsAndWritesNothingWithoutYes)
{
    QTemporaryDir dir;
    const QStringList names{"a1.jpg", "a2.jpg", "a3.jpg", "a4.jpg", "a5.jpg", "a6.jpg", "a7.jpg"};
    ASSERT_TRUE(copyData(dir.filePath(QStringLiteral("in")), {{sbs, QStringLiteral("a1.jpg")}}));
    touch(dir.filePath(QStringLiteral("in")), names.mid(1));
    touch(dir.filePath(QStringLiteral("out")), names, "old");
    const QStringList folders{dir.filePath(QStringLiteral("in")), dir.filePath(QStringLiteral("out"))};
    const CliRun refused = runCli(QStringList{QStringLiteral("batch")} + folders);
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.err, QStringLiteral("7 file(s) already exist:\na1.jpg\na2.jpg\na3.jpg\na4.jpg\na5.jpg\n"
                                          "… and 2 more files\n\n"
                                          "Pass --yes to overwrite them or --skip-existing to keep them.\n"));
    for (const QString &name : names)
        EXPECT_EQ(readAll(dir.filePath(QStringLiteral("out/") + name)), "old") << name.toStdString();
    // With --yes the readable one is written again; the empty inputs fail.
    EXPECT_EQ(runCli(QStringList{QStringLiteral("batch"), QStringLiteral("--yes")} + folders).exitCode, 1);
    EXPECT_TRUE(QImageReader(dir.filePath(QStringLiteral("out/a1.jpg"))).canRead());
}

// Three shards run side by side by GNU parallel, sharing one log, write what one run writes.
TEST(BatchProgram, ShardsTogetherMakeOneRun)
{
    QTemporaryDir dir;
    ASSERT_TRUE(copyData(dir.filePath(QStringLiteral("in")),
                         {{sbs, "p1.jpg"}, {"stereo/left01.jpg", "p2.jpg"}, {"stereo/right01.jpg", "p3.jpg"},
                          {"stereo/left.jpg", "p4.jpg"}, {"stereo/right.jpg", "p5.jpg"}, {"mpo/sugarshack.mpo", "p6.mpo"},
                          {"mpo/frozenpond.mpo", "p7.mpo"}}));
    const QString in = dir.filePath(QStringLiteral("in"));
    for (const QString format : {QStringLiteral("jpg"), QStringLiteral("png")}) {
        const QString whole = dir.filePath(QStringLiteral("whole-") + format),
                      sharded = dir.filePath(QStringLiteral("sharded-") + format),
                      log = dir.filePath(QStringLiteral("shards-") + format + QStringLiteral(".jsonl"));
        ASSERT_EQ(runCli({QStringLiteral("batch"), QStringLiteral("--format"), format, in, whole}).exitCode, 0);
        QTemporaryDir config;
        QProcess parallel;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
        parallel.setProcessEnvironment(environment);
        parallel.start(QStringLiteral("parallel"),
                       {QStringLiteral("-j3"), QStringLiteral(VOREL_CLI), QStringLiteral("batch"), QStringLiteral("--shard"),
                        QStringLiteral("{}/3"), QStringLiteral("--format"), format, QStringLiteral("--log"), log, in, sharded,
                        QStringLiteral(":::"), QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2")});
        ASSERT_TRUE(parallel.waitForFinished(300000));
        ASSERT_EQ(parallel.exitCode(), 0) << parallel.readAllStandardError().toStdString();
        const auto expected = folderContents(whole);
        EXPECT_EQ(expected.size(), 7u);
        EXPECT_TRUE(folderContents(sharded) == expected) << format.toStdString();
        QStringList logged;
        for (const QJsonObject &entry : jsonLines(readAll(log)))
            logged << entry.value(QStringLiteral("outputs")).toArray().at(0).toString();
        logged.sort();
        EXPECT_EQ(logged, QStringList(QDir(whole).entryList(QDir::Files))) << format.toStdString();
    }
}

// Interrupted mid-run (by SIGINT, or killed outright), then resumed with --skip-existing: every
// file present after the interruption is whole, and the resumed folder equals a clean run's.
TEST(BatchProgram, InterruptedRunResumes)
{
    QTemporaryDir dir;
    std::vector<std::pair<QString, QString>> inputs;
    for (int i = 1; i <= 8; ++i)
        inputs.emplace_back(sbs, QStringLiteral("p%1.jpg").arg(i));
    ASSERT_TRUE(copyData(dir.filePath(QStringLiteral("in")), inputs));
    const QString in = dir.filePath(QStringLiteral("in")), clean = dir.filePath(QStringLiteral("clean"));
    const QStringList recipe{QStringLiteral("batch"), QStringLiteral("--auto-align"), QStringLiteral("--output"),
                             QStringLiteral("anaglyph-dubois")};
    ASSERT_EQ(runCli(recipe + QStringList{in, clean}).exitCode, 0);

    for (const int signal : {SIGINT, SIGKILL}) {
        const QString out = dir.filePath(QStringLiteral("out%1").arg(signal)), log = out + QStringLiteral(".jsonl");
        QTemporaryDir config;
        QProcess run;
        startCli(run, recipe + QStringList{QStringLiteral("--log"), log, in, out}, config.path());
        waitForProgress(run, "[3/8]");
        ASSERT_EQ(run.state(), QProcess::Running); // never signal pid 0, the whole group
        ::kill(pid_t(run.processId()), signal);
        ASSERT_TRUE(run.waitForFinished(60000));
        if (signal == SIGINT) {
            EXPECT_EQ(run.exitStatus(), QProcess::NormalExit);
            EXPECT_EQ(run.exitCode(), 130);
            // Every file is a finished output: no temporary leftovers, nothing cut short.
            for (const auto &[name, bytes] : folderContents(out)) {
                EXPECT_TRUE(folderContents(clean).count(name)) << name.toStdString();
                QImage decoded;
                EXPECT_TRUE(decoded.loadFromData(bytes) && bytes == folderContents(clean)[name]) << name.toStdString();
            }
        }
        const auto interrupted = folderContents(out);
        const QList<QJsonObject> logBefore = jsonLines(readAll(log));
        EXPECT_LT(interrupted.size(), 8u);
        const CliRun resumed =
            runCli(recipe + QStringList{QStringLiteral("--skip-existing"), QStringLiteral("--log"), log, in, out});
        EXPECT_EQ(resumed.exitCode, 0) << resumed.err.toStdString();
        for (const auto &[name, bytes] : folderContents(clean))
            EXPECT_TRUE(readAll(out + QLatin1Char('/') + name) == bytes) << name.toStdString();

        // Each job the interrupted run finished is logged ok and skipped by the resumed run.
        std::map<QString, int> before, after;
        for (const QJsonObject &entry : logBefore)
            ++before[entry.value(QStringLiteral("status")).toString()];
        for (const QJsonObject &entry : jsonLines(readAll(log)).mid(logBefore.size()))
            ++after[entry.value(QStringLiteral("status")).toString()];
        EXPECT_GE(before[QStringLiteral("ok")], 2);
        EXPECT_GE(after[QStringLiteral("skipped-existing")], before[QStringLiteral("ok")]); // kill -9 may cut a log line
        if (signal == SIGINT)
            EXPECT_EQ(after[QStringLiteral("skipped-existing")], before[QStringLiteral("ok")]);
        EXPECT_EQ(after[QStringLiteral("skipped-existing")] + after[QStringLiteral("ok")], 8);
    }
}

} // namespace
