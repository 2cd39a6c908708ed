// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// vorel-cli batch against bad inputs and failing outputs: each bad job fails with its reason in
// the summary and the log, the others are written, no partial or empty file stays behind.
#include <QImage>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QThread>

#include <functional>
#include <random>

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/mount.h>

#include "tests/cli/clirun.h"

using namespace Vorel::CliTest;

namespace {

const QString sbs = QStringLiteral("stereo/02-super-mario.jpg");

// Every file in the output folder is an image that decodes, and one of the expected names.
void expectOnlyWholeOutputs(const QString &folder, const QStringList &allowed)
{
    for (const QString &name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
        EXPECT_TRUE(allowed.contains(name)) << "left behind: " << name.toStdString();
        EXPECT_FALSE(QImage(folder + QLatin1Char('/') + name).isNull()) << "not whole: " << name.toStdString();
    }
}

// Job name -> status from the JSON log.
std::map<QString, QString> loggedStatuses(const QString &log)
{
    std::map<QString, QString> statuses;
    for (const QJsonObject &entry : jsonLines(readAll(log)))
        statuses[entry.value(QStringLiteral("inputs")).toArray().at(0).toString()] =
            entry.value(QStringLiteral("status")).toString();
    return statuses;
}

struct BadInputCase {
    const char *name;
    QStringList options;
    std::vector<std::pair<QString, QString>> goodFiles; // test data, name
    std::map<QString, QString> failures;                  // job's first input -> reason
    QStringList written;
};

TEST(BatchFaults, BadInputsFailWithTheirReasonsAndTheRestIsWritten)
{
    const BadInputCase cases[] = {
        {"broken files as side-by-side pictures",
         {},
         {{sbs, "good.jpg"}, {"stereo/left01.jpg", "other.png"}},
         {{"broken.jpg", "Cannot open broken.jpg"}, {"empty.mpo", "Cannot open empty.mpo"},
          {"text.heic", "Cannot open text.heic"}, {"unreadable.jpg", "Cannot open unreadable.jpg"}},
         {"good.jpg", "other.jpg"}},
        {"a HEIC without a stereo pair as spatial input",
         {"--input", "spatial"},
         {{"heic/vision-pro.HEIC", "vision-pro.HEIC"}, {"heic/example.heic", "example.heic"}},
         {{"example.heic", "This is not a spartial photo: No stereo pair group found"}},
         {"vision-pro.jpg"}},
        {"a JPEG as MPO input", {"--input", "mpo"}, {{"mpo/sugarshack.mpo", "a.mpo"}, {sbs, "b.jpg"}},
         {{"b.jpg", "Invalid MPO file"}}, {"a.jpg"}},
        {"an odd file as separate input",
         {"--input", "separate", "--output", "separate", "--format", "png"},
         {{"stereo/left01.jpg", "1.jpg"}, {"stereo/right01.jpg", "2.jpg"}, {"stereo/left.jpg", "3.jpg"}},
         {{"3.jpg", "No right image to pair with 3.jpg"}},
         {"1_L.png", "1_R.png"}},
    };
    for (const BadInputCase &c : cases) {
        QTemporaryDir dir;
        const QString in = dir.filePath(QStringLiteral("in")), out = dir.filePath(QStringLiteral("out")),
                      log = dir.filePath(QStringLiteral("log.jsonl"));
        ASSERT_TRUE(copyData(in, c.goodFiles));
        if (c.failures.count(QStringLiteral("broken.jpg"))) {
            // Cut before the scan, empty, and text.
            const QByteArray picture = readAll(data + QLatin1Char('/') + sbs);
            ASSERT_FALSE(writeFile(in + QStringLiteral("/broken.jpg"), picture.left(5000)).isEmpty());
            ASSERT_FALSE(writeFile(in + QStringLiteral("/empty.mpo")).isEmpty());
            ASSERT_FALSE(writeFile(in + QStringLiteral("/text.heic"), "not a picture\n").isEmpty());
            ASSERT_TRUE(copyData(in, {{sbs, "unreadable.jpg"}}));
            QFile::setPermissions(in + QStringLiteral("/unreadable.jpg"), {});
        }
        const CliRun run = runCli(QStringList{QStringLiteral("batch"), QStringLiteral("--log"), log} + c.options +
                                  QStringList{in, out});
        EXPECT_EQ(run.exitCode, 1) << c.name << run.err.toStdString();
        const QString failedList = run.err.mid(run.err.indexOf(QStringLiteral("Failed:\n")));
        const std::map<QString, QString> statuses = loggedStatuses(log);
        for (const auto &[input, reason] : c.failures) {
            EXPECT_TRUE(failedList.contains(QStringLiteral("  %1: %2\n").arg(input, reason)) ||
                        failedList.contains(QStringLiteral(": ") + reason + QLatin1Char('\n')))
                << c.name << ": " << input.toStdString() << "\n" << run.err.toStdString();
            EXPECT_EQ(statuses.count(input) ? statuses.at(input) : QString(), QStringLiteral("failed")) << c.name;
        }
        for (const auto &[input, status] : statuses)
            if (!c.failures.count(input))
                EXPECT_EQ(status, QStringLiteral("ok")) << c.name << ": " << input.toStdString();
        EXPECT_EQ(QDir(out).entryList(QDir::Files), c.written) << c.name;
        expectOnlyWholeOutputs(out, c.written);
    }
}

enum class OutputFault { readOnly, disappears, full };

// Six copies of the side-by-side picture as p1.jpg .. p6.jpg in `in`; the output names.
QStringList sixInputs(const QString &in)
{
    std::vector<std::pair<QString, QString>> inputs;
    QStringList names;
    for (int i = 1; i <= 6; ++i) {
        inputs.emplace_back(sbs, QStringLiteral("p%1.jpg").arg(i));
        names << QStringLiteral("p%1.jpg").arg(i);
    }
    EXPECT_TRUE(copyData(in, inputs));
    return names;
}

// Outputs that cannot be written: each job fails with the writer's text, nothing half written.
TEST(BatchFaults, FailingOutputFolder)
{
    for (const OutputFault fault : {OutputFault::readOnly, OutputFault::disappears, OutputFault::full}) {
        QTemporaryDir dir;
        const QString in = dir.filePath(QStringLiteral("in")), out = dir.filePath(QStringLiteral("out"));
        const QStringList names = sixInputs(in);
        QDir().mkpath(out);
        if (fault == OutputFault::readOnly)
            QFile::setPermissions(out, QFile::ReadOwner | QFile::ExeOwner);
        // About two and a half outputs of 190 kB fit.
        if (fault == OutputFault::full &&
            mount("tmpfs", out.toLocal8Bit().constData(), "tmpfs", 0, "size=480k") != 0)
            GTEST_SKIP() << "a small tmpfs cannot be mounted here, so a full disk cannot be made";

        QTemporaryDir config;
        QProcess run;
        startCli(run, {QStringLiteral("batch"), QStringLiteral("--auto-align"), in, out}, config.path());
        if (fault == OutputFault::disappears) {
            waitForProgress(run, "[2/6]");
            QDir(out).removeRecursively();
        }
        ASSERT_TRUE(run.waitForFinished(120000));
        const QString errors = QString::fromUtf8(run.readAllStandardError());
        EXPECT_EQ(run.exitStatus(), QProcess::NormalExit) << int(fault);
        EXPECT_EQ(run.exitCode(), 1) << int(fault) << errors.toStdString();
        EXPECT_TRUE(errors.contains(QStringLiteral("Could not save p6.jpg"))) << int(fault) << errors.toStdString();
        const QStringList written = QDir(out).entryList(QDir::Files | QDir::Hidden);
        if (fault == OutputFault::full)
            EXPECT_GE(written.size(), 1);
        else
            EXPECT_TRUE(written.isEmpty()) << int(fault);
        expectOnlyWholeOutputs(out, names);
        if (fault == OutputFault::full)
            umount(out.toLocal8Bit().constData());
        QFile::setPermissions(out, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

// Killed outright, a run leaves only whole outputs, and --skip-existing finishes the work.
TEST(BatchFaults, KilledRunResumes)
{
    const int randomDelay = std::uniform_int_distribution(100, 3000)(*std::make_unique<std::random_device>());
    const std::pair<const char *, std::function<void(QProcess &, const QString &)>> kills[] = {
        {"as the first output appears",
         [](QProcess &, const QString &out) {
             while (QDir(out).isEmpty(QDir::Files | QDir::Hidden))
                 QThread::msleep(5);
         }},
        {"inside the second job", [](QProcess &run, const QString &) { waitForProgress(run, "[2/6]"); }},
        {"after a random delay", [&](QProcess &run, const QString &) { run.waitForFinished(randomDelay); }},
    };
    for (const auto &[when, wait] : kills) {
        QTemporaryDir dir, config;
        const QString in = dir.filePath(QStringLiteral("in")), out = dir.filePath(QStringLiteral("out"));
        const QStringList names = sixInputs(in);
        QProcess run;
        startCli(run, {QStringLiteral("batch"), in, out}, config.path());
        ASSERT_TRUE(run.waitForStarted());
        wait(run, out);
        if (run.state() == QProcess::Running && run.processId() > 0) // a finished run has no id: kill(0) hits us
            ::kill(pid_t(run.processId()), SIGKILL);
        run.waitForFinished();
        expectOnlyWholeOutputs(out, names);
        const CliRun resumed = runCli({QStringLiteral("batch"), QStringLiteral("--skip-existing"), in, out});
        EXPECT_EQ(resumed.exitCode, 0) << when << " (" << randomDelay << " ms) " << resumed.err.toStdString();
        EXPECT_EQ(QDir(out).entryList(QDir::Files | QDir::Hidden), names) << when;
        expectOnlyWholeOutputs(out, names);
    }
}

// Inputs and the output folder changing under a running batch: the jobs they hit fail with
// their reason, the others are written, nothing partial stays.
TEST(BatchFaults, ChangesDuringTheRun)
{
    struct Change {
        const char *name;
        std::function<void(const QString &in, const QString &out)> make;
        const char *reason; // for p5 and p6
    };
    const Change changes[] = {
        {"inputs cut short and removed",
         [](const QString &in, const QString &) {
             QFile(in + QStringLiteral("/p5.jpg")).resize(5000);
             QFile::remove(in + QStringLiteral("/p6.jpg"));
         },
         "Cannot open %1"},
        {"output folder made read-only",
         [](const QString &, const QString &out) {
             QFile::setPermissions(out, QFile::ReadOwner | QFile::ExeOwner);
         },
         "Could not save %1"},
    };
    for (const Change &change : changes) {
        QTemporaryDir dir, config;
        const QString in = dir.filePath(QStringLiteral("in")), out = dir.filePath(QStringLiteral("out")),
                      log = dir.filePath(QStringLiteral("log.jsonl"));
        const QStringList names = sixInputs(in);
        QProcess run;
        startCli(run, {QStringLiteral("batch"), QStringLiteral("--log"), log, in, out}, config.path());
        waitForProgress(run, "[2/6]"); // inside the second job
        change.make(in, out);
        ASSERT_TRUE(run.waitForFinished(120000));
        const QString errors = QString::fromUtf8(run.readAllStandardError());
        EXPECT_EQ(run.exitCode(), 1) << change.name << errors.toStdString();
        const std::map<QString, QString> statuses = loggedStatuses(log);
        EXPECT_EQ(statuses.at(QStringLiteral("p1.jpg")), QStringLiteral("ok")) << change.name;
        for (const QString name : {QStringLiteral("p5.jpg"), QStringLiteral("p6.jpg")}) {
            EXPECT_EQ(statuses.at(name), QStringLiteral("failed")) << change.name;
            EXPECT_TRUE(errors.contains(QString::fromLatin1(change.reason).arg(name))) << change.name << errors.toStdString();
        }
        expectOnlyWholeOutputs(out, names);
        QFile::setPermissions(out, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

} // namespace
