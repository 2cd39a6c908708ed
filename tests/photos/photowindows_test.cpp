// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The album window over a small Pictures folder, and the settings window, offscreen.
#include <QDialogButtonBox>
#include <QFile>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

#include "app/mainwindow.h"
#include "core/preferences.h"
#include "photos/photoalbumlistmodel.h"
#include "photos/photogridmodel.h"
#include "photos/photolibrary.h"
#include "photos/photopickerwindow.h"
#include "photos/preferencesdialog.h"
#include "tests/testsupport.h"

using namespace Vorel;

class PhotoWindowsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir home; // HOME, so Pictures and the thumbnail cache are the test's own
    QString trip;

    QString pictures() const { return home.filePath(QStringLiteral("Pictures")); }

private slots:
    void initTestCase()
    {
        qputenv("HOME", home.path().toUtf8());
        qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral(".config")).toUtf8());
        qputenv("XDG_CACHE_HOME", home.filePath(QStringLiteral(".cache")).toUtf8());
        trip = pictures() + QStringLiteral("/Trip");
        QVERIFY(QDir().mkpath(trip));
        using TestSupport::testData;
        QVERIFY(QFile::copy(testData(QStringLiteral("mpo/sugarshack.mpo")), trip + QStringLiteral("/a.mpo")));
        for (const char *name : { "/b.jpg", "/d_L.jpg", "/d_R.jpg" })
            QVERIFY(QFile::copy(testData(QStringLiteral("orientation/hopper.jpg")), trip + QLatin1String(name)));
        QVERIFY(TestSupport::writeAll(trip + QStringLiteral("/c.jpg"), "not a picture"));
        QCOMPARE(defaultPicturesFolder(), pictures());
    }

    // Albums with their counts, the grid with badges, thumbnails and a broken tile; a double
    // click opens the picture in photo mode over the album.
    void pickerOpensAPictureInPhotoMode()
    {
        MainWindow window(std::make_unique<Preferences>(home.filePath(QStringLiteral("p.ini"))));
        window.alert = [](const QString &text) { QFAIL(qPrintable(text)); };
        window.show();
        window.cpOpenFromPhotos();
        PhotoPickerWindow *picker = window.photoPicker();
        QVERIFY(picker && picker->isVisible());
        QAbstractItemModel *albums = picker->albumView()->model();
        QTRY_COMPARE(albums->rowCount(), 2);
        const struct {
            QString id, text;
        } albumRows[] = { { pictures(), QStringLiteral("All Photos\n5 pictures") },
            { trip, QStringLiteral("Trip\n5 pictures") } };
        for (int row = 0; row < 2; ++row) {
            QCOMPARE(albums->index(row, 0).data(PhotoAlbumListModel::idRole).toString(), albumRows[row].id);
            QCOMPARE(albums->index(row, 0).data().toString(), albumRows[row].text);
        }
        picker->albumView()->setCurrentIndex(albums->index(1, 0));
        const PhotoGridModel &grid = picker->gridModel();
        QTRY_COMPARE(grid.rowCount(), 5);
        QTRY_VERIFY(grid.index(2).data(PhotoGridModel::brokenRole).toBool());
        QTRY_VERIFY(!grid.index(1).data(Qt::DecorationRole).value<QImage>().isNull());
        const struct {
            const char *name, *badge;
        } tiles[] = { { "a.mpo", "MPO" }, { "b.jpg", "" }, { "c.jpg", "" }, { "d_L.jpg", "L" }, { "d_R.jpg", "R" } };
        for (int row = 0; row < 5; ++row) {
            QCOMPARE(grid.index(row).data().toString(), QLatin1String(tiles[row].name));
            QCOMPARE(grid.index(row).data(PhotoGridModel::badgeRole).toString(), QLatin1String(tiles[row].badge));
        }
        QTRY_VERIFY(!albums->index(1, 0).data(Qt::DecorationRole).value<QImage>().isNull()); // the cover

        QListView *view = picker->gridView();
        const auto doubleClick = [&](int row) {
            const QPoint centre = view->visualRect(grid.index(row)).center();
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, centre);
            QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, centre);
        };
        doubleClick(1);
        QVERIFY(window.photoMode());
        QCOMPARE(window.photoNavigator().photoIndex(), 1);
        QCOMPARE(window.photoNavigator().photoAssets().size(), size_t(5));
        QCOMPARE(window.recentFiles().entries().front().photoAlbumID, trip);
        doubleClick(4); // a right file opens with its left partner
        QCOMPARE(window.windowTitle(), QStringLiteral("d_L.jpg + d_R.jpg — Vorel"));

        view->selectionModel()->select(grid.index(0), QItemSelectionModel::ClearAndSelect);
        view->selectionModel()->select(grid.index(1), QItemSelectionModel::Select);
        picker->openSelectedPair();
        QCOMPARE(window.windowTitle(), QStringLiteral("a.mpo + b.jpg — Vorel"));
        QCOMPARE(window.photoNavigator().photoStepSize(), 2);
    }

    void settingsStoreThePickerAndTheFolders()
    {
        Preferences preferences(home.filePath(QStringLiteral("settings.ini")));
        PreferencesDialog dialog(preferences);
        dialog.chooseFolder = [this] { return trip; };
        const auto button = [&](const char *text) {
            for (QPushButton *b : dialog.findChildren<QPushButton *>())
                if (b->text() == QLatin1String(text))
                    return b;
            return static_cast<QPushButton *>(nullptr);
        };
        button("Add...")->click();
        button("Add...")->click(); // a folder is listed once
        dialog.findChildren<QRadioButton *>().last()->click();
        QCOMPARE(dialog.settings(), (PhotoSettings { PhotoPicker::system, { trip } }));
        dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        QCOMPARE(preferences.text(QStringLiteral("photos.picker")), QStringLiteral("system"));
        QCOMPARE(libraryFolders(preferences), QStringList { trip });
    }
};

QTEST_MAIN(PhotoWindowsTest)
#include "photowindows_test.moc"
