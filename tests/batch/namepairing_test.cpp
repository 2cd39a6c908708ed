// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Pairing left and right files by their names, and the jobs a folder paired so gives.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "batch/batchjoblist.h"
#include "batch/namepairing.h"

using namespace Vorel;

namespace {

// "left+right>name" for a pair, "file!" for a file left alone.
QStringList described(const std::vector<NamePairing> &pairings)
{
    QStringList out;
    for (const NamePairing &p : pairings)
        out << (p.unpaired.isEmpty() ? p.left.section('/', -1) + '+' + p.right.section('/', -1) + '>' + p.name
                                     : p.unpaired.section('/', -1) + '!');
    return out;
}

QStringList under(const QString &folder, const QStringList &names)
{
    QStringList paths;
    for (const QString &name : names)
        paths << folder + '/' + name;
    return paths;
}

TEST(NamePairing, PairsByMarkerInAnyCaseAndReportsTheRest)
{
    const struct {
        const char *what;
        QStringList files;
        QStringList expected;
    } rows[] = {
        {"underscore markers, any case, any extension",
         {"a_L.jpg", "a_r.PNG", "b_l.jpg", "b_R.jpg"},
         {"a_L.jpg+a_r.PNG>a", "b_l.jpg+b_R.jpg>b"}},
        {"right before left keeps the first one's place",
         {"c-RIGHT.jpg", "c-left.jpg", "d.jpg"},
         {"c-left.jpg+c-RIGHT.jpg>c", "d.jpg!"}},
        {"the two conventions never mix", {"e_L.jpg", "e-right.jpg"}, {"e_L.jpg!", "e-right.jpg!"}},
        {"a second left waits alone", {"f_L.jpg", "f_L.png", "f_R.jpg"}, {"f_L.jpg+f_R.jpg>f", "f_L.png!"}},
        {"a marker alone is no name", {"_L.jpg", "x_R.jpg"}, {"_L.jpg!", "x_R.jpg!"}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(described(pairByName(under("/in", row.files), {}, {})), row.expected) << row.what;

    const std::vector<NamePairing> folders =
        pairByName({}, under("/in/l", {"p1.jpg", "p2.jpg"}), under("/in/r", {"p2.jpg", "p3.jpg"}));
    EXPECT_EQ(described(folders), (QStringList{"p1.jpg!", "p2.jpg+p2.jpg>p2", "p3.jpg!"}));
    EXPECT_EQ(folders[0].reason, QStringLiteral("No file of the same name in the r folder"));
    EXPECT_EQ(pairByName(under("/in", {"g_L.jpg"}), {}, {})[0].reason, QStringLiteral("No right image g_R for g_L.jpg"));
}

TEST(NamePairing, FolderJobsNameTheirOutputsAfterThePair)
{
    QTemporaryDir dir;
    QDir(dir.path()).mkpath(QStringLiteral("L"));
    QDir(dir.path()).mkpath(QStringLiteral("r"));
    for (const char *name : {"a_L.jpg", "a_R.jpg", "lonely.jpg", "L/b.png", "r/b.png"})
        QFile(dir.filePath(QLatin1String(name))).open(QIODevice::WriteOnly);
    BatchSettings settings;
    settings.inputFolder = dir.path();
    settings.outputFolder = dir.filePath(QStringLiteral("out"));
    settings.inputFormat = BatchInputFormat::separate;
    settings.outputFormat = BatchOutputFormat::mpo;
    settings.pairByName = true;
    const std::vector<BatchJob> jobs = listBatchJobs(settings);
    ASSERT_EQ(jobs.size(), 3u);
    EXPECT_EQ(jobs[0].outputs, QStringList{settings.outputFolder + QStringLiteral("/a.mpo")});
    EXPECT_FALSE(jobs[1].skipReason.isEmpty());
    EXPECT_EQ(jobs[2].inputs, (QStringList{dir.filePath(QStringLiteral("L/b.png")), dir.filePath(QStringLiteral("r/b.png"))}));

    settings.pairByName = false; // by position: consecutive files, sub-folders unseen
    EXPECT_EQ(listBatchJobs(settings).size(), 2u);
}

} // namespace
