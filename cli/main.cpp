// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// vorel-cli: headless front end over the same engine as the application.
// Exit status: 0 success, 1 the work failed, 2 usage error.
#include <iostream>

#include <QCoreApplication>
#include <QStringList>

#include "cli/convertcommand.h"
#include "cli/convertoptions.h"
#include "cli/orientationcommand.h"

namespace {

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;

void printUsage()
{
    std::cerr << "usage: vorel-cli COMMAND ...\n\ncommands:\n"
              << "  convert      convert one stereo pair (vorel-cli convert --help)\n"
              << "  orientation  set the EXIF orientation of files in place (vorel-cli orientation --help)\n\n"
              << Vorel::convertUsage().toStdString();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.isEmpty() || arguments.first() == QLatin1String("--help")) {
        printUsage();
        return arguments.isEmpty() ? exitUsage : 0;
    }
    const QString command = arguments.takeFirst();
    try {
        if (command == QLatin1String("convert")) {
            if (arguments.contains(QLatin1String("--help"))) {
                std::cout << Vorel::convertUsage().toStdString();
                return 0;
            }
            Vorel::runConvert(Vorel::parseConvertOptions(arguments));
            return 0;
        }
        if (command == QLatin1String("orientation")) {
            if (arguments.contains(QLatin1String("--help"))) {
                std::cout << Vorel::orientationUsage().toStdString();
                return 0;
            }
            return Vorel::runOrientation(Vorel::parseOrientationArguments(arguments)) ? 0 : exitFailure;
        }
        std::cerr << "vorel-cli: unknown command " << command.toStdString() << "\n\n";
        printUsage();
        return exitUsage;
    } catch (const Vorel::UsageError &error) {
        const QString usage =
            command == QLatin1String("orientation") ? Vorel::orientationUsage() : Vorel::convertUsage();
        std::cerr << "vorel-cli: " << error.message.toStdString() << "\n\n" << usage.toStdString();
        return exitUsage;
    } catch (const Vorel::ConvertError &error) {
        std::cerr << "vorel-cli: " << error.message.toStdString() << '\n';
        return exitFailure;
    }
}
