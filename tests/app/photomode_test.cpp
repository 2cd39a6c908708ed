// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Photo mode of the main window: stepping over an album's pictures, and reopening library
// entries from the recent files, offscreen.
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include "app/mainwindow.h"
#include "core/preferences.h"
#include "photos/photolibrary.h"

using namespace Vorel;

class PhotoModeTest : public QObject
{
    Q_OBJECT

    QTemporaryDir dir;
    std::unique_ptr<MainWindow> window;
    QStringList alerts;

    // An album of the pictures 1.jpg .. 5.jpg.
    PhotoChoice album(int left, int right = -1)
    {
        PhotoChoice choice;
        choice.album.id = dir.path();
        choice.assets = albumPhotos(dir.path());
        choice.left = left;
        choice.right = right;
        return choice;
    }

    QString picture(int number) const { return dir.filePath(QStringLiteral("%1.jpg").arg(number)); }

private slots:
    void initTestCase()
    {
        for (int number = 1; number <= 5; ++number)
            QVERIFY(QFile::copy(QStringLiteral(VOREL_TEST_DATA "/orientation/hopper.jpg"), picture(number)));
    }

    void init()
    {
        window = std::make_unique<MainWindow>(std::make_unique<Preferences>(dir.filePath(QStringLiteral("p.ini"))));
        alerts.clear();
        window->alert = [this](const QString &text) { alerts << text; };
    }

    // Steps by one or by two pictures; a pair at the last position shows its picture as both views.
    void stepsOverTheAlbum()
    {
        const struct {
            int left, right;
            int direction;
            QList<int> indexes; // after each step; a repeated index means no step
            const char *lastTitle;
        } rows[] = {
            { 0, 1, +1, { 2, 4, 4 }, "5.jpg — Vorel" },
            { 3, 4, +1, { 4, 4 }, "5.jpg — Vorel" },
            { 4, -1, -1, { 3, 2, 1, 0, 0 }, "1.jpg — Vorel" },
            { 2, 3, -1, { 0, 0 }, "1.jpg + 2.jpg — Vorel" },
        };
        for (const auto &row : rows) {
            QVERIFY(window->openPhotos(album(row.left, row.right)));
            QVERIFY(window->photoMode());
            QCOMPARE(window->photoNavigator().photoStepSize(), row.right < 0 ? 1 : 2);
            for (const int expected : row.indexes) {
                row.direction > 0 ? window->cpNext() : window->cpPrev();
                QCOMPARE(window->photoNavigator().photoIndex(), expected);
            }
            QCOMPARE(window->windowTitle(), QString::fromUtf8(row.lastTitle));
        }
        QVERIFY(window->openPaths({ picture(1) }));
        QVERIFY(!window->photoMode());
        QVERIFY(alerts.isEmpty());
    }

    // A library entry reopens over its album as it is now: at its stored position while that
    // still holds its picture, else where the picture now stands; a vanished picture is alerted
    // like a missing file and the entry stays.
    void recentEntriesReopenInPhotoMode()
    {
        QVERIFY(window->openPhotos(album(2, 3)));
        const HistoryEntry opened = window->recentFiles().entries().front();
        QVERIFY(opened.urls.isEmpty());
        QCOMPARE(opened.photoLocalIDs, QStringList({ picture(3), picture(4) }));
        QCOMPARE(opened.photoAlbumID, dir.path());
        QCOMPARE(opened.photoIndexInAlbum, 2);

        QVERIFY(window->openPaths({ picture(1) }));
        window->openRecent(1);
        QVERIFY(window->photoMode());
        QCOMPARE(window->photoNavigator().photoIndex(), 2);
        QCOMPARE(window->windowTitle(), QStringLiteral("3.jpg + 4.jpg — Vorel"));

        QVERIFY(QFile::copy(picture(1), dir.filePath(QStringLiteral("0.jpg")))); // everything moves one up
        window->openRecent(0);
        QCOMPARE(window->photoNavigator().photoAssets().size(), size_t(6));
        QCOMPARE(window->windowTitle(), QStringLiteral("3.jpg + 4.jpg — Vorel"));
        QVERIFY(QFile::remove(dir.filePath(QStringLiteral("0.jpg"))));
        QVERIFY(alerts.isEmpty());

        const std::vector<HistoryEntry> before = window->recentFiles().entries();
        QVERIFY(QFile::rename(picture(4), dir.filePath(QStringLiteral("gone.txt"))));
        window->openRecent(0);
        QVERIFY(QFile::rename(dir.filePath(QStringLiteral("gone.txt")), picture(4)));
        QCOMPARE(alerts, QStringList(QStringLiteral("Cannot open ") + FileHistory::title(before.front())));
        QVERIFY(window->recentFiles().entries() == before);
    }
};

QTEST_MAIN(PhotoModeTest)
#include "photomode_test.moc"
