// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The batch job list: which files are taken and in what order, how they pair, what each job
// writes, and the overwrite question.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "batch/batchjoblist.h"

using namespace Vorel;

namespace {

void touch(const QDir &dir, const QString &name)
{
    QFile file(dir.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

TEST(BatchJobList, SeparateInputPairsConsecutiveFiles)
{
    BatchSettings settings;
    settings.inputFormat = BatchInputFormat::separate;
    settings.outputFolder = QStringLiteral("/out");
    const QStringList files{"/in/1.jpg", "/in/2.jpg", "/in/3.jpg", "/in/4.jpg", "/in/5.jpg"};
    const std::vector<BatchJob> jobs = makeBatchJobs(files, settings);
    ASSERT_EQ(jobs.size(), 3u);
    EXPECT_EQ(jobs[0].inputs, (QStringList{"/in/1.jpg", "/in/2.jpg"}));
    EXPECT_EQ(jobs[1].inputs, (QStringList{"/in/3.jpg", "/in/4.jpg"}));
    EXPECT_EQ(jobs[2].inputs, QStringList{"/in/5.jpg"});
    EXPECT_EQ(jobs[0].outputs, QStringList{"/out/1.jpg"}); // named after the left file
    EXPECT_EQ(jobs[1].displayName(), QStringLiteral("3.jpg + 4.jpg"));

    settings.inputFormat = BatchInputFormat::mpo;
    EXPECT_EQ(makeBatchJobs(files, settings).size(), 5u);
}

TEST(BatchJobList, OutputNames)
{
    struct Case {
        BatchOutputFormat output;
        BatchFileFormat file;
        const char *input;
        QStringList expected;
    };
    const Case cases[] = {
        {BatchOutputFormat::sbs, BatchFileFormat::jpg, "name.jpg", {"name.jpg"}},
        {BatchOutputFormat::anaglyphDubois, BatchFileFormat::tiff, "name.MPO", {"name.tiff"}},
        {BatchOutputFormat::separate, BatchFileFormat::png, "name.jpg", {"name_L.png", "name_R.png"}},
        {BatchOutputFormat::spatial, BatchFileFormat::jpg, "name.jpg", {"name.heic"}},
        {BatchOutputFormat::imageBorder, BatchFileFormat::heic, "trip.2024.jpeg", {"trip.2024.heic"}},
    };
    for (const Case &c : cases) {
        BatchSettings settings;
        settings.outputFormat = c.output;
        settings.fileFormat = c.file;
        EXPECT_EQ(batchOutputNames(QString::fromLatin1(c.input), settings), c.expected) << c.input;
    }
}

TEST(BatchJobList, ExistingOutputsAndTheQuestion)
{
    QTemporaryDir dir;
    BatchSettings settings;
    settings.outputFolder = dir.path();
    settings.outputFormat = BatchOutputFormat::separate;
    QStringList inputs;
    for (int i = 1; i <= 4; ++i)
        inputs << QStringLiteral("/in/p%1.jpg").arg(i);
    // Both names of a separate output count; seven of the eight exist.
    for (const char *name : {"p1_L.jpg", "p1_R.jpg", "p2_L.jpg", "p2_R.jpg", "p3_R.jpg", "p4_L.jpg", "p4_R.jpg"})
        touch(QDir(dir.path()), QString::fromLatin1(name));
    const QStringList existing = existingOutputNames(makeBatchJobs(inputs, settings));
    ASSERT_EQ(existing.size(), 7);
    EXPECT_EQ(overwriteQuestion(existing), QStringLiteral("7 file(s) already exist:\np1_L.jpg\np1_R.jpg\np2_L.jpg\n"
                                                          "p2_R.jpg\np3_R.jpg\n… and 2 more files\n\nOverwrite?"));
    EXPECT_EQ(overwriteQuestion({QStringLiteral("%2.jpg")}), QStringLiteral("1 file(s) already exist:\n%2.jpg\n\nOverwrite?"));
}

} // namespace
