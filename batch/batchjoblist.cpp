// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/batchjoblist.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace Vorel {

namespace {

constexpr qsizetype namesShown = 5;

QString tr(const char *text) { return QCoreApplication::translate("BatchProcessor", text); }

} // namespace

QString BatchJob::displayName() const
{
    QStringList names;
    for (const QString &input : inputs)
        names << QFileInfo(input).fileName();
    return names.join(QStringLiteral(" + "));
}

QStringList batchOutputNames(const QString &inputFile, const BatchSettings &settings)
{
    const QString base = QFileInfo(inputFile).completeBaseName();
    const QString extension = settings.outputFormat == BatchOutputFormat::spatial
                                  ? QStringLiteral("heic")
                                  : QString::fromLatin1(batchFileFormats[size_t(settings.fileFormat)].cliName.data());
    if (settings.outputFormat == BatchOutputFormat::separate)
        return {base + QStringLiteral("_L.") + extension, base + QStringLiteral("_R.") + extension};
    return {base + QLatin1Char('.') + extension};
}

std::vector<BatchJob> makeBatchJobs(const QStringList &files, const BatchSettings &settings)
{
    const qsizetype step = settings.inputFormat == BatchInputFormat::separate ? 2 : 1;
    const QDir output(settings.outputFolder);
    std::vector<BatchJob> jobs;
    jobs.reserve(size_t((files.size() + step - 1) / step));
    for (qsizetype i = 0; i < files.size(); i += step) {
        BatchJob job;
        job.inputs = files.mid(i, step);
        for (const QString &name : batchOutputNames(files[i], settings))
            job.outputs << output.absoluteFilePath(name);
        jobs.push_back(std::move(job));
    }
    return jobs;
}

QStringList existingOutputNames(const std::vector<BatchJob> &jobs)
{
    QStringList existing;
    for (const BatchJob &job : jobs)
        for (const QString &output : job.outputs)
            if (QFileInfo::exists(output))
                existing << QFileInfo(output).fileName();
    return existing;
}

QString overwriteQuestion(const QStringList &existingNames)
{
    const qsizetype beyond = existingNames.size() - namesShown;
    const QString more = beyond > 0 ? QLatin1Char('\n') + tr("… and %1 more files").arg(beyond) : QString();
    return tr("%1 file(s) already exist:\n%2%3\n\nOverwrite?")
        .arg(existingNames.size())
        .arg(existingNames.mid(0, namesShown).join(QLatin1Char('\n')), more);
}

} // namespace Vorel
