// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/batchprogressviewcontroller.h"

#include <algorithm>

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace Vorel {

namespace {

constexpr int elapsedRefreshMs = 1000;

} // namespace

BatchProgressViewController::BatchProgressViewController(QWidget *parent) : QWidget(parent, Qt::Window)
{
    setWindowTitle(tr("Batch Processing"));
    confirmAbort = [this] {
        QMessageBox question(QMessageBox::Question, tr("Batch Processing"), tr("Abort batch processing?"),
                             QMessageBox::NoButton, this);
        question.setInformativeText(tr("Files already processed will be kept in the output folder."));
        QPushButton *abort = question.addButton(tr("Abort"), QMessageBox::DestructiveRole);
        question.addButton(tr("Continue"), QMessageBox::RejectRole);
        question.exec();
        return question.clickedButton() == abort;
    };

    auto *layout = new QVBoxLayout(this);
    headerLabel = new QLabel;
    QFont bold = headerLabel->font();
    bold.setBold(true);
    headerLabel->setFont(bold);
    fileNameLabel = new QLabel;
    fileNameLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    progressBar = new QProgressBar;
    progressBar->setTextVisible(false);
    countLabel = new QLabel;
    elapsedLabel = new QLabel;
    auto *counts = new QHBoxLayout;
    counts->addWidget(countLabel);
    counts->addStretch();
    counts->addWidget(elapsedLabel);
    skippedLabel = new QLabel;
    skippedList = new QListWidget;
    skippedLabel->hide();
    skippedList->hide();
    abortButton = new QPushButton(tr("Abort"));
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(abortButton);

    layout->addWidget(headerLabel);
    layout->addWidget(fileNameLabel);
    layout->addWidget(progressBar);
    layout->addLayout(counts);
    layout->addWidget(skippedLabel);
    layout->addWidget(skippedList, 1);
    layout->addLayout(buttons);
    setMinimumWidth(460);

    elapsedTimer = new QTimer(this);
    elapsedTimer->setInterval(elapsedRefreshMs);
    connect(elapsedTimer, &QTimer::timeout, this, &BatchProgressViewController::showElapsed);
    connect(abortButton, &QPushButton::clicked, this, &BatchProgressViewController::abortClicked);
}

void BatchProgressViewController::start(const QString &inputFolderName, int jobCount)
{
    totalCount = jobCount;
    doneCount = 0;
    headerLabel->setText(tr("Input: %1  (%2 files)").arg(inputFolderName).arg(jobCount));
    countLabel->setText(tr("%1 / %2 files").arg(0).arg(jobCount));
    fileNameLabel->setText(tr("Starting…"));
    progressBar->setRange(0, std::max(jobCount, 1));
    progressBar->setValue(0);
    startDate.start();
    showElapsed();
    elapsedTimer->start();
}

void BatchProgressViewController::update(int done, int total, const QString &fileName)
{
    doneCount = done;
    totalCount = total;
    fileNameLabel->setText(fileName);
    countLabel->setText(tr("%1 / %2 files").arg(done).arg(total));
    progressBar->setRange(0, std::max(total, 1));
    progressBar->setValue(done);
}

void BatchProgressViewController::addSkipped(const QString &fileName, const QString &reason)
{
    skippedList->addItem(reason.isEmpty() ? fileName : tr("%1: %2").arg(fileName, reason));
}

void BatchProgressViewController::finish(const QString &message)
{
    isFinished = true;
    elapsedTimer->stop();
    showElapsed();
    progressBar->setValue(progressBar->maximum());
    countLabel->setText(tr("%1 / %2 files").arg(doneCount).arg(totalCount));
    fileNameLabel->setText(message);
    skippedLabel->setText(tr("Skipped: %1").arg(skippedList->count()));
    skippedLabel->show();
    skippedList->show();
    abortButton->setText(tr("Close"));
    abortButton->setEnabled(true);
}

void BatchProgressViewController::abortClicked()
{
    if (isFinished) {
        close();
        return;
    }
    if (!confirmAbort() || isFinished) // the run may have ended while the question was open
        return;
    abortButton->setEnabled(false); // until the run stops between two stages
    if (onAbort)
        onAbort();
}

void BatchProgressViewController::closeEvent(QCloseEvent *event)
{
    if (isFinished) {
        event->accept();
        return;
    }
    event->ignore();
    if (abortButton->isEnabled())
        abortClicked();
}

void BatchProgressViewController::showElapsed()
{
    const qint64 seconds = startDate.isValid() ? startDate.elapsed() / 1000 : 0;
    elapsedLabel->setText(tr("Elapsed: %1").arg(elapsedText(seconds)));
}

QString BatchProgressViewController::elapsedText(qint64 seconds)
{
    const qint64 h = seconds / 3600, m = seconds / 60 % 60, s = seconds % 60;
    return h > 0 ? QString::asprintf("%lld:%02lld:%02lld", h, m, s) : QString::asprintf("%lld:%02lld", m, s);
}

} // namespace Vorel
