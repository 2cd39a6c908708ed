// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The window's automatic alignment and colour matching commands, offscreen.
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include "app/controlpanelwidget.h"
#include "app/mainwindow.h"
#include "core/preferences.h"
#include "tests/core/noiseimage.h"

using namespace Vorel;

class AlignmentCommandsTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir;
    std::unique_ptr<MainWindow> window;
    QStringList alerts;
    const QString data = QStringLiteral(VOREL_TEST_DATA);

private slots:
    void init()
    {
        window = std::make_unique<MainWindow>(std::make_unique<Preferences>(dir.filePath(QStringLiteral("p.ini"))));
        alerts.clear();
        window->alert = [this](const QString &text) { alerts << text; };
        window->show();
    }

    void colourMatchingChangesTheTargetAndEnablesUndo()
    {
        QVERIFY(window->openPaths({data + QStringLiteral("/stereo/aloeL.jpg"), data + QStringLiteral("/stereo/aloeR.jpg")}));
        const QImage left = *window->processor().leftOriginal, right = *window->processor().rightOriginal;
        QVERIFY(!window->controlPanel()->button(QStringLiteral("Undo"))->isEnabled());
        window->controlPanel()->button(QStringLiteral("Left ref"))->click();
        QCOMPARE(*window->processor().leftOriginal, left); // the reference stays
        QVERIFY(*window->processor().rightOriginal != right);
        QCOMPARE(window->processor().history.undoCount(), 2);
        QVERIFY(window->controlPanel()->button(QStringLiteral("Undo"))->isEnabled());
    }

    void autoAlignReplacesThePairAndResetsTheAdjustment()
    {
        QVERIFY(window->openPaths({data + QStringLiteral("/stereo/left01.jpg"), data + QStringLiteral("/stereo/right01.jpg")}));
        window->nudgeAdjustment(1.5, 0);
        window->cpAutoadj();
        QVERIFY(window->isAligning());
        window->cpAutoadj(); // ignored while running
        QTRY_VERIFY_WITH_TIMEOUT(!window->isAligning(), 60000);
        QVERIFY(alerts.isEmpty());
        QVERIFY(window->processor().leftOriginal->height() < 480); // cut to the common area
        QCOMPARE(window->processor().adjustment, StereoAdjustment{});
        QCOMPARE(window->controlPanel()->currentAdj(), StereoAdjustment{});
        QCOMPARE(window->processor().history.undoCount(), 2);
    }

    void nothingToMatchIsReported()
    {
        const QString path = dir.filePath(QStringLiteral("flat.png"));
        QVERIFY(TestReference::filledImage(300, 200, qRgb(128, 128, 128)).save(path));
        QVERIFY(window->openPaths({path}));
        window->cpAutoadj();
        QTRY_VERIFY_WITH_TIMEOUT(!window->isAligning(), 60000);
        QCOMPARE(alerts.size(), 1);
        QVERIFY(alerts.first().contains(QStringLiteral("nothing to match")));
        QCOMPARE(window->processor().leftOriginal->width(), 150);
    }
};

QTEST_MAIN(AlignmentCommandsTest)
#include "alignmentcommands_test.moc"
