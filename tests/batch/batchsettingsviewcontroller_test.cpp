// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The batch settings dialog (offscreen): what it shows from empty and stored preferences,
// validation that keeps it open, what it stores, and how the main window opens it.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

#include "app/controlpanelwidget.h"
#include "app/cropoverlayview.h"
#include "app/mainwindow.h"
#include "app/pairview.h"
#include "batch/batchprogressviewcontroller.h"
#include "batch/batchsettingsviewcontroller.h"
#include "core/preferences.h"

using namespace Vorel;

class BatchSettingsViewControllerTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir;
    std::unique_ptr<Preferences> store;
    std::unique_ptr<BatchSettingsViewController> dialog;
    QStringList alerts;
    int storeCount = 0;

    std::vector<BatchSettings> handed; // what settingsConfirmed passed on

    void open(const std::optional<BatchCropSettings> &crop = {}, const std::optional<BatchResizeSettings> &resize = {})
    {
        dialog = std::make_unique<BatchSettingsViewController>(*store, crop, resize);
        dialog->alert = [this](const QString &text) { alerts << text; };
        connect(dialog.get(), &BatchSettingsViewController::settingsConfirmed, this,
                [this](const BatchSettings &settings) { handed.push_back(settings); });
        dialog->show();
    }

    static QStringList items(const QComboBox *box)
    {
        QStringList texts;
        for (int i = 0; i < box->count(); ++i)
            texts << box->itemText(i);
        return texts;
    }

    template <typename Enum, size_t N> static QStringList texts(const std::array<BatchChoice<Enum>, N> &choices)
    {
        QStringList result;
        for (const BatchChoice<Enum> &choice : choices)
            result << QString::fromLatin1(choice.uiText);
        return result;
    }

