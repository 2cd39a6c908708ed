// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The window's commands, keys, stepping and alerts, offscreen.
#include <cstdio>

#include <unistd.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QMenuBar>
#include <QRadioButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QtTest>

#include "app/controlpanelwidget.h"
#include "app/mainwindow.h"
#include "app/pairview.h"
#include "core/preferences.h"
#include "formats/cameraexif.h"
#include "tests/core/noiseimage.h"
#include "tests/testsupport.h"

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
        window->cpAutoadj();
        window->cpColorMatch(false);
        window->cpColorMatch(true);
        window->cpCrop();
        QCOMPARE(alerts, QStringList(7, QStringLiteral("Image not loaded")));
        QVERIFY(!window->isAligning() && !window->cropMode());
        press(Qt::Key_X); // the bare key does nothing without a pair
        QCOMPARE(alerts.size(), 7);
        swapControl()->click();
        QCOMPARE(alerts.size(), 8);
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

    // Every mode is in the View menu (the classic six on Ctrl+1..6) and on the panel (their radio
    // buttons, the rest in the "More:" list); choosing it either way marks it in exactly one place.
    void everyModeFromMenuAndPanel()
    {
        const QList<QAction *> actions = window->menuBar()->findChildren<QAction *>();
        const QList<QRadioButton *> radios = window->controlPanel()->findChildren<QRadioButton *>();
        QComboBox *more = nullptr;
        for (QComboBox *box : window->controlPanel()->findChildren<QComboBox *>())
            if (box->findText(QStringLiteral("Checkerboard")) >= 0)
                more = box;
        QVERIFY(more);
        for (size_t i = 0; i < displayModes.size(); ++i) {
            const QString text = QString::fromLatin1(displayModes[i].uiText);
            const DisplayMode mode = displayModes[i].mode;
            const auto action = std::find_if(actions.begin(), actions.end(), [&](QAction *a) { return a->text() == text; });
            QVERIFY2(action != actions.end(), qPrintable(text));
            QCOMPARE((*action)->shortcut(), i < 6 ? QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + int(i))) : QKeySequence());
            const auto radio = std::find_if(radios.begin(), radios.end(), [&](QRadioButton *b) { return b->text() == text; });
            QCOMPARE(radio != radios.end(), i < 6);
            for (const bool fromPanel : {false, true}) {
                window->setDisplayMode(i == 0 ? DisplayMode::checkerboard : DisplayMode::sbs);
                if (!fromPanel)
                    (*action)->trigger();
                else if (radio != radios.end())
                    (*radio)->click();
                else
                    emit more->activated(more->findText(text));
                QCOMPARE(window->displayMode(), mode);
                for (QRadioButton *button : radios)
                    QCOMPARE(button->isChecked(), button->text() == text);
                QCOMPARE(more->currentText(), radio != radios.end() ? QString() : text);
            }
        }
    }

    // What each mode saves; interlaced modes are shown 1:1 however the view is fitted.
    void modesShowAndSave()
    {
        QVERIFY(window->openPaths({data + QStringLiteral("/stereo/02-super-mario.jpg")}));
        const struct {
            DisplayMode mode;
            QSize saved;
            bool pixelExact;
        } rows[] = {{DisplayMode::sbs, {1044, 720}, false},          {DisplayMode::hsbs, {522, 720}, false},
                    {DisplayMode::anaglyphd, {522, 720}, false},     {DisplayMode::anaglyphOptimized, {522, 720}, false},
                    {DisplayMode::overUnder, {522, 1440}, false},    {DisplayMode::halfOverUnder, {522, 720}, false},
                    {DisplayMode::rowInterlaced, {522, 720}, true},  {DisplayMode::checkerboard, {522, 720}, true}};
        for (const auto &row : rows) {
            window->setDisplayMode(row.mode);
            window->cpFit();
            QCOMPARE(window->pairView()->zoom() == 1.0, row.pixelExact);
            const QString path = dir.filePath(QStringLiteral("out%1.png").arg(int(row.mode)));
            QVERIFY(window->saveDisplayImage(path));
            QCOMPARE(QImage(path).size(), row.saved);
        }
        QVERIFY(window->processor().isHalf == false);
        QVERIFY(alerts.isEmpty());
    }

    // ".mpo" and ".jps" save the full-width adjusted pair, swapped as shown, and read back as a
    // pair; so does an over/under display image opened as over/under. Saving carries the camera's
    // Exif, and a failing writer's own text is alerted.
    void savedPairsReadBackSwapped()
    {
        const QString leftPath = dir.filePath(QStringLiteral("l.png")), rightPath = dir.filePath(QStringLiteral("r.png"));
        QVERIFY(TestReference::filledImage(40, 30, qRgb(255, 0, 0)).save(leftPath));
        QVERIFY(TestReference::filledImage(40, 30, qRgb(0, 0, 255)).save(rightPath));
        const struct {
            DisplayMode mode;
            const char *name;
            StereoFileKind kind;
        } rows[] = {{DisplayMode::hsbs, "pair.mpo", StereoFileKind::byExtension},
                    {DisplayMode::anaglyphd, "pair.jps", StereoFileKind::byExtension},
                    {DisplayMode::overUnder, "pair.png", StereoFileKind::overUnder}};
        for (const auto &row : rows) {
            QVERIFY(window->openPaths({leftPath, rightPath}));
            if (!window->processor().isSwap)
                window->cpSwap();
            window->setDisplayMode(row.mode);
            const QString saved = dir.filePath(QString::fromLatin1(row.name));
            QVERIFY(window->saveDisplayImage(saved));
            QVERIFY(window->openPaths({saved}, row.kind));
            QCOMPARE(window->processor().leftOriginal->size(), QSize(40, 30));
            QVERIFY2(qBlue(window->processor().leftOriginal->pixel(20, 15)) > 200, row.name);
            QVERIFY2(qRed(window->processor().rightOriginal->pixel(20, 15)) > 200, row.name);
        }
        QVERIFY(window->openPaths({data + QStringLiteral("/mpo/sugarshack.mpo")}));
        QVERIFY(!window->processor().cameraExif.isEmpty());
        for (const QString name : {QStringLiteral("exif.jpg"), QStringLiteral("exif.mpo")}) {
            QVERIFY(window->saveDisplayImage(dir.filePath(name)));
            QVERIFY2(!readCameraExif(dir.filePath(name)).isEmpty(), qPrintable(name));
        }
        QVERIFY(alerts.isEmpty());
        QVERIFY(!window->saveDisplayImage(dir.filePath(QStringLiteral("missing/pair.mpo"))));
        QCOMPARE(alerts.size(), 1);
    }

    void undoRedoAndBrokenFiles()
    {
        QVERIFY(window->openPaths({data + QStringLiteral("/mpo/sugarshack.mpo")}));
        const qint64 loaded = window->processor().leftOriginal->cacheKey();
        window->nudgeAdjustment(1.5, -2);
        window->cpUndo(); // the loaded state cannot be undone
        QCOMPARE(window->processor().leftOriginal->cacheKey(), loaded);
        const QString broken = dir.filePath(QStringLiteral("broken.jpg"));
        QVERIFY(TestSupport::writeAll(broken, "no picture here"));
        QVERIFY(!window->openPaths({broken}));
        QCOMPARE(window->processor().leftOriginal->cacheKey(), loaded); // previous pair stays
        QCOMPARE(window->processor().adjustment, StereoAdjustment()); // but starts unadjusted
        QCOMPARE(window->controlPanel()->currentAdj(), StereoAdjustment());
    }

    void spaceStepsThroughPairs()
    {
        QTemporaryDir folder;
        for (const QString name : {"1.jpg", "2.jpg", "3.jpg", "4.jpg", "5.jpg"})
            QVERIFY(!TestSupport::copiedInto(folder, QStringLiteral("orientation/hopper.jpg"), name).isEmpty());
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
