// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What a batch run will do before it does anything: the input files in their order, the jobs
// they form, the files each job writes, and which of those already exist.
#pragma once

#include <vector>

#include <QString>
#include <QStringList>

#include "batch/batchsettings.h"

namespace Vorel {

// One unit of work: one input file (two for a separate left/right pair) and the files it
// writes (two for separate left/right output). Paths are absolute.
struct BatchJob {
    QStringList inputs;
    QStringList outputs;
    // Open the input as the main window opens a file (kind by extension, falling back to a
    // side-by-side picture) instead of strictly as the input format says.
    bool openAsWindow = false;
    // Why the job is not run: a file that found no partner when pairing by name.
    QString skipReason;

    // The name shown for the job: the input file names, joined by " + " for a pair.
    QString displayName() const;
};

// Consecutive files pair up for `separate` input (an odd last file is a job of its own, which
// fails when run); every other input format makes one job per file.
std::vector<BatchJob> makeBatchJobs(const QStringList &files, const BatchSettings &settings);

// The jobs of the input folder: its stereo files in natural order, paired by position, or by
// name when `separate` input pairs by name (then the files of its l/ and r/ sub-folders too).
// Empty when the folder holds no stereo file.
std::vector<BatchJob> listBatchJobs(const BatchSettings &settings);

// The file names a job for `inputFile` writes, in the output folder.
QStringList batchOutputNames(const QString &inputFile, const BatchSettings &settings);

// The output file names, in job order, that already exist.
QStringList existingOutputNames(const std::vector<BatchJob> &jobs);

// The overwrite question for these existing names: the count, the first five names and,
// beyond five, "… and N more files".
QString overwriteQuestion(const QStringList &existingNames);

} // namespace Vorel
