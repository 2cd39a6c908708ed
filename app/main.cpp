// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// vorel [FILE | LEFT RIGHT]: the application; paths given (as desktop launchers pass them)
// are opened like the open command opens them. vorel --version prints the version.
#include <cstring>
#include <iostream>

#include <QApplication>

#include "app/mainwindow.h"
#include "app/translations.h"

int main(int argc, char *argv[])
{
    // Answered before QApplication connects to a display, so it works on any terminal.
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
        std::cout << "vorel " VOREL_VERSION "\n";
        return 0;
    }
    QApplication app(argc, argv);
    Vorel::installTranslations(app);
    // The X11 window class is "Vorel" from this name: the launcher's StartupWMClass.
    QApplication::setApplicationName(QStringLiteral("Vorel"));
    QApplication::setOrganizationName(QStringLiteral("Vorel"));
    // Wayland compositors find the launcher (name, icon) by this id.
    QGuiApplication::setDesktopFileName(QStringLiteral(VOREL_APP_ID));
    Vorel::MainWindow window;
    window.show();
    const QStringList paths = QApplication::arguments().mid(1);
    if (!paths.isEmpty())
        window.openPaths(paths);
    return QApplication::exec();
}
