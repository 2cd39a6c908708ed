// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The window under a German system locale (set by the test's environment), offscreen: the
// catalogue built into the program is found and the menus are German.
#include <QMenuBar>
#include <QTemporaryDir>
#include <QtTest>

#include "app/mainwindow.h"
#include "app/translations.h"
#include "core/preferences.h"

class GermanWindowTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir;

private slots:
    void initTestCase() { Vorel::installTranslations(*QCoreApplication::instance()); }

    void menuTitlesAreGerman()
    {
        Vorel::MainWindow window(std::make_unique<Vorel::Preferences>(dir.filePath(QStringLiteral("p.ini"))));
        QStringList titles;
        for (const QAction *menu : window.menuBar()->actions())
            titles << menu->text();
        QCOMPARE(titles, (QStringList{QStringLiteral("Datei"), QStringLiteral("Bearbeiten"), QStringLiteral("Ansicht")}));
    }
};

QTEST_MAIN(GermanWindowTest)
#include "germanwindow_test.moc"
