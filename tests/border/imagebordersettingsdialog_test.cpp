// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGraphicsOpacityEffect>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "border/imagebordersettingsdialog.h"
#include "core/preferences.h"

using namespace Vorel;

class ImageBorderSettingsDialogTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir dir;

    QString iniPath() const { return dir.filePath(QStringLiteral("prefs.ini")); }

    static void press(ImageBorderSettingsDialog &dialog, QDialogButtonBox::StandardButton which)
    {
        dialog.findChild<QDialogButtonBox *>()->button(which)->click();
    }

private slots:
    void numberFieldsConfirm_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("expected");
        QTest::newRow("unparsable width") << "borderWidth" << "abc" << 3.0;
        QTest::newRow("negative width kept") << "borderWidth" << "-5" << -5.0;
        QTest::newRow("empty corner radius") << "cornerRadius" << "" << 0.0;
        QTest::newRow("unparsable blur") << "blur" << "1,5" << 0.0;
        QTest::newRow("unparsable dot size") << "dotSize" << "big" << 3.0;
        QTest::newRow("dot size") << "dotSize" << "7.25" << 7.25;
    }

    void numberFieldsConfirm()
    {
        QFETCH(QString, field);
        QFETCH(QString, typed);
        QFETCH(double, expected);
        ImageBorderSettings start;
        start.borderWidthPercent = start.cornerRadiusPercent = start.borderBlur = start.fusionDotSizePercent = 9;
        Preferences preferences(iniPath());
        ImageBorderSettingsDialog dialog(start, std::nullopt, preferences);
        dialog.findChild<QLineEdit *>(field)->setText(typed);
        QSignalSpy confirmed(&dialog, &ImageBorderSettingsDialog::settingsConfirmed);
        press(dialog, QDialogButtonBox::Ok);
        QCOMPARE(confirmed.size(), 1);
        const ImageBorderSettings s = confirmed.first().first().value<ImageBorderSettings>();
        const double values[] = {s.borderWidthPercent, s.cornerRadiusPercent, s.borderBlur, s.fusionDotSizePercent};
        const QStringList names{"borderWidth", "cornerRadius", "blur", "dotSize"};
        for (int i = 0; i < 4; ++i)
            QCOMPARE(values[i], names[i] == field ? expected : 9.0);
        QCOMPARE(ImageBorderSettings::load(preferences), s);
    }

    void oneDecimalRoundTrip()
    {
        ImageBorderSettings start;
        start.borderBlur = 1.26;
        start.borderWidthPercent = 2.04;
        start.layoutKind = BorderLayoutKind::lrl;
        Preferences preferences(iniPath());
        ImageBorderSettingsDialog dialog(start, std::nullopt, preferences);
        QCOMPARE(dialog.findChild<QLineEdit *>("blur")->text(), QStringLiteral("1.3"));
        QCOMPARE(dialog.findChild<QLineEdit *>("borderWidth")->text(), QStringLiteral("2.0"));
        const ImageBorderSettings shown = dialog.settings();
        QCOMPARE(shown.borderBlur, 1.3);
        QCOMPARE(shown.borderWidthPercent, 2.0);
        QCOMPARE(shown.layoutKind, BorderLayoutKind::lrl);
        QCOMPARE(shown.borderColor, start.borderColor);
    }

    void groupsFollowTheirCheckBoxes()
    {
        ImageBorderSettings start;
        start.useFusionDots = false;
        Preferences preferences(iniPath());
        ImageBorderSettingsDialog dialog(start, std::nullopt, preferences);
        QWidget *width = dialog.findChild<QLineEdit *>("borderWidth");
        QWidget *size = dialog.findChild<QLineEdit *>("dotSize");
        const auto opacityOf = [](QWidget *field) {
            return static_cast<QGraphicsOpacityEffect *>(field->parentWidget()->graphicsEffect())->opacity();
        };
        for (const bool toggled : {false, true}) { // as opened, then with both boxes toggled
            if (toggled) {
                dialog.findChild<QCheckBox *>("useBorder")->setChecked(false);
                dialog.findChild<QCheckBox *>("useFusionDots")->setChecked(true);
            }
            QCOMPARE(width->isEnabled(), !toggled);
            QCOMPARE(opacityOf(width), toggled ? 0.4 : 1.0);
            QCOMPARE(size->isEnabled(), toggled);
            QCOMPARE(opacityOf(size), toggled ? 1.0 : 0.4);
        }
    }

    void cancelStoresNothing()
    {
        QTemporaryDir own;
        Preferences preferences(own.filePath(QStringLiteral("prefs.ini")));
        ImageBorderSettingsDialog dialog(ImageBorderSettings(), std::nullopt, preferences);
        dialog.findChild<QComboBox *>("layout")->setCurrentIndex(0);
        QSignalSpy confirmed(&dialog, &ImageBorderSettingsDialog::settingsConfirmed);
        press(dialog, QDialogButtonBox::Cancel);
        QCOMPARE(confirmed.size(), 0);
        QVERIFY(!preferences.contains(QStringLiteral("ib.layoutKind")));
    }
};

QTEST_MAIN(ImageBorderSettingsDialogTest)
#include "imagebordersettingsdialog_test.moc"
