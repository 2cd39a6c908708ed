// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace Vorel {

namespace {

void install(QCoreApplication &app, const QString &name, const QStringList &folders)
{
    auto *translator = new QTranslator(&app);
    for (const QString &folder : folders)
        if (translator->load(QLocale(), name, QStringLiteral("_"), folder)) {
            app.installTranslator(translator);
            return;
        }
    delete translator;
}

} // namespace

void installTranslations(QCoreApplication &app)
{
    install(app, QStringLiteral("qtbase"), {QLibraryInfo::path(QLibraryInfo::TranslationsPath)});
    // An installed catalogue comes first, so an updated one can be dropped in without a rebuild;
    // the one built into the program serves the build tree and everything else.
    const QString installed = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral(VOREL_TRANSLATIONS_FROM_BINDIR));
    install(app, QStringLiteral("vorel"), {installed, QStringLiteral(":/i18n")});
}

} // namespace Vorel
