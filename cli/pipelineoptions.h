// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The options `vorel-cli convert` and `vorel-cli batch` share: one table that sets the batch
// settings one to one, the run options of the batch, and the usage text written from it.
#pragma once

#include <functional>
#include <vector>

#include <QString>
#include <QStringList>

#include "batch/batchsettings.h"

namespace Vorel {

// Thrown for anything the user typed wrong; the text is shown above the usage.
struct UsageError {
    QString message;
};

enum class CliCommand { convert, batch };

// This process takes the jobs whose position is `index` modulo `count`.
struct Shard {
    int index = 0;
    int count = 1;
};

struct PipelineOptions {
    // The settings options in the order given, applied over the settings a command starts from.
    std::vector<std::function<void(BatchSettings &)>> settingEdits;
    bool inputGiven = false; // --input: open strictly as said instead of as the window does
    bool overwrite = false;  // --yes
    bool stored = false;     // batch: start from the settings the dialog saved last
    Shard shard;
    bool skipExisting = false;
    bool dryRun = false;
    QString logPath;
    QStringList positional;

    BatchSettings settings(BatchSettings base) const;
};

PipelineOptions parsePipelineOptions(const QStringList &arguments, CliCommand command);

// One line per option the command takes, with its help.
QString optionsHelp(CliCommand command);

} // namespace Vorel
