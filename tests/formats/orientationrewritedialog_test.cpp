// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The orientation chooser and the run dialog: texts, the accessory's value, and a run over
// three files with one failure, driven through the real worker thread.
#include <QComboBox>
#include <QFileDialog>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include "app/controlpanelwidget.h"
#include "app/mainwindow.h"
#include "core/preferences.h"
#include "formats/exiforientationpanel.h"
#include "formats/orientationrewritedialog.h"
#include "formats/panelaccessoryview.h"
#include "tests/testsupport.h"

using namespace Vorel;

class OrientationRewriteDialogTest : public QObject {
    Q_OBJECT
private slots:
    void chooserIsConfigured()
    {
        PanelAccessoryView *accessory = nullptr;
        std::unique_ptr<QFileDialog> chooser(ExifOrientationPanel::createChooser(nullptr, &accessory));
        QCOMPARE(chooser->windowTitle(), QStringLiteral("Exif Orientation Rewrite"));
        QCOMPARE(chooser->labelText(QFileDialog::Accept), QStringLiteral("Rewrite Exif"));
        QCOMPARE(chooser->fileMode(), QFileDialog::ExistingFiles);
        QVERIFY(chooser->isAncestorOf(accessory));
        const QString filters = chooser->nameFilters().join(QLatin1Char(' '));
        for (const char *pattern : {"*.jpg", "*.png", "*.tif", "*.heic"})
            QVERIFY2(filters.contains(QLatin1String(pattern)), pattern);
    }

    void accessoryFollowsThePopup()
    {
        PanelAccessoryView accessory;
        QCOMPARE(accessory.popup()->count(), 8);
        QCOMPARE(accessory.popup()->itemText(5), QStringLiteral("6 - Rotate 90° clockwise"));
        for (int index : {5, 7, 0}) {
            accessory.popup()->setCurrentIndex(index);
            QCOMPARE(accessory.selectedOrientationValue(), index + 1);
        }
    }

    void windowOpensTheChooserFromMenuAndPanel()
    {
        QTemporaryDir dir;
        MainWindow window(std::make_unique<Preferences>(dir.filePath(QStringLiteral("p.ini"))));
        window.show();
        QAction *menuItem = nullptr;
        const QList<QAction *> fileItems = window.menuBar()->actions().first()->menu()->actions();
        for (QAction *action : fileItems)
            if (action->text() == QStringLiteral("Orientation Tag Edit..."))
                menuItem = action;
        // After the separator and "Batch operation...".
        const qsizetype position = fileItems.indexOf(menuItem);
        QVERIFY(menuItem && position >= 2 && fileItems.at(position - 2)->isSeparator());
        QCOMPARE(fileItems.at(position - 1)->text(), QStringLiteral("Batch operation..."));
        const auto openChooser = [&](const std::function<void()> &trigger) {
            trigger();
            auto *chooser = window.findChild<QFileDialog *>();
            QVERIFY(chooser && chooser->isVisible());
            QCOMPARE(chooser->windowTitle(), QStringLiteral("Exif Orientation Rewrite"));
            chooser->reject();
            QTRY_VERIFY(!window.findChild<QFileDialog *>()); // closed and deleted
        };
        openChooser([&] { menuItem->trigger(); });
        openChooser([&] { window.controlPanel()->button(QStringLiteral("Orientation Tag Edit..."))->click(); });
    }

    void runReportsProgressAndSummary()
    {
        QTemporaryDir dir;
        QStringList paths;
        for (const char *source : { "orientation/hopper.jpg", "other/hopper.gif", "orientation/g4_orientation_1.tif" })
            paths << TestSupport::copiedInto(dir, QLatin1String(source));
        QVERIFY(!paths.contains(QString()));
        OrientationRewriteDialog dialog(paths, 6);
        QCOMPARE(dialog.progress(), QStringLiteral("Processing 0 of 3 files"));
        QSignalSpy finished(&dialog, &OrientationRewriteDialog::rewriteFinished);
        dialog.show();
        dialog.start();
        dialog.reject(); // ignored while the worker runs
        QVERIFY(finished.wait(30000));
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.progress(), QStringLiteral("Processing 3 of 3 files"));
        QCOMPARE(dialog.summary(),
            QStringLiteral("⚠️ 2 succeeded / 1 failed\n"
                           "✅ hopper.jpg\n   → Success (Orientation → 6)\n"
                           "❌ hopper.gif\n   → Unsupported format: image/gif\n"
                           "✅ g4_orientation_1.tif\n   → Success (Orientation → 6)"));
        dialog.reject();
        QVERIFY(!dialog.isVisible());
    }
};

QTEST_MAIN(OrientationRewriteDialogTest)
#include "orientationrewritedialog_test.moc"
