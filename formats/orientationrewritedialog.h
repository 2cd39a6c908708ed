// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Runs one orientation rewrite on a worker thread, shows "Processing n of N files" while it
// runs and then the summary as selectable, scrollable text.
#pragma once

#include <QDialog>
#include <QFutureWatcher>
#include <QList>
#include <QStringList>

#include "formats/orientationrewriterun.h"

class QDialogButtonBox;
class QLabel;
class QPlainTextEdit;

namespace Vorel {

class OrientationRewriteDialog : public QDialog {
    Q_OBJECT
public:
    OrientationRewriteDialog(const QStringList &paths, int orientation, QWidget *parent = nullptr);

    // Starts the run; the dialog cannot be closed until it has finished.
    void start();
    bool isRunning() const { return watcher.isRunning(); }
    QString progress() const;
    QString summary() const;

    // Closing is refused while the worker runs.
    void reject() override;

signals:
    void rewriteFinished(const QList<ProcessResult> &results);

private:
    void showSummary();

    QStringList files;
    int orientationValue;
    QLabel *progressLabel;
    QLabel *statusLabel;
    QPlainTextEdit *summaryView;
    QDialogButtonBox *buttons;
    QFutureWatcher<QList<ProcessResult>> watcher;
};

} // namespace Vorel
