// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// vorel-cli: headless front end over the same engine as the application.
// Exit status: 0 success, 1 the work failed, 2 usage error, 130 a batch stopped by a signal.
#include <cstring>
#include <iostream>

#include <QCoreApplication>
#include <QStringList>

#include "app/translations.h"
#include "cli/batchcommand.h"
#include "cli/convertcommand.h"
#include "cli/librarycommand.h"
#include "cli/orientationcommand.h"
#include "cli/pipelineoptions.h"
#include "cli/stopsignals.h"

namespace {

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;

struct Command {
    const char *name;
    const char *summary;
    int (*run)(const QStringList &arguments);
    QString (*usage)();
};

int orientation(const QStringList &arguments)
{
    return Vorel::runOrientation(Vorel::parseOrientationArguments(arguments)) ? 0 : exitFailure;
}

const Command commands[] = {
    {"convert", "convert one stereo pair", Vorel::runConvert, Vorel::convertUsage},
    {"batch", "convert every stereo file of a folder", Vorel::runBatch, Vorel::batchUsage},
    {"orientation", "set the EXIF orientation of files in place", orientation, Vorel::orientationUsage},
    {"library", "list the photo library's albums or pictures", Vorel::runLibrary, Vorel::libraryUsage},
};

// Libraries start threads of their own while they load (the BLAS thread pool), before main.
// The executable's pre-initialisers run before any library's, so a batch blocks its stop
// signals here and every thread of the process inherits the blocked set.
void blockStopSignalsOfBatch(int argc, char **argv, char **)
{
    if (argc > 1 && std::strcmp(argv[1], "batch") == 0)
        Vorel::blockStopSignals();
}
[[gnu::section(".preinit_array"), gnu::used]] void (*const blockEarly)(int, char **, char **) = blockStopSignalsOfBatch;

void printUsage()
{
    std::cerr << "usage: vorel-cli COMMAND ...\n       vorel-cli --version\n\ncommands:\n";
    for (const Command &command : commands)
        std::cerr << "  " << QByteArray(command.name).leftJustified(12).constData() << command.summary
                  << " (vorel-cli " << command.name << " --help)\n";
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    Vorel::installTranslations(app);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments == QStringList{QStringLiteral("--version")}) {
        std::cout << "vorel-cli " VOREL_VERSION "\n";
        return 0;
    }
    if (arguments.isEmpty() || arguments.first() == QLatin1String("--help")) {
        printUsage();
        return arguments.isEmpty() ? exitUsage : 0;
    }
    const QString name = arguments.takeFirst();
    for (const Command &command : commands) {
        if (name != QLatin1String(command.name))
            continue;
        if (arguments.contains(QLatin1String("--help"))) {
            std::cout << command.usage().toStdString();
            return 0;
        }
        try {
            return command.run(arguments);
        } catch (const Vorel::UsageError &error) {
            std::cerr << "vorel-cli: " << error.message.toStdString() << "\n\n" << command.usage().toStdString();
            return exitUsage;
        }
    }
    std::cerr << "vorel-cli: unknown command " << name.toStdString() << "\n\n";
    printUsage();
    return exitUsage;
}
