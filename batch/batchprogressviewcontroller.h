// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The progress window of a batch run: the current file, "n / N files", a bar, the elapsed time
// and an abort button that turns into "Close" at the end, with the skipped files listed below.
#pragma once

#include <functional>

#include <QElapsedTimer>
#include <QWidget>

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QTimer;

namespace Vorel {

class BatchProgressViewController : public QWidget {
    Q_OBJECT
public:
    explicit BatchProgressViewController(QWidget *parent = nullptr);

    // The run begins: the input folder's name and the number of jobs.
    void start(const QString &inputFolderName, int jobCount);
    // `done` jobs of `total` are finished; `fileName` is the one in hand.
    void update(int done, int total, const QString &fileName);
    // A job that was skipped, with the reason (listed after the run).
    void addSkipped(const QString &fileName, const QString &reason);
    // The run is over: "All files processed successfully." or "Processing aborted.".
    void finish(const QString &message);

    // Called when the user confirms the abort question.
    std::function<void()> onAbort;
    // Asks "Abort batch processing?"; replaceable so tests can answer it.
    std::function<bool()> confirmAbort;

    // "m:ss", or "h:mm:ss" from an hour on.
    static QString elapsedText(qint64 seconds);

    QLabel *headerLabel;
    QLabel *fileNameLabel; // the file in hand, then the closing message
    QProgressBar *progressBar;
    QLabel *countLabel;
    QLabel *elapsedLabel;
    QPushButton *abortButton; // "Close" once finished
    QLabel *skippedLabel;     // "Skipped: N", shown once finished
    QListWidget *skippedList; // "name: reason" per skipped job
    QTimer *elapsedTimer;     // refreshes elapsedLabel each second while the run lasts
    QElapsedTimer startDate;  // monotonic, so a clock change cannot make the time jump
    bool isFinished = false;

protected:
    // Closing while the run lasts is an abort request; the window stays until the run ends.
    void closeEvent(QCloseEvent *event) override;

private:
    void abortClicked();
    void showElapsed();

    int doneCount = 0;
    int totalCount = 0;
};

} // namespace Vorel
