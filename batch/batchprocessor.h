// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the jobs of a batch one after another through the job pipeline, each in a processor of
// its own, either on the calling thread (vorel-cli) or on one worker thread (the window). The
// cancel flag is the only state shared between threads and is read and set under its lock.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include <QObject>
#include <QThread>

#include "batch/batchjoblist.h"
#include "batch/batchsettings.h"
#include "batch/jobpipeline.h"
#include "border/imagebordersettings.h"

namespace Vorel {

struct BatchRunOptions {
    // A job whose outputs all exist is not run again (an interrupted run resumes).
    bool skipExisting = false;
    // The border settings of each `imageBorder` job, asked for afresh per job.
    std::function<ImageBorderSettings()> borderSettings;
};

struct BatchHooks {
    std::function<void(size_t index, const BatchJob &job)> jobStarted;
    std::function<void(size_t index, const BatchJob &job, const JobResult &result)> jobFinished;
};

class BatchProcessor : public QObject {
    Q_OBJECT
public:
    explicit BatchProcessor(QObject *parent = nullptr);
    ~BatchProcessor() override; // waits for a running worker after cancelling it

    // Runs the jobs in order on this thread. Stops before the next job (and between the
    // stages of the current one) once cancelled; the results cover the jobs that began.
    std::vector<JobResult> process(const BatchSettings &settings, const std::vector<BatchJob> &jobs,
                                   const BatchRunOptions &options, const BatchHooks &hooks = {});

    // The same on one worker thread; progress arrives through the signals below. One run at a
    // time: false while a run is still going.
    bool start(const BatchSettings &settings, std::vector<BatchJob> jobs, BatchRunOptions options);
    bool isRunning() const;

    void cancel();
    bool isCancelled() const;

signals:
    void jobStarted(int done, int total, const QString &fileName);
    void jobFinished(const Vorel::BatchJob &job, const Vorel::JobResult &result);
    void runFinished(bool aborted);

private:
    mutable std::mutex cancelLock;
    bool _isCancelled = false;
    std::unique_ptr<QThread> worker;
};

} // namespace Vorel

Q_DECLARE_METATYPE(Vorel::BatchJob)
Q_DECLARE_METATYPE(Vorel::JobResult)
