// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the real vorel-cli for the tests, each run with an empty preferences store of its own.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <unistd.h>

#include "tests/testsupport.h"

namespace Vorel::CliTest {

using TestSupport::readAll;
using TestSupport::writeAll;

inline const QString data = QStringLiteral(VOREL_TEST_DATA);

struct CliRun {
    int exitCode = -1; // -1 when the program crashed or did not finish
    QString out, err;
};

// Starts vorel-cli. As root, without the capabilities that let root ignore file modes, so
// that unreadable files and read-only folders mean for the test what they mean for users.
inline void startCli(QProcess &process, const QStringList &arguments, const QString &configHome)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), configHome);
    process.setProcessEnvironment(environment);
    process.setReadChannel(QProcess::StandardError); // the progress lines
    if (geteuid() == 0)
        process.start(QStringLiteral("setpriv"), QStringList{QStringLiteral("--bounding-set=-dac_override,-dac_read_search"),
                                                             QStringLiteral(VOREL_CLI)} + arguments);
    else
        process.start(QStringLiteral(VOREL_CLI), arguments);
}

inline CliRun runCli(const QStringList &arguments, const QString &configHome = {})
{
    QTemporaryDir emptyConfig;
    QProcess process;
    startCli(process, arguments, configHome.isEmpty() ? emptyConfig.path() : configHome);
    process.waitForFinished(300000);
    CliRun run{process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
               QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
    return run;
}

// Copies test data files into `folder` under new names: {data path, name}.
inline bool copyData(const QString &folder, const std::vector<std::pair<QString, QString>> &files)
{
    QDir().mkpath(folder);
    for (const auto &[source, name] : files)
        if (!QFile::copy(TestSupport::testData(source), folder + QLatin1Char('/') + name))
            return false;
    return true;
}

// One object per line of a JSON lines text (the library listing, the batch log).
inline QList<QJsonObject> jsonLines(const QByteArray &text)
{
    QList<QJsonObject> objects;
    for (const QByteArray &line : text.split('\n'))
        if (!line.isEmpty())
            objects.append(QJsonDocument::fromJson(line).object());
    return objects;
}

// Writes `bytes` to `path`, making its folder first; the path, or an empty string on failure.
inline QString writeFile(const QString &path, const QByteArray &bytes = {})
{
    QDir().mkpath(QFileInfo(path).path());
    return writeAll(path, bytes) ? path : QString();
}

// Reads the progress lines of a started run until `line` appears or the run ends.
inline void waitForProgress(QProcess &run, const char *line)
{
    QByteArray progress;
    while (!progress.contains(line) && run.waitForReadyRead(60000))
        progress += run.readAllStandardError();
}

} // namespace Vorel::CliTest
