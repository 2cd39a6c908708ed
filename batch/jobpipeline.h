// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The one conversion chain behind the batch window, `vorel-cli batch` and `vorel-cli convert`:
// open the job's pair in a processor of its own, swap, align automatically, match colours,
// adjust by hand, crop, resize, compose the chosen output and write its file(s).
#pragma once

#include <functional>

#include <QString>
#include <QStringList>

#include "batch/batchjoblist.h"
#include "batch/batchsettings.h"
#include "border/imagebordersettings.h"

namespace Vorel {

// `skippedUnpaired`: a file that found no partner when pairing by name; the error says why.
enum class JobStatus { ok, failed, skippedExisting, cancelled, skippedUnpaired };

struct JobResult {
    JobStatus status = JobStatus::ok;
    QString error;        // why the job failed: the reader's or writer's own text
    QStringList warnings; // what went differently from the recipe without failing the job
    double seconds = 0;
};

// Asked before each stage; true ends the job before the next stage starts. Once the output
// stage has begun the job's files are all written, so no job leaves half its outputs.
using CancelCheck = std::function<bool()>;

// Runs one job. `border` frames the `imageBorder` output. Never throws: a failure is a
// result with its text, and no output file is left half written.
JobResult runJobPipeline(const BatchSettings &settings, const BatchJob &job, const ImageBorderSettings &border,
                         const CancelCheck &isCancelled);

} // namespace Vorel
