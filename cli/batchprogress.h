// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Progress of `vorel-cli batch` on stderr: a one-line bar redrawn in place on a terminal, one
// plain line per job otherwise, and at the end a summary with every failed job and its reason.
#pragma once

#include <utility>
#include <vector>

#include <QElapsedTimer>
#include <QString>

#include "batch/batchjoblist.h"
#include "batch/jobpipeline.h"

namespace Vorel {

class BatchProgress {
public:
    BatchProgress(size_t total, bool terminal);

    void jobStarted(size_t index, const BatchJob &job);
    void jobFinished(size_t index, const BatchJob &job, const JobResult &result);
    // The counts, then the failed jobs with their reasons; `stopped` after a stop signal.
    void finish(bool stopped);

private:
    void drawBar(size_t index, const QString &name) const;

    QElapsedTimer clock;
    size_t total;
    bool terminal;
    size_t done = 0, written = 0, skipped = 0;
    size_t worked = 0;       // jobs that ran, for the estimate
    double workSeconds = 0;  // their time together
    std::vector<std::pair<QString, QString>> failures; // name, reason
    std::vector<std::pair<QString, QString>> unpaired; // name, reason
};

} // namespace Vorel
