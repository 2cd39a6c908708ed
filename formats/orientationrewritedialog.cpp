// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/orientationrewritedialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPromise>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtConcurrent>

namespace Vorel {

OrientationRewriteDialog::OrientationRewriteDialog(const QStringList &paths, int orientation, QWidget *parent)
    : QDialog(parent)
    , files(paths)
    , orientationValue(orientation)
    , progressLabel(new QLabel(progressText(0, int(paths.size())), this))
    , statusLabel(new QLabel(tr("Writing..."), this))
    , summaryView(new QPlainTextEdit(this))
    , buttons(new QDialogButtonBox(QDialogButtonBox::Close, this))
{
    setWindowTitle(tr("Exif Orientation Rewrite"));
    summaryView->setReadOnly(true);
    summaryView->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    summaryView->setLineWrapMode(QPlainTextEdit::NoWrap);
    summaryView->hide();
    buttons->button(QDialogButtonBox::Close)->setEnabled(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &OrientationRewriteDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(progressLabel);
    layout->addWidget(statusLabel);
    layout->addWidget(summaryView, 1);
    layout->addWidget(buttons);
    resize(520, 360);

    connect(&watcher, &QFutureWatcherBase::progressValueChanged, this,
        [this](int filesDone) { progressLabel->setText(progressText(filesDone, int(files.size()))); });
    connect(&watcher, &QFutureWatcherBase::finished, this, &OrientationRewriteDialog::showSummary);
}

void OrientationRewriteDialog::start()
{
    // The worker gets its own copies of the paths and the value and touches no widget.
    watcher.setFuture(QtConcurrent::run(
        [](QPromise<QList<ProcessResult>> &promise, const QStringList &paths, int orientation) {
            promise.setProgressRange(0, int(paths.size()));
            promise.addResult(rewriteOrientations(
                paths, orientation, [&promise](int filesDone) { promise.setProgressValue(filesDone); }));
        },
        files, orientationValue));
}

QString OrientationRewriteDialog::progress() const
{
    return progressLabel->text();
}

QString OrientationRewriteDialog::summary() const
{
    return summaryView->toPlainText();
}

void OrientationRewriteDialog::reject()
{
    if (!watcher.isRunning())
        QDialog::reject();
}

void OrientationRewriteDialog::showSummary()
{
    const QList<ProcessResult> results = watcher.result();
    progressLabel->setText(progressText(int(results.size()), int(files.size())));
    statusLabel->hide();
    summaryView->setPlainText(summaryText(results));
    summaryView->show();
    buttons->button(QDialogButtonBox::Close)->setEnabled(true);
    emit rewriteFinished(results);
}

} // namespace Vorel
