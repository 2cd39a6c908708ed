// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/batchprocessor.h"

#include <algorithm>

#include <QFileInfo>

namespace Vorel {

namespace {

bool allOutputsExist(const BatchJob &job)
{
    return !job.outputs.isEmpty() &&
           std::all_of(job.outputs.begin(), job.outputs.end(), [](const QString &path) { return QFileInfo::exists(path); });
}

} // namespace

BatchProcessor::BatchProcessor(QObject *parent) : QObject(parent)
{
    qRegisterMetaType<BatchJob>();
    qRegisterMetaType<JobResult>();
}

BatchProcessor::~BatchProcessor()
{
    if (worker) {
        cancel();
        worker->wait();
    }
}

void BatchProcessor::cancel()
{
    const std::lock_guard lock(cancelLock);
    _isCancelled = true;
}

bool BatchProcessor::isCancelled() const
{
    const std::lock_guard lock(cancelLock);
    return _isCancelled;
}

bool BatchProcessor::isRunning() const { return worker && worker->isRunning(); }

std::vector<JobResult> BatchProcessor::process(const BatchSettings &settings, const std::vector<BatchJob> &jobs,
                                               const BatchRunOptions &options, const BatchHooks &hooks)
{
    std::vector<JobResult> results;
    results.reserve(jobs.size());
    const CancelCheck cancelled = [this] { return isCancelled(); };
    for (size_t i = 0; i < jobs.size() && !cancelled(); ++i) {
        const BatchJob &job = jobs[i];
        if (hooks.jobStarted)
            hooks.jobStarted(i, job);
        JobResult result;
        if (!job.skipReason.isEmpty()) {
            result.status = JobStatus::skippedUnpaired;
            result.error = job.skipReason;
        } else if (options.skipExisting && allOutputsExist(job)) {
            result.status = JobStatus::skippedExisting;
        } else {
            const ImageBorderSettings border =
                settings.outputFormat == BatchOutputFormat::imageBorder && options.borderSettings
                    ? options.borderSettings()
                    : ImageBorderSettings();
            result = runJobPipeline(settings, job, border, cancelled);
        }
        if (hooks.jobFinished)
            hooks.jobFinished(i, job, result);
        results.push_back(std::move(result));
    }
    return results;
}

bool BatchProcessor::start(const BatchSettings &settings, std::vector<BatchJob> jobs, BatchRunOptions options)
{
    if (isRunning())
        return false;
    {
        const std::lock_guard lock(cancelLock);
        _isCancelled = false;
    }
    worker.reset(QThread::create([this, settings, jobs = std::move(jobs), options = std::move(options)] {
        const int total = int(jobs.size());
        BatchHooks hooks;
        hooks.jobStarted = [&](size_t index, const BatchJob &job) {
            emit jobStarted(int(index), total, job.displayName());
        };
        hooks.jobFinished = [&](size_t, const BatchJob &job, const JobResult &result) { emit jobFinished(job, result); };
        const std::vector<JobResult> results = process(settings, jobs, options, hooks);
        const bool aborted = isCancelled() || (!results.empty() && results.back().status == JobStatus::cancelled);
        emit runFinished(aborted);
    }));
    worker->start();
    return true;
}

} // namespace Vorel
