// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/joblog.h"

#include <utility>

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Vorel {

namespace {

constexpr std::pair<JobStatus, const char *> statusNames[] = {
    {JobStatus::ok, "ok"},
    {JobStatus::failed, "failed"},
    {JobStatus::skippedExisting, "skipped-existing"},
    {JobStatus::cancelled, "cancelled"},
    {JobStatus::skippedUnpaired, "skipped-unpaired"},
};

QJsonArray fileNames(const QStringList &paths)
{
    QJsonArray names;
    for (const QString &path : paths)
        names.append(QFileInfo(path).fileName());
    return names;
}

} // namespace

QString jobStatusName(JobStatus status)
{
    for (const auto &[value, name] : statusNames)
        if (value == status)
            return QLatin1String(name);
    return {};
}

bool JobLog::open(const QString &path)
{
    if (path.isEmpty())
        return true;
    file.setFileName(path);
    // Unbuffered: each line reaches the file in one append, whole even when shards share it.
    return file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
}

void JobLog::write(const BatchJob &job, const JobResult &result)
{
    if (!file.isOpen())
        return;
    const QJsonObject entry{
        {QStringLiteral("inputs"), fileNames(job.inputs)},
        {QStringLiteral("outputs"), fileNames(job.outputs)},
        {QStringLiteral("status"), jobStatusName(result.status)},
        {QStringLiteral("error"), result.error},
        {QStringLiteral("warnings"), QJsonArray::fromStringList(result.warnings)},
        {QStringLiteral("seconds"), result.seconds},
    };
    file.write(QJsonDocument(entry).toJson(QJsonDocument::Compact) + '\n');
}

} // namespace Vorel
