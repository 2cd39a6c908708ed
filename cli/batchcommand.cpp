// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batchcommand.h"

#include <algorithm>
#include <iostream>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <unistd.h>

#include "batch/batchprocessor.h"
#include "cli/batchprogress.h"
#include "cli/joblog.h"
#include "cli/pipelineoptions.h"
#include "cli/stopsignals.h"
#include "core/preferences.h"
#include "cli/clitext.h"

namespace Vorel {

namespace {

constexpr int exitFailure = 1;
constexpr int exitStopped = 130; // as a shell reports a process ended by Ctrl-C

void printError(const QString &text) { std::cerr << "vorel-cli: " << text.toStdString() << '\n'; }

// One line per job on stdout: its inputs, then its outputs, each marked when it exists.
void printJobs(const std::vector<BatchJob> &jobs)
{
    for (const BatchJob &job : jobs) {
        QStringList outputs;
        for (const QString &output : job.outputs)
            outputs << QFileInfo(output).fileName() +
                    (QFileInfo::exists(output) ? CliText::tr(" (exists)") : QString());
        std::cout << job.displayName().toStdString() << " -> " << outputs.join(QStringLiteral(", ")).toStdString()
                  << '\n';
    }
}

// The window's overwrite question, with its question replaced by what to pass instead.
QString existingOutputsText(const QStringList &existing)
{
    QString text = overwriteQuestion(existing);
    text.truncate(text.lastIndexOf(QLatin1Char('\n')) + 1);
    return text + CliText::tr("Pass --yes to overwrite them or --skip-existing to keep them.");
}

BatchSettings batchSettings(const PipelineOptions &options)
{
    if (options.positional.size() != 2)
        throw UsageError{CliText::tr("expected INPUT_DIR OUTPUT_DIR")};
    BatchSettings settings = options.settings(options.stored ? BatchSettings::load(Preferences()) : BatchSettings());
    settings.inputFolder = QDir(options.positional[0]).absolutePath();
    settings.outputFolder = QDir(options.positional[1]).absolutePath();
    if (const std::optional<QString> problem = settings.validate())
        throw UsageError{*problem};
    return settings;
}

// Runs the jobs in this process; the exit status.
int process(const BatchSettings &settings, const std::vector<BatchJob> &jobs, const PipelineOptions &options)
{
    JobLog log;
    if (!log.open(options.logPath)) {
        printError(CliText::tr("cannot open the log %1").arg(options.logPath));
        return exitFailure;
    }
    BatchProcessor processor;
    BatchProgress progress(jobs.size(), isatty(STDERR_FILENO));
    BatchHooks hooks;
    hooks.jobStarted = [&](size_t index, const BatchJob &job) { progress.jobStarted(index, job); };
    hooks.jobFinished = [&](size_t index, const BatchJob &job, const JobResult &result) {
        log.write(job, result);
        progress.jobFinished(index, job, result);
    };
    const BatchRunOptions runOptions{options.skipExisting, [] { return ImageBorderSettings::load(Preferences()); }};

    std::vector<JobResult> results;
    bool stopped = false;
    {
        const StopSignalWatcher watcher([&processor] { processor.cancel(); });
        results = processor.process(settings, jobs, runOptions, hooks);
        stopped = watcher.signalled();
    }
    progress.finish(stopped);
    if (stopped)
        return exitStopped;
    const bool anyFailed =
        std::any_of(results.begin(), results.end(), [](const JobResult &r) { return r.status == JobStatus::failed; });
    return anyFailed ? exitFailure : 0;
}

} // namespace

std::vector<BatchJob> shardJobs(const std::vector<BatchJob> &jobs, const Shard &shard)
{
    std::vector<BatchJob> mine;
    for (size_t i = size_t(shard.index); i < jobs.size(); i += size_t(shard.count))
        mine.push_back(jobs[i]);
    return mine;
}

int runBatch(const QStringList &arguments)
{
    const PipelineOptions options = parsePipelineOptions(arguments, CliCommand::batch);
    const BatchSettings settings = batchSettings(options);
    const std::vector<BatchJob> allJobs = listBatchJobs(settings);
    if (allJobs.empty()) {
        printError(CliText::tr("No target image files found in the input folder."));
        return exitFailure;
    }
    const std::vector<BatchJob> jobs = shardJobs(allJobs, options.shard);
    if (options.dryRun) {
        printJobs(jobs);
        return 0;
    }
    if (!options.overwrite && !options.skipExisting) {
        if (const QStringList existing = existingOutputNames(jobs); !existing.isEmpty()) {
            std::cerr << existingOutputsText(existing).toStdString() << '\n';
            return exitFailure;
        }
    }
    if (!QDir().mkpath(settings.outputFolder)) {
        printError(CliText::tr("cannot create the output folder %1").arg(settings.outputFolder));
        return exitFailure;
    }
    return process(settings, jobs, options);
}

QString batchUsage()
{
    return CliText::tr("usage: vorel-cli batch [options] INPUT_DIR OUTPUT_DIR\n") + optionsHelp(CliCommand::batch) +
        CliText::tr("Jobs: the folder's jpg, jpeg, png, tif(f), heic, mpo, jps and pns files in natural name order,\n"
                    "paired one after another for --input separate, or by name with --pair-by-name (a_L/a_R,\n"
                    "a-left/a-right in any case, and same-named files in the l/ and r/ sub-folders; a file\n"
                    "without a partner is skipped with the reason). Outputs are named after the (first) input,\n"
                    "or after the name both files of a named pair share.\n"
                    "Without --stored: --fov 63.4 --disparity-adj 200 --stereo-base 0.01924.\n"
                    "Exit status: 0 every job written or skipped as existing, 1 a job failed, 2 usage error,\n"
                    "130 stopped by SIGINT or SIGTERM (between stages; no partial file stays).\n");
}

} // namespace Vorel
