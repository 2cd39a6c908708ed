// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The job pipeline on real files: each output is what the window composes from the same pair,
// and a run stops when cancelled and resumes where it stopped.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include "batch/batchprocessor.h"
#include "core/displaycomposition.h"
#include "core/stereoimageprocessor.h"
#include "core/stereointake.h"

using namespace Vorel;

namespace {

const QString data = QStringLiteral(VOREL_TEST_DATA);

struct Folder {
    QTemporaryDir dir;
    QString path(const QString &name) const { return dir.filePath(name); }
    QString copy(const QString &source, const QString &name) const
    {
        QFile::copy(data + source, path(name));
        return path(name);
    }
};

BatchSettings settingsFor(BatchInputFormat input, BatchOutputFormat output, BatchFileFormat file = BatchFileFormat::png)
{
    BatchSettings settings;
    settings.inputFormat = input;
    settings.outputFormat = output;
    settings.fileFormat = file;
    return settings;
}

TEST(JobPipeline, OutputsAreWhatTheWindowComposes)
{
    Folder folder;
    const QString mpo = folder.copy(QStringLiteral("/mpo/frozenpond.mpo"), QStringLiteral("pond.mpo"));
    StereoImageProcessor proc; // the pair as the window holds it after opening the same file
    openEntry(proc, {mpo, {}});
    proc.isSwap = true; // every output shows the swapped order
    const ImagePair pair = *proc.renderFullWidth(false);
    struct Case {
        BatchOutputFormat output;
        QImage expected;
    };
    std::vector<Case> cases{
        {BatchOutputFormat::sbs, composeSideBySide(pair.left, pair.right)},
        {BatchOutputFormat::halfSBS, composeSideBySide(halfWidth(pair.left), halfWidth(pair.right))},
        {BatchOutputFormat::anaglyphGray, *proc.renderAnaglyph(0, false)},
        {BatchOutputFormat::anaglyphDubois, *proc.renderAnaglyph(2, false)},
        {BatchOutputFormat::separate, pair.left},
    };
    // Every other composed output is the window's picture of its display mode.
    for (const BatchChoice<BatchOutputFormat> &choice : batchOutputFormats)
        if (const std::optional<DisplayMode> mode = displayModeWritten(choice.value); mode && int(*mode) > int(DisplayMode::imageBorder))
            cases.push_back({choice.value, *proc.renderDisplayPicture(*mode, false)});
    for (const Case &c : cases) {
        BatchSettings settings = settingsFor(BatchInputFormat::mpo, c.output);
        settings.swapLR = true;
        const QStringList outputs{folder.path(QStringLiteral("out_L.png")), folder.path(QStringLiteral("out_R.png"))};
        const JobResult result = runJobPipeline(settings, {{mpo}, outputs}, ImageBorderSettings(), {});
        ASSERT_EQ(result.status, JobStatus::ok) << int(c.output) << result.error.toStdString();
        EXPECT_EQ(QImage(outputs[0]).convertToFormat(QImage::Format_RGB32),
                  c.expected.convertToFormat(QImage::Format_RGB32))
            << int(c.output);
    }
    EXPECT_EQ(QImage(folder.path(QStringLiteral("out_R.png"))).convertToFormat(QImage::Format_RGB32),
              pair.right.convertToFormat(QImage::Format_RGB32));
}

TEST(BatchProcessor, CancelDuringJobThreeOfTenStartsNoLaterJob)
{
    Folder folder;
    QStringList inputs;
    for (int i = 1; i <= 10; ++i)
        inputs << folder.copy(QStringLiteral("/mpo/sugarshack.mpo"), QStringLiteral("p%1.mpo").arg(i));
    BatchSettings settings = settingsFor(BatchInputFormat::mpo, BatchOutputFormat::anaglyphDubois);
    settings.outputFolder = folder.path(QStringLiteral("out"));
    QDir().mkpath(settings.outputFolder);
    const std::vector<BatchJob> jobs = makeBatchJobs(inputs, settings);

    BatchProcessor processor;
    std::vector<size_t> started;
    BatchHooks hooks;
    hooks.jobStarted = [&](size_t index, const BatchJob &) {
        started.push_back(index);
        if (index == 2)
            processor.cancel();
    };
    const std::vector<JobResult> results = processor.process(settings, jobs, {}, hooks);
    EXPECT_EQ(started, (std::vector<size_t>{0, 1, 2}));
    ASSERT_EQ(results.size(), 3u);
    EXPECT_EQ(results[1].status, JobStatus::ok);
    EXPECT_EQ(results[2].status, JobStatus::cancelled);
    EXPECT_EQ(QDir(settings.outputFolder).entryList(QDir::Files), (QStringList{"p1.png", "p2.png"}));

    // A resumed run skips the finished jobs and does the rest.
    BatchProcessor resumed;
    BatchRunOptions options;
    options.skipExisting = true;
    const std::vector<JobResult> rest = resumed.process(settings, jobs, options);
    ASSERT_EQ(rest.size(), 10u);
    EXPECT_EQ(rest[1].status, JobStatus::skippedExisting);
    EXPECT_EQ(rest[2].status, JobStatus::ok);
}

} // namespace
