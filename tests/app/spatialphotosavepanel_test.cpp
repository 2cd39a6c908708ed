// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The spatial photo save dialog: field texts, validation as typed, reset, and what a
// confirmation stores and hands on.
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include "app/spatialphotosavepanel.h"
#include "core/preferences.h"

using namespace Vorel;

class SpatialPhotoSavePanelTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir;

    static QPushButton *saveButton(SpatialPhotoSavePanel &panel)
    {
        return panel.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save);
    }

private slots:
    void fieldsStartFromUsableStoredValues()
    {
        Preferences store(dir.filePath(QStringLiteral("a.ini")));
        const QStringList fresh{"63.4", "200", "0.019240"}, stored{"75.25", "200", "0.065000"};
        for (const QStringList &shown : {fresh, stored}) {
            SpatialPhotoSavePanel panel(store);
            QCOMPARE((QStringList{panel.fovField->text(), panel.adjField->text(), panel.stbField->text()}), shown);
            store.setNumber(QStringLiteral("spatialPhoto.fov"), 75.25);
            store.setInteger(QStringLiteral("spatialPhoto.adj"), -5); // below 1: the default shows
            store.setNumber(QStringLiteral("spatialPhoto.stb"), 0.065);
        }
    }

    void typingValidatesEachField()
    {
        Preferences store(dir.filePath(QStringLiteral("b.ini")));
        SpatialPhotoSavePanel panel(store);
        struct Case {
            QLineEdit *field;
            const char *text;
            bool valid;
        };
        const Case cases[] = {{panel.fovField, "180", false}, {panel.fovField, "179.9", true},
                              {panel.fovField, "0", false},   {panel.adjField, "abc", false},
                              {panel.adjField, "-5", true},   {panel.adjField, "+7", true},
                              {panel.adjField, "", false},    {panel.adjField, "1.5", false},
                              {panel.stbField, "0", false},   {panel.stbField, "0.5", true}};
        for (const Case &c : cases) {
            c.field->clear();
            QTest::keyClicks(c.field, QString::fromLatin1(c.text));
            if (QString::fromLatin1(c.text).isEmpty())
                emit c.field->textEdited(QString());
            QCOMPARE(c.field->styleSheet().isEmpty(), c.valid);
            QCOMPARE(saveButton(panel)->isEnabled(), c.valid);
            c.field->setText(c.field == panel.fovField ? QStringLiteral("60") : QStringLiteral("1"));
            emit c.field->textEdited(c.field->text());
        }
        panel.fovField->setText(QStringLiteral("999"));
        panel.resetButton->click();
        QCOMPARE(panel.fovField->text(), QStringLiteral("63.4"));
        QCOMPARE(panel.stbField->text(), QStringLiteral("0.019240"));
        QVERIFY(saveButton(panel)->isEnabled());
        QVERIFY(!store.contains(QStringLiteral("spatialPhoto.fov"))); // reset does not store
    }

    void confirmationStoresAndHandsOn()
    {
        Preferences store(dir.filePath(QStringLiteral("c.ini")));
        SpatialPhotoSavePanel panel(store);
        QString chosenPath;
        double fov = 0, stb = 0;
        int adj = 0;
        panel.completion = [&](const QString &path, double f, int a, double s) {
            chosenPath = path, fov = f, adj = a, stb = s;
        };
        panel.setDirectory(dir.path());
        panel.fovField->setText(QStringLiteral("70"));
        panel.adjField->setText(QStringLiteral("-5"));
        panel.selectFile(QStringLiteral("out.heic"));
        panel.accept();
        QCOMPARE(chosenPath, dir.filePath(QStringLiteral("out.heic")));
        QCOMPARE(fov, 70.0);
        QCOMPARE(adj, -5);
        QCOMPARE(stb, 0.01924);
        QCOMPARE(store.number(QStringLiteral("spatialPhoto.fov")), 70.0);
        QCOMPARE(store.integer(QStringLiteral("spatialPhoto.adj")), -5);
    }
};

QTEST_MAIN(SpatialPhotoSavePanelTest)
#include "spatialphotosavepanel_test.moc"
