// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// `vorel-cli convert`: one file or left/right pair through the job pipeline, a batch of one
// job written to the path given.
#pragma once

#include <QString>
#include <QStringList>

#include "batch/batchjoblist.h"

namespace Vorel {

struct PipelineOptions;

// The job for INPUT [RIGHT] OUTPUT; throws UsageError for a wrong count of paths.
BatchJob convertJob(const PipelineOptions &options, const BatchSettings &settings);

// The exit status; throws UsageError.
int runConvert(const QStringList &arguments);

QString convertUsage();

} // namespace Vorel
