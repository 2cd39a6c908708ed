// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The `--log` file of `vorel-cli batch`: one JSON object per finished job (JSON Lines),
// appended and flushed as the job ends, so that a log shared by shards stays line-whole.
#pragma once

#include <QFile>
#include <QString>

#include "batch/batchjoblist.h"
#include "batch/jobpipeline.h"

namespace Vorel {

// "ok", "failed", "skipped-existing" or "cancelled".
QString jobStatusName(JobStatus status);

class JobLog {
public:
    // Without a path the log writes nothing. False when the file cannot be opened.
    bool open(const QString &path);
    void write(const BatchJob &job, const JobResult &result);

private:
    QFile file;
};

} // namespace Vorel
