// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// vorel [FILE | LEFT RIGHT]: the application; paths given (as desktop launchers pass them)
// are opened like the open command opens them.
#include <QApplication>

#include "app/mainwindow.h"

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vorel"));
    QApplication::setOrganizationName(QStringLiteral("Vorel"));
    Vorel::MainWindow window;
    window.show();
    const QStringList paths = QApplication::arguments().mid(1);
    if (!paths.isEmpty())
        window.openPaths(paths);
    return QApplication::exec();
}
