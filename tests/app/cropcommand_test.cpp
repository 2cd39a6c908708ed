// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The crop command in the window: drawing on the left picture shows on the right one too, and
// applying cuts both views alike and remembers the rectangle for batches.
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include "app/controlpanelwidget.h"
#include "app/cropoverlayview.h"
#include "app/mainwindow.h"
#include "app/pairview.h"
#include "core/preferences.h"

using namespace Vorel;

class CropCommandTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir;

private slots:
    void drawMirrorAndApply()
    {
        auto *store = new Preferences(dir.filePath(QStringLiteral("p.ini")));
        MainWindow window{std::unique_ptr<Preferences>(store)};
        window.show();
        QVERIFY(window.openPaths({QStringLiteral(VOREL_TEST_DATA "/stereo/02-super-mario.jpg")})); // 522 x 720 views
        window.cpCrop();
        QVERIFY(window.cropMode());
        QCOMPARE(window.controlPanel()->button(QStringLiteral("Apply Crop"))->text(), QStringLiteral("Apply Crop"));
        CropOverlayView *left = window.pairView()->cropOverlay();
        QTRY_COMPARE(left->size(), left->parentWidget()->size()); // spans the picture
        const QList<CropOverlayView *> overlays = window.findChildren<CropOverlayView *>();
        QCOMPARE(overlays.size(), 2);

        // Draw from the first quarter point to the centre (a press near a corner of the empty
        // rectangle at the origin would grab that corner).
        const QPoint from(left->width() / 4, left->height() / 4), to(left->width() / 2, left->height() / 2);
        QTest::mousePress(left, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, QPointF(to), left->mapToGlobal(QPointF(to)), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(left, &move);
        QTest::mouseRelease(left, Qt::LeftButton, {}, to);
        for (const CropOverlayView *overlay : overlays)
            QCOMPARE(overlay->cropRect(), QRectF(QPointF(from), QPointF(to)));

        window.cpCrop();
        QVERIFY(!window.cropMode());
        QVERIFY(window.findChildren<CropOverlayView *>().isEmpty());
        const QSize cut = window.processor().leftOriginal->size();
        QVERIFY2(std::abs(cut.width() - 130) <= 2 && std::abs(cut.height() - 180) <= 2, qPrintable(QString::number(cut.width())));
        QCOMPARE(window.processor().rightOriginal->size(), cut);
        QVERIFY(std::abs(store->number(QStringLiteral("batch.cropW")) - 130.5) <= 2);
        QCOMPARE(window.processor().history.undoCount(), 2);
    }

    void halfSideBySideOnlyEndsCropMode()
    {
        MainWindow window{std::make_unique<Preferences>(dir.filePath(QStringLiteral("q.ini")))};
        QVERIFY(window.openPaths({QStringLiteral(VOREL_TEST_DATA "/stereo/02-super-mario.jpg")}));
        window.setDisplayMode(DisplayMode::hsbs);
        window.cpCrop();
        window.pairView()->cropOverlay()->setCropRect(QRectF(0, 0, 50, 50));
        window.cpCrop();
        QVERIFY(!window.cropMode());
        QCOMPARE(window.processor().leftOriginal->size(), QSize(522, 720));
    }

    // The adjustment page draws from a preview cache; a resized pair must replace it.
    void resizeOnTheAdjustmentPageRedraws()
    {
        MainWindow window{std::make_unique<Preferences>(dir.filePath(QStringLiteral("r.ini")))};
        window.show();
        QVERIFY(window.openPaths({QStringLiteral(VOREL_TEST_DATA "/stereo/02-super-mario.jpg")}));
        window.controlPanel()->setCurrentIndex(StereoImageProcessor::previewTab);
        QVERIFY(window.pairView()->shownPictureSize().width() < window.pairView()->shownPictureSize().height());
        window.resizePair(720, 360, ResizeMode::stretch);
        const QSize shown = window.pairView()->shownPictureSize();
        QVERIFY2(shown.width() > shown.height(), qPrintable(QStringLiteral("%1x%2").arg(shown.width()).arg(shown.height())));
    }
};

QTEST_MAIN(CropCommandTest)
#include "cropcommand_test.moc"
