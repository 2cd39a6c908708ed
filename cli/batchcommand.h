// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// `vorel-cli batch`: the batch processor over a folder, one job after another in this
// process, with shards, resuming, a JSON log and progress for job runners and terminals.
#pragma once

#include <vector>

#include <QString>
#include <QStringList>

#include "batch/batchjoblist.h"

namespace Vorel {

struct Shard;

// The jobs at positions index, index + count, index + 2 count, ... of the full list.
std::vector<BatchJob> shardJobs(const std::vector<BatchJob> &jobs, const Shard &shard);

// The exit status: 0 every job written or skipped as existing, 1 a job failed (or nothing to
// do), 130 stopped by SIGINT or SIGTERM. Throws UsageError. Expects SIGINT and SIGTERM
// blocked in every thread (blockStopSignals).
int runBatch(const QStringList &arguments);

QString batchUsage();

} // namespace Vorel
