// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The run from the window (offscreen): listing, the overwrite question, the progress window's
// texts through real jobs on the real processor, the skipped list, and aborting.
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include "batch/batchjoblist.h"
#include "batch/batchprogressviewcontroller.h"
#include "batch/batchrunwindow.h"
#include "batch/batchsettings.h"
#include "core/preferences.h"

using namespace Vorel;

class BatchProgressViewControllerTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir;
    std::unique_ptr<Preferences> store;
    QStringList alerts;
    QList<QStringList> overwriteQuestions;
    bool overwrite = false;

    BatchRunPrompts prompts()
    {
        return {[this](const QString &text) { alerts << text; },
                [this](const QStringList &existing) {
                    overwriteQuestions << existing;
                    return overwrite;
                }};
    }

    // A fresh input folder holding `names`, each a copy of a small real side-by-side picture.
    static BatchSettings folders(QTemporaryDir &input, QTemporaryDir &output, const QStringList &names)
    {
        for (const QString &name : names)
            QFile::copy(QStringLiteral(VOREL_TEST_DATA "/stereo/left.jpg"), input.filePath(name));
        BatchSettings settings;
        settings.inputFolder = input.path();
        settings.outputFolder = output.path();
        return settings;
    }

    static qsizetype progressWindows()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        return std::count_if(windows.begin(), windows.end(),
                             [](QWidget *w) { return qobject_cast<BatchProgressViewController *>(w) != nullptr; });
    }