private slots:
    void init()
    {
        store = std::make_unique<Preferences>(dir.filePath(QStringLiteral("p%1.ini").arg(++storeCount)));
        alerts.clear();
        handed.clear();
    }

    void emptyPreferencesShowTheDefaults()
    {
        open();
        const QString notSelected = QStringLiteral("(Not selected)");
        QCOMPARE(dialog->inputFolderLabel->text(), notSelected);
        QCOMPARE(dialog->outputFolderLabel->text(), notSelected);
        QCOMPARE(items(dialog->inputFormatPopUp), texts(batchInputFormats));
        QCOMPARE(items(dialog->outputFormatPopUp), texts(batchOutputFormats));
        QCOMPARE(items(dialog->fileFormatPopUp), texts(batchFileFormats));
        QCOMPARE(items(dialog->referencePopUp), (QStringList{QStringLiteral("Right Reference"), QStringLiteral("Left Reference")}));
        QCOMPARE(dialog->resizeWField->text(), QStringLiteral("1920"));
        QCOMPARE(dialog->resizeHField->text(), QStringLiteral("1080"));
        QVERIFY(dialog->resizeModeRadios[0]->isChecked()); // not merely none of the others
        QCOMPARE(dialog->fovField->text(), QStringLiteral("63.4"));
        QCOMPARE(dialog->adjField->text(), QStringLiteral("200"));
        QCOMPARE(dialog->stbField->text(), QStringLiteral("0.01924"));
        QCOMPARE(dialog->resizeAspectRatio(), 1920.0 / 1080.0);
        // No box ticked, no choice made, nothing typed differs from the defaults, but the unchosen folders.
        BatchSettings expected;
        expected.inputFolder = expected.outputFolder = notSelected;
        QCOMPARE(dialog->settings(), expected);
    }

    void validationKeepsTheDialogOpen_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("output");
        QTest::addColumn<QString>("cropW");
        QTest::addColumn<QString>("resizeW"); // empty: resizing off
        QTest::addColumn<QString>("message");
        const QString folder = QStringLiteral("/tmp");
        QTest::newRow("input not selected") << QStringLiteral("(Not selected)") << folder << QString() << QString()
                                            << QStringLiteral("Please specify an input folder.");
        QTest::newRow("input only spaces") << QStringLiteral("   ") << folder << QString() << QString()
                                           << QStringLiteral("Please specify an input folder.");
        QTest::newRow("output not selected") << folder << QStringLiteral("(Not selected)") << QString() << QString()
                                             << QStringLiteral("Please specify an output folder.");
        QTest::newRow("crop before resize") << folder << folder << QStringLiteral("0") << QStringLiteral("0")
                                            << QStringLiteral("Crop size (W, H) must be greater than 0.");
        QTest::newRow("resize") << folder << folder << QString() << QStringLiteral("-4")
                                << QStringLiteral("Resize dimensions (W, H) must be greater than 0.");
    }

    void validationKeepsTheDialogOpen()
    {
        QFETCH(QString, input);
        QFETCH(QString, output);
        QFETCH(QString, cropW);
        QFETCH(QString, resizeW);
        QFETCH(QString, message);
        open();
        dialog->inputFolderLabel->setText(input);
        dialog->outputFolderLabel->setText(output);
        dialog->cropCheck->setChecked(!cropW.isNull());
        dialog->cropFields[2]->setText(cropW);
        dialog->cropFields[3]->setText(QStringLiteral("10"));
        dialog->resizeCheck->setChecked(!resizeW.isNull());
        dialog->resizeWField->setText(resizeW);
        dialog->startButton->click();
        QCOMPARE(alerts, QStringList{message});
        QVERIFY(dialog->isVisible());
        QVERIFY(handed.empty());
        QVERIFY(!store->contains(QStringLiteral("batch.inputFolder")));
    }

    void startStoresAndHandsOverTheRecord()
    {
        open();
        dialog->inputFolderLabel->setText(dir.path());
        dialog->outputFolderLabel->setText(dir.path());
        dialog->adjField->setText(QStringLiteral("12.9"));
        dialog->fovField->setText(QStringLiteral("wide")); // unparsable: the field's default
        dialog->resizeHField->setText(QStringLiteral("7.5"));
        dialog->manualFields[1]->setText(QStringLiteral("-1.25"));
        dialog->referencePopUp->setCurrentIndex(1);
        dialog->outputFormatPopUp->setCurrentIndex(int(BatchOutputFormat::anaglyphDubois));
        dialog->resizeModeRadios[2]->setChecked(true);
        dialog->startButton->click();
        QVERIFY(alerts.isEmpty());
        QVERIFY(!dialog->isVisible());
        QCOMPARE(handed.size(), size_t(1));
        const BatchSettings &record = handed.front();
        QCOMPARE(record.spatialAdj, 12);
        QCOMPARE(record.spatialFov, 63.4);
        QCOMPARE(record.resizeH, 1080);
        QCOMPARE(record.manualV, -1.25);
        QCOMPARE(record.outputFormat, BatchOutputFormat::anaglyphDubois);
        QCOMPARE(record.resizeMode, ResizeMode::letterbox);
        QCOMPARE(store->integer(QStringLiteral("spatialPhoto.adj")), 12);
        QVERIFY(store->flag(QStringLiteral("batch.autoAdjColLeft")));
        QCOMPARE(store->integer(QStringLiteral("batch.resizeMode")), 2);
        QCOMPARE(BatchSettings::load(*store), record);

        open(); // the next opening shows what was stored
        QCOMPARE(dialog->referencePopUp->currentText(), QStringLiteral("Left Reference"));
        QCOMPARE(dialog->inputFolderLabel->text(), dir.path());
        QCOMPARE(dialog->adjField->text(), QStringLiteral("12"));
        QCOMPARE(dialog->outputFormatPopUp->currentText(), QStringLiteral("Dubois Anaglyph"));
        QVERIFY(dialog->resizeModeRadios[2]->isChecked());
    }

    void viewerChoicesReplaceTheStoredCropAndResize()
    {
        store->setInteger(QStringLiteral("batch.cropW"), 77);
        store->setInteger(QStringLiteral("batch.resizeW"), 640);
        open(BatchCropSettings{1, 2, 300, 200}, BatchResizeSettings{800, 600, ResizeMode::cropFit});
        const QStringList crop{dialog->cropFields[0]->text(), dialog->cropFields[1]->text(), dialog->cropFields[2]->text(),
                               dialog->cropFields[3]->text()};
        QCOMPARE(crop, (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("300"), QStringLiteral("200")}));
        QCOMPARE(dialog->resizeWField->text(), QStringLiteral("800"));
        QVERIFY(dialog->resizeModeRadios[1]->isChecked());
        QCOMPARE(dialog->resizeAspectRatio(), 800.0 / 600.0);
        // With the ratio fixed, typing one side writes the other.
        dialog->resizeCheck->setChecked(true);
        dialog->fixedAspectCheck->setChecked(true);
        dialog->resizeWField->clear();
        QTest::keyClicks(dialog->resizeWField, QStringLiteral("400"));
        QCOMPARE(dialog->resizeHField->text(), QStringLiteral("300"));
    }

    void resetAndDrop()
    {
        open();
        dialog->fovField->setText(QStringLiteral("90"));
        dialog->adjField->setText(QStringLiteral("5"));
        dialog->stbField->setText(QStringLiteral("0.065"));
        dialog->resetSpatialButton->click();
        QCOMPARE(dialog->fovField->text(), QStringLiteral("63.4"));
        QCOMPARE(dialog->adjField->text(), QStringLiteral("200"));
        QCOMPARE(dialog->stbField->text(), QStringLiteral("0.01924"));

        const QString file = dir.filePath(QStringLiteral("notes.txt"));
        QFile notes(file);
        QVERIFY(notes.open(QIODevice::WriteOnly));
        notes.close();
        const struct {
            QString dropped;
            QString shown;
        } rows[] = {{file, QStringLiteral("(Not selected)")}, {dir.path(), dir.path()}}; // a file is refused
        for (const auto &row : rows) {
            QMimeData mime;
            mime.setUrls({QUrl::fromLocalFile(row.dropped)});
            QLabel *target = dialog->outputFolderLabel;
            QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(target, &enter);
            if (enter.isAccepted()) {
                QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
                QApplication::sendEvent(target, &drop);
            }
            QCOMPARE(target->text(), row.shown);
        }
    }

    // The window: "Batch operation..." in the File menu and on panel page 0; B remembers the
    // adjustment, then opens the dialog on this session's crop and resize; Start runs the batch.
    void windowWiring()
    {
        auto *windowStore = new Preferences(dir.filePath(QStringLiteral("window.ini")));
        MainWindow window{std::unique_ptr<Preferences>(windowStore)};
        window.show();
        QStringList fileMenu;
        for (const QAction *action : window.menuBar()->actions().first()->menu()->actions())
            fileMenu << (action->isSeparator() ? QStringLiteral("-") : action->text().section(QLatin1Char('\t'), 0, 0));
        QCOMPARE(fileMenu.mid(fileMenu.indexOf(QStringLiteral("-"))),
                 (QStringList{QStringLiteral("-"), QStringLiteral("Batch operation..."), QStringLiteral("Orientation Tag Edit...")}));
        QStringList page0;
        for (const QPushButton *button : window.controlPanel()->widget(0)->findChildren<QPushButton *>())
            page0 << button->text();
        const qsizetype batchButton = page0.indexOf(QStringLiteral("Batch operation..."));
        QCOMPARE(page0.mid(batchButton - 1, 3), (QStringList{QStringLiteral("Save as Spatial Photo..."), QStringLiteral("Batch operation..."),
                                                             QStringLiteral("Orientation Tag Edit...")}));

        QVERIFY(window.openPaths({QStringLiteral(VOREL_TEST_DATA "/stereo/02-super-mario.jpg")}));
        window.cpCrop();
        QTRY_VERIFY(window.pairView()->cropOverlay()->width() > 0);
        window.pairView()->cropOverlay()->setCropRect(QRectF(10, 20, 100, 80));
        window.cpCrop();
        window.resizePair(400, 300, ResizeMode::letterbox);
        window.nudgeAdjustment(0.5, 0);
        QTest::keyClick(window.windowHandle(), Qt::Key_B); // as the keyboard delivers it
        auto *opened = window.findChild<BatchSettingsViewController *>();
        QVERIFY(opened && opened->isVisible());
        QCOMPARE(opened->manualFields[0]->text(), QStringLiteral("0.5")); // remembered before opening
        QCOMPARE(opened->cropFields[2]->text(), QString::number(int(windowStore->number(QStringLiteral("batch.cropW")))));
        QVERIFY(opened->cropFields[2]->text().toInt() > 0);
        QCOMPARE(opened->resizeWField->text(), QStringLiteral("400"));
        QVERIFY(opened->resizeModeRadios[2]->isChecked());

        QTemporaryDir input, output;
        QVERIFY(QFile::copy(QStringLiteral(VOREL_TEST_DATA "/stereo/left.jpg"), input.filePath(QStringLiteral("left.jpg"))));
        opened->inputFolderLabel->setText(input.path());
        opened->outputFolderLabel->setText(output.path());
        opened->resizeCheck->setChecked(true);
        opened->startButton->click();
        auto *progress = window.findChild<BatchProgressViewController *>();
        QVERIFY(progress && progress->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(progress->isFinished, 30000);
        QCOMPARE(progress->fileNameLabel->text(), QStringLiteral("All files processed successfully."));
        QCOMPARE(QImage(output.filePath(QStringLiteral("left.jpg"))).size(), QSize(400 * 2, 300));
    }
};

QTEST_MAIN(BatchSettingsViewControllerTest)
#include "batchsettingsviewcontroller_test.moc"
