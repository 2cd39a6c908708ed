// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The resize sheet on a 4000 x 3000 pair: aspect lock, previews, confirmation.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include "app/resizedialog.h"
#include "core/preferences.h"

using namespace Vorel;

namespace {

// Translates every text to itself in brackets, so an untranslated text shows.
class MarkingTranslator : public QTranslator {
public:
    static QString mark(const QString &text) { return QLatin1Char('[') + text + QLatin1Char(']'); }
    QString translate(const char *, const char *sourceText, const char *, int) const override
    {
        return mark(QString::fromUtf8(sourceText));
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class ResizeDialogTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir;

private slots:
    void lockKeepsTheAspectRatio()
    {
        Preferences store(dir.filePath(QStringLiteral("a.ini")));
        ResizeDialog sheet({4000, 3000}, store);
        sheet.widthField->setText(QStringLiteral("1000"));
        QCOMPARE(sheet.heightField->text(), QStringLiteral("750"));
        sheet.heightField->setText(QStringLiteral("333"));
        QCOMPARE(sheet.widthField->text(), QStringLiteral("444"));
        sheet.widthField->setText(QStringLiteral("abc"));
        QCOMPARE(sheet.heightField->text(), QStringLiteral("333"));
        sheet.lockAspectCheck->setChecked(false);
        sheet.widthField->setText(QStringLiteral("10"));
        QCOMPARE(sheet.heightField->text(), QStringLiteral("333"));
    }

    // Each preview in English, then through a translator that marks every text it is asked for.
    void previewPerMode()
    {
        Preferences store(dir.filePath(QStringLiteral("b.ini")));
        ResizeDialog sheet({4000, 3000}, store);
        sheet.lockAspectCheck->setChecked(false);
        sheet.widthField->setText(QStringLiteral("1000"));
        sheet.heightField->setText(QStringLiteral("1000"));
        const char *const previews[] = {"→ Resize to 1000 × 1000 px",
                                        "→ Extract the image’s center: 3000 × 3000 px → 1000 × 1000 px",
                                        "→ 1000 × 1000 px（image 1000 × 750 px）"};
        MarkingTranslator marking;
        for (const bool translated : {false, true}) {
            if (translated)
                QCoreApplication::installTranslator(&marking);
            for (int mode = 0; mode < 3; ++mode) {
                sheet.modeRadios[mode]->click();
                const QString english = QString::fromUtf8(previews[mode]);
                QCOMPARE(sheet.previewLabel->text(), translated ? MarkingTranslator::mark(english) : english);
            }
        }
        QCoreApplication::removeTranslator(&marking);
        sheet.heightField->setText(QStringLiteral("x"));
        QCOMPARE(sheet.previewLabel->text(), QString());
    }

    void confirmationNeedsPositiveIntegersAndStoresTheChoice()
    {
        Preferences store(dir.filePath(QStringLiteral("c.ini")));
        ResizeDialog sheet({4000, 3000}, store);
        QStringList alerts;
        sheet.alert = [&alerts](const QString &text) { alerts << text; };
        QSignalSpy confirmed(&sheet, &ResizeDialog::resizeConfirmed);
        sheet.lockAspectCheck->setChecked(false);
        for (const char *width : {"0", "-5", ""}) {
            sheet.widthField->setText(QString::fromLatin1(width));
            sheet.accept();
        }
        QCOMPARE(alerts, QStringList(3, QStringLiteral("Please enter positive integers for width and height.")));
        QVERIFY(!store.contains(QStringLiteral("batch.resizeW")));
        sheet.widthField->setText(QStringLiteral("+640"));
        sheet.heightField->setText(QStringLiteral("480"));
        sheet.modeRadios[2]->click();
        sheet.accept();
        QCOMPARE(confirmed.size(), 1);
        QCOMPARE(confirmed[0][0].toInt(), 640);
        QCOMPARE(confirmed[0][2].value<ResizeMode>(), ResizeMode::letterbox);
        QCOMPARE(store.integer(QStringLiteral("batch.resizeW")), 640);
        QCOMPARE(store.integer(QStringLiteral("batch.resizeMode")), 2);
    }
};

QTEST_MAIN(ResizeDialogTest)
#include "resizedialog_test.moc"