private slots:
    void init()
    {
        store = std::make_unique<Preferences>(dir.filePath(QStringLiteral("p.ini")));
        alerts.clear();
        overwriteQuestions.clear();
        overwrite = false;
    }

    void aRunOfRealJobsWithABrokenFile()
    {
        QTemporaryDir input, output;
        BatchSettings settings = folders(input, output, {QStringLiteral("a.jpg"), QStringLiteral("c.jpg")});
        QFile broken(input.filePath(QStringLiteral("b.jpg")));
        QVERIFY(broken.open(QIODevice::WriteOnly));
        broken.write("not a picture");
        broken.close();

        std::unique_ptr<BatchProgressViewController> window(runBatch(settings, *store, prompts(), nullptr));
        QVERIFY(window && window->isVisible());
        // The start, before any report of the worker has been handled.
        QCOMPARE(window->headerLabel->text(), QStringLiteral("Input: %1  (3 files)").arg(QDir(input.path()).dirName()));
        QCOMPARE(window->countLabel->text(), QStringLiteral("0 / 3 files"));
        QCOMPARE(window->fileNameLabel->text(), QStringLiteral("Starting…"));
        QVERIFY(window->elapsedTimer->isActive());
        QVERIFY(window->elapsedLabel->text().endsWith(QStringLiteral("0:00")));

        QTRY_VERIFY_WITH_TIMEOUT(window->isFinished, 30000);
        QCOMPARE(window->fileNameLabel->text(), QStringLiteral("All files processed successfully."));
        QCOMPARE(window->countLabel->text(), QStringLiteral("3 / 3 files"));
        QCOMPARE(window->progressBar->value(), window->progressBar->maximum());
        QCOMPARE(window->abortButton->text(), QStringLiteral("Close"));
        QVERIFY(!window->elapsedTimer->isActive());
        QCOMPARE(window->skippedLabel->text(), QStringLiteral("Skipped: 1"));
        QCOMPARE(window->skippedList->count(), 1);
        const QString skipped = window->skippedList->item(0)->text();
        QVERIFY2(skipped.startsWith(QStringLiteral("b.jpg: ")) && skipped.size() > 7, qPrintable(skipped));
        QCOMPARE(QImage(output.filePath(QStringLiteral("a.jpg"))).size(), QSize(612, 459));
        QVERIFY(QFileInfo::exists(output.filePath(QStringLiteral("c.jpg"))));
        QVERIFY(!QFileInfo::exists(output.filePath(QStringLiteral("b.jpg"))));
        QVERIFY(alerts.isEmpty() && overwriteQuestions.isEmpty());

        // Again into the same folder: the question names what exists, and declining starts nothing.
        QVERIFY(!runBatch(settings, *store, prompts(), nullptr));
        QCOMPARE(overwriteQuestions, (QList<QStringList>{{QStringLiteral("a.jpg"), QStringLiteral("c.jpg")}}));
        QCOMPARE(progressWindows(), 1);
    }

    void nothingToProcessOnlyAlerts()
    {
        QTemporaryDir input, output;
        const BatchSettings settings = folders(input, output, {QStringLiteral("notes.txt"), QStringLiteral(".hidden.jpg")});
        QVERIFY(!runBatch(settings, *store, prompts(), nullptr));
        QCOMPARE(alerts, QStringList{QStringLiteral("No target image files found in the input folder.")});
        QCOMPARE(progressWindows(), 0);
    }

    void theOverwriteQuestion()
    {
        const QStringList existing{QStringLiteral("a.jpg"), QStringLiteral("b_L.png")};
        const struct {
            const char *button;
            bool overwrites;
        } rows[] = {{"Overwrite", true}, {"Cancel", false}};
        for (const auto &row : rows) {
            QString text, informative;
            QStringList buttons;
            QTimer::singleShot(0, this, [&] {
                auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                QVERIFY(box);
                text = box->text();
                informative = box->informativeText();
                for (QAbstractButton *button : box->buttons())
                    buttons << button->text();
                for (QAbstractButton *button : box->buttons())
                    if (button->text() == QLatin1String(row.button))
                        button->click();
            });
            QCOMPARE(askOverwrite(nullptr, existing), row.overwrites);
            QCOMPARE(text, overwriteQuestion(existing));
            QCOMPARE(informative, QStringLiteral("Existing files will be overwritten."));
            QCOMPARE(buttons, (QStringList{QStringLiteral("Overwrite"), QStringLiteral("Cancel")}));
        }
    }

    void abortStopsTheRun()
    {
        QTemporaryDir input, output;
        QStringList names;
        for (int i = 1; i <= 10; ++i)
            names << QStringLiteral("%1.jpg").arg(i);
        const BatchSettings settings = folders(input, output, names);
        std::unique_ptr<BatchProgressViewController> window(runBatch(settings, *store, prompts(), nullptr));
        QVERIFY(window);
        int questions = 0;
        bool confirm = false;
        window->confirmAbort = [&] {
            ++questions;
            return confirm;
        };
        window->close(); // closing while running asks, and declining keeps the window
        QCOMPARE(questions, 1);
        QVERIFY(window->isVisible() && !window->isFinished);
        confirm = true;
        window->abortButton->click();
        QCOMPARE(questions, 2);
        QVERIFY(!window->abortButton->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(window->isFinished, 30000);
        QCOMPARE(window->fileNameLabel->text(), QStringLiteral("Processing aborted."));
        QCOMPARE(window->abortButton->text(), QStringLiteral("Close"));
        QVERIFY(window->abortButton->isEnabled());
        QCOMPARE(window->skippedLabel->text(), QStringLiteral("Skipped: 0"));
        QCOMPARE(window->skippedList->count(), 0);
        const qsizetype written = QDir(output.path()).entryList(QDir::Files).size();
        QVERIFY2(written < 10, qPrintable(QString::number(written)));
        QCOMPARE(window->countLabel->text(), QStringLiteral("%1 / 10 files").arg(written));
        window->abortButton->click(); // "Close"
        QVERIFY(!window->isVisible());
        window.release(); // deletes itself on close
        QTRY_COMPARE(progressWindows(), 0);
    }

    void elapsedText()
    {
        const std::pair<qint64, QString> rows[] = {{0, QStringLiteral("0:00")},
                                                   {59, QStringLiteral("0:59")},
                                                   {61, QStringLiteral("1:01")},
                                                   {3600, QStringLiteral("1:00:00")},
                                                   {3725, QStringLiteral("1:02:05")}};
        for (const auto &[seconds, text] : rows)
            QCOMPARE(BatchProgressViewController::elapsedText(seconds), text);
    }
};

QTEST_MAIN(BatchProgressViewControllerTest)
#include "batchprogressviewcontroller_test.moc"
