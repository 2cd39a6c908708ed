// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The border mode of the window: background compositions where a newer result always wins,
// the framed picture on screen and in the saved file.
#include <atomic>

#include <QImageReader>
#include <QLabel>
#include <QScrollArea>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QtTest>

#include "app/mainwindow.h"
#include "border/bordercomposer.h"
#include "core/preferences.h"

using namespace Vorel;

class BorderModeTest : public QObject {
    Q_OBJECT

    static QImage filled(QRgb colour)
    {
        QImage image(4, 4, QImage::Format_RGB32);
        image.fill(colour);
        return image;
    }

private slots:
    // Only the newest request waits for a worker; an older result that finishes after a newer
    // one is dropped, and a composition that gives nothing leaves the view as it was.
    void newestRequestWins()
    {
        BorderComposer composer;
        QList<int> shown;
        connect(&composer, &BorderComposer::composed, this, [&shown](const QImage &p) { shown << qBlue(p.pixel(0, 0)); });
        QSemaphore started, releaseOld, releaseNew;
        std::atomic<int> replacedRuns = 0;
        const auto blocked = [&](QSemaphore &release, QRgb colour) {
            return [&, colour] { started.release(); release.acquire(); return std::optional(filled(colour)); };
        };
        composer.request(blocked(releaseOld, 1));
        started.acquire(); // taken by a worker: the next request cannot replace it
        composer.request(blocked(releaseNew, 2));
        started.acquire(); // both workers are busy
        composer.request([&] { ++replacedRuns; return std::optional(filled(3)); });
        composer.request([] { return std::optional(filled(4)); });
        releaseNew.release();
        QTRY_VERIFY(!shown.isEmpty() && shown.last() == 4);
        releaseOld.release(); // finishes late
        composer.request([] { return std::optional<QImage>(); });
        composer.request(blocked(releaseNew, 5));
        started.acquire();
        composer.discardPending(); // the pair is gone meanwhile
        releaseNew.release();
        QTest::qWait(50);
        QCOMPARE(replacedRuns, 0);
        QCOMPARE(shown.last(), 4);
        QVERIFY(!shown.contains(1) && !shown.contains(5));
    }

    // 02-super-mario.jpg has 522 x 720 halves: at the default 3 % in the LR/RL grid b = 15.66,
    // the bands are 31.32 high, so the canvas is 1090.98 x 1518.3, truncated.
    void showsAndSavesTheFramedPair()
    {
        QTemporaryDir dir;
        MainWindow window(std::make_unique<Preferences>(dir.filePath(QStringLiteral("p.ini"))));
        window.show();
        QVERIFY(window.openPaths({QStringLiteral(VOREL_TEST_DATA "/stereo/02-super-mario.jpg")}));
        window.setDisplayMode(DisplayMode::imageBorder);
        const auto *shown = qobject_cast<QLabel *>(window.findChild<QScrollArea *>()->widget());
        QTRY_COMPARE(shown->pixmap().size(), QSize(1090, 1518)); // composed in the background
        const QString saved = dir.filePath(QStringLiteral("framed.png"));
        QVERIFY(window.saveDisplayImage(saved));
        QCOMPARE(QImageReader(saved).size(), QSize(1090, 1518));
        QCOMPARE(QImage(saved).pixel(0, 0), qRgb(255, 255, 255)); // the white border
    }
};

QTEST_MAIN(BorderModeTest)
#include "bordermode_test.moc"
