// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The window's commands, keys, stepping and alerts, offscreen.
#include <cstdio>

#include <unistd.h>

#include <QCheckBox>
#include <QFile>
#include <QSlider>
#include <QTemporaryDir>
#include <QtTest>

#include "app/controlpanelwidget.h"
#include "app/mainwindow.h"
#include "core/preferences.h"

using namespace Vorel;

namespace {

// What `run` writes to stderr.
QByteArray stderrOf(const std::function<void()> &run, const QString &capturePath)
{
    QFile capture(capturePath);
    if (!capture.open(QIODevice::ReadWrite | QIODevice::Truncate))
        return {};
    std::fflush(stderr);
    const int saved = dup(STDERR_FILENO);
    dup2(capture.handle(), STDERR_FILENO);
    run();
    std::fflush(stderr);
    dup2(saved, STDERR_FILENO);
    close(saved);
    capture.seek(0);
    return capture.readAll();
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir;
    std::unique_ptr<MainWindow> window;
    QStringList alerts;
    const QString data = QStringLiteral(VOREL_TEST_DATA);

    // As the keyboard does: into the window, then to its focused widget.
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(window->windowHandle(), Qt::Key(key), modifiers);
    }

    QCheckBox *swapControl() const { return window->controlPanel()->findChild<QCheckBox *>(); }

private slots:
    void init()
    {
        window = std::make_unique<MainWindow>(std::make_unique<Preferences>(dir.filePath(QStringLiteral("p.ini"))));
        alerts.clear();
        window->alert = [this](const QString &text) { alerts << text; };
        window->show();
    }

    void commandsWithoutAPairAlert()
    {
        window->cpSwap();
        window->cpFit();
        window->cpActualSize();
        QCOMPARE(alerts, QStringList(3, QStringLiteral("Image not loaded")));
        press(Qt::Key_X); // the bare key does nothing without a pair
        QCOMPARE(alerts.size(), 3);
        swapControl()->click();
        QCOMPARE(alerts.size(), 4);
        QVERIFY(!window->processor().isSwap);
        QVERIFY(!swapControl()->isChecked());
    }

    void keysDriveTheAdjustmentBeyondTheSliders()
    {
        QVERIFY(window->openPaths({data + QStringLiteral("/mpo/sugarshack.mpo")}));
        for (int i = 0; i < 50; ++i)
            press(Qt::Key_Right);
        press(Qt::Key_Up);
        QCOMPARE(window->processor().adjustment.horizontalOffset, 25.0);
        QCOMPARE(window->processor().adjustment.verticalOffset, 0.5);
        QCOMPARE(window->controlPanel()->currentAdj().horizontalOffset, 25.0);
        press(Qt::Key_X);
        QVERIFY(window->processor().isSwap && swapControl()->isChecked());
        press(Qt::Key_X, Qt::ControlModifier); // not the swap key
        QVERIFY(window->processor().isSwap);
    }

    // Keys the focused widget does not take travel up through its parents; each press is
    // still logged once, and the window's keys win over the focused slider.
    void eachKeyPressIsLoggedOnce()
    {
        QVERIFY(window->openPaths({data + QStringLiteral("/mpo/sugarshack.mpo")}));
        window->controlPanel()->setCurrentIndex(ControlPanelWidget::adjustmentPage);
        window->controlPanel()->findChild<QSlider *>()->setFocus();
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_Right}) {
            const QByteArray logged = stderrOf([&] { press(key); }, dir.filePath(QStringLiteral("stderr.txt")));
            QCOMPARE(logged.count("keycode="), 1);
        }
        QCOMPARE(window->processor().adjustment.horizontalOffset, 0.5);
    }

    void modesAndSaving()
    {
        QVERIFY(window->openPaths({data + QStringLiteral("/stereo/02-super-mario.jpg")}));
        const struct {
            DisplayMode mode;
            QSize saved;
        } rows[] = {{DisplayMode::sbs, {1044, 720}}, {DisplayMode::hsbs, {522, 720}}, {DisplayMode::anaglyphd, {522, 720}}};
        for (const auto &row : rows) {
            window->setDisplayMode(row.mode);
            const QString path = dir.filePath(QStringLiteral("out%1.png").arg(int(row.mode)));
            QVERIFY(window->saveDisplayImage(path));
            QCOMPARE(QImage(path).size(), row.saved);
        }
        QVERIFY(window->processor().isHalf == false);
    }

    void undoRedoAndBrokenFiles()
    {
        QVERIFY(window->openPaths({data + QStringLiteral("/mpo/sugarshack.mpo")}));
        const qint64 loaded = window->processor().leftOriginal->cacheKey();
        window->nudgeAdjustment(1.5, -2);
        window->cpUndo(); // the loaded state cannot be undone
        QCOMPARE(window->processor().leftOriginal->cacheKey(), loaded);
        const QString broken = dir.filePath(QStringLiteral("broken.jpg"));
        QFile file(broken);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("no picture here");
        file.close();
        QVERIFY(!window->openPaths({broken}));
        QCOMPARE(window->processor().leftOriginal->cacheKey(), loaded); // previous pair stays
        QCOMPARE(window->processor().adjustment, StereoAdjustment()); // but starts unadjusted
        QCOMPARE(window->controlPanel()->currentAdj(), StereoAdjustment());
    }

    void spaceStepsThroughPairs()
    {
        QTemporaryDir folder;
        const char *names[] = {"1.jpg", "2.jpg", "3.jpg", "4.jpg", "5.jpg"};
        for (const char *name : names)
            QFile::copy(data + QStringLiteral("/orientation/hopper.jpg"), folder.filePath(QString::fromLatin1(name)));
        QVERIFY(window->openPaths({folder.filePath(QStringLiteral("1.jpg")), folder.filePath(QStringLiteral("2.jpg"))}));
        QCOMPARE(window->navigator().loadMode(), FolderNavigator::filePair);
        press(Qt::Key_Space);
        QCOMPARE(window->navigator().currentIndex(), 2);
        press(Qt::Key_Space);
        press(Qt::Key_Space);
        QCOMPARE(window->navigator().currentIndex(), 4);
        QVERIFY(window->processor().hasPair()); // 5.jpg as both views
        press(Qt::Key_Backspace);
        QCOMPARE(window->navigator().currentIndex(), 2);
    }

    void adjustmentPageRendersFromThePreview()
    {
        QVERIFY(window->openPaths({data + QStringLiteral("/mpo/Panasonic-DMC-GX8.mpo")}));
        window->controlPanel()->setCurrentIndex(ControlPanelWidget::adjustmentPage);
        QCOMPARE(window->processor().nTab, 3);
        QVERIFY(window->processor().cachedLeft.has_value());
        QVERIFY(window->processor().cachedLeft->width() < 1824);
        QCOMPARE(ControlPanelWidget::formatValue(2), QStringLiteral("2"));
        QCOMPARE(ControlPanelWidget::formatValue(-0.5), QStringLiteral("-0.5"));
    }
};

QTEST_MAIN(MainWindowTest)
#include "mainwindow_test.moc"
