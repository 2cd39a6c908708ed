// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>

#include "app/mainwindow.h"

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vorel"));
    QApplication::setOrganizationName(QStringLiteral("Vorel"));
    Vorel::MainWindow window;
    window.show();
    return QApplication::exec();
}
