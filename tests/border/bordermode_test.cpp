// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The border mode of the window: background compositions where a newer result always wins,
// the framed picture on screen and in the saved file.
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
    // An older composition that finishes after a newer one never replaces it; one that finishes
    // first is shown until the newer one arrives.
    void newerResultsWin()
    {
        BorderComposer composer;
        QList<QRgb> shown;
        connect(&composer, &BorderComposer::composed, this, [&shown](const QImage &p) { shown << p.pixel(0, 0); });
        QSemaphore releaseFirst, releaseThird;
        composer.request([&] { releaseFirst.acquire(); return std::optional(filled(1)); });
        composer.request([] { return std::optional(filled(2)); });
        QTRY_COMPARE(shown, QList<QRgb>{filled(2).pixel(0, 0)});
        releaseFirst.release(); // the first finishes late: dropped
        composer.request([&] { releaseThird.acquire(); return std::optional(filled(3)); });
        composer.request([] { return std::optional<QImage>(); }); // nothing composed: the view stays
        releaseThird.release();
        QTRY_COMPARE(shown.size(), 2);
        QSemaphore releaseFourth;
        composer.request([&] { releaseFourth.acquire(); return std::optional(filled(4)); });
        composer.discardPending(); // the pair is gone meanwhile
        releaseFourth.release();
        QTest::qWait(50);
        QCOMPARE(shown, (QList<QRgb>{filled(2).pixel(0, 0), filled(3).pixel(0, 0)}));
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
