// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/batchrunwindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>

#include "batch/batchjoblist.h"
#include "batch/batchprocessor.h"
#include "batch/batchprogressviewcontroller.h"
#include "batch/batchsettings.h"
#include "border/imagebordersettings.h"
#include "core/preferences.h"
#include "batch/batchtext.h"

namespace Vorel {

bool askOverwrite(QWidget *parent, const QStringList &existingNames)
{
    QMessageBox question(QMessageBox::Warning, BatchText::tr("Batch Processing"), overwriteQuestion(existingNames),
                         QMessageBox::NoButton, parent);
    question.setInformativeText(BatchText::tr("Existing files will be overwritten."));
    QPushButton *overwrite = question.addButton(BatchText::tr("Overwrite"), QMessageBox::AcceptRole);
    QPushButton *cancel = question.addButton(BatchText::tr("Cancel"), QMessageBox::RejectRole);
    question.setDefaultButton(overwrite);
    question.setEscapeButton(cancel);
    question.exec();
    return question.clickedButton() == overwrite;
}

BatchProgressViewController *runBatch(const BatchSettings &settings, const Preferences &preferences,
                                      const BatchRunPrompts &prompts, QWidget *parent)
{
    std::vector<BatchJob> jobs = listBatchJobs(settings);
    if (jobs.empty()) {
        const QString message = BatchText::tr("No target image files found in the input folder.");
        prompts.alert ? prompts.alert(message)
                      : void(QMessageBox::warning(parent, BatchText::tr("Batch Processing"), message));
        return nullptr;
    }
    if (const QStringList existing = existingOutputNames(jobs); !existing.isEmpty()) {
        const bool overwrite =
            prompts.confirmOverwrite ? prompts.confirmOverwrite(existing) : askOverwrite(parent, existing);
        if (!overwrite)
            return nullptr;
    }

    auto *window = new BatchProgressViewController(parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    // A child of the window: released with it, on the main thread, after the run has finished
    // (the window cannot be closed before); its destructor waits for the worker.
    auto *processor = new BatchProcessor(window);
    const int total = int(jobs.size());
    // The signals come from the worker thread; queued, they are handled here on the main thread.
    QObject::connect(processor, &BatchProcessor::jobStarted, window, &BatchProgressViewController::update,
                     Qt::QueuedConnection);
    QObject::connect(
        processor, &BatchProcessor::jobFinished, window,
        [window, total, done = 0](const BatchJob &job, const JobResult &result) mutable {
            if (result.status == JobStatus::cancelled)
                return; // stopped between two stages: neither done nor skipped
            window->update(++done, total, job.displayName());
            if (result.status == JobStatus::failed || result.status == JobStatus::skippedUnpaired)
                window->addSkipped(job.displayName(), result.error);
        },
        Qt::QueuedConnection);
    QObject::connect(
        processor, &BatchProcessor::runFinished, window,
        [window](bool aborted) {
            window->finish(aborted ? BatchText::tr("Processing aborted.")
                                   : BatchText::tr("All files processed successfully."));
        },
        Qt::QueuedConnection);
    window->onAbort = [processor] { processor->cancel(); };

    BatchRunOptions options;
    // The frame of each image-border job is read afresh, on the worker. The window's own
    // Preferences must not be used there (a QSettings object is not thread-safe), but QSettings
    // is reentrant: a separate object on the same file, made and dropped by the worker, is safe
    // and sees the window's latest changes at once (QSettings objects of one process share the
    // file's cache), so the batch frames as the window's "Image with Border" shows.
    options.borderSettings = [file = preferences.fileName()] {
        const Preferences store(file);
        return ImageBorderSettings::load(store);
    };
    window->start(QDir(settings.inputFolder).dirName(), total);
    window->show();
    processor->start(settings, std::move(jobs), std::move(options));
    return window;
}

} // namespace Vorel
