// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/batchjoblist.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "batch/namepairing.h"
#include "core/stereofilelist.h"
#include "batch/batchtext.h"

namespace Vorel {

namespace {

constexpr qsizetype namesShown = 5;

QStringList outputNames(const QString &base, const BatchSettings &settings)
{
    const QString extension = QString::fromLatin1(batchOutputExtension(settings).data());
    if (settings.outputFormat == BatchOutputFormat::separate)
        return {base + QStringLiteral("_L.") + extension, base + QStringLiteral("_R.") + extension};
    return {base + QLatin1Char('.') + extension};
}

// The job reading `inputs`, writing the outputs named after `base` in the output folder.
BatchJob jobWritingAs(const QStringList &inputs, const QString &base, const BatchSettings &settings)
{
    BatchJob job;
    job.inputs = inputs;
    const QDir output(settings.outputFolder);
    for (const QString &name : outputNames(base, settings))
        job.outputs << output.absoluteFilePath(name);
    return job;
}

// The stereo files of the sub-folder named `letter` in either case; none without one.
QStringList subFolderFiles(const QString &folder, char letter)
{
    const QDir dir(folder);
    for (const QChar name : {QChar::fromLatin1(letter), QChar::fromLatin1(letter).toUpper()})
        if (QFileInfo(dir.filePath(QString(name))).isDir())
            return listStereoFiles(dir.filePath(QString(name)));
    return {};
}

QString baseName(const QString &path) { return QFileInfo(path).completeBaseName(); }

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
    return outputNames(baseName(inputFile), settings);
}

std::vector<BatchJob> makeBatchJobs(const QStringList &files, const BatchSettings &settings)
{
    const qsizetype step = settings.inputFormat == BatchInputFormat::separate ? 2 : 1;
    std::vector<BatchJob> jobs;
    jobs.reserve(size_t((files.size() + step - 1) / step));
    for (qsizetype i = 0; i < files.size(); i += step)
        jobs.push_back(jobWritingAs(files.mid(i, step), baseName(files[i]), settings));
    return jobs;
}

std::vector<BatchJob> listBatchJobs(const BatchSettings &settings)
{
    const QStringList files = listStereoFiles(settings.inputFolder);
    if (!(settings.inputFormat == BatchInputFormat::separate && settings.pairByName))
        return makeBatchJobs(files, settings);
    const std::vector<NamePairing> pairings = pairByName(files, subFolderFiles(settings.inputFolder, 'l'),
                                                         subFolderFiles(settings.inputFolder, 'r'));
    std::vector<BatchJob> jobs;
    for (const NamePairing &pairing : pairings) {
        if (pairing.unpaired.isEmpty()) {
            jobs.push_back(jobWritingAs({pairing.left, pairing.right}, pairing.name, settings));
            continue;
        }
        BatchJob job = jobWritingAs({pairing.unpaired}, baseName(pairing.unpaired), settings);
        job.skipReason = pairing.reason;
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
    const QString more
        = beyond > 0 ? QLatin1Char('\n') + BatchText::tr("… and %1 more files").arg(beyond) : QString();
    return BatchText::tr("%1 file(s) already exist:\n%2%3\n\nOverwrite?")
        .arg(existingNames.size())
        .arg(existingNames.mid(0, namesShown).join(QLatin1Char('\n')), more);
}

} // namespace Vorel
