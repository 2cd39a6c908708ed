// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/orientationrewriterun.h"

#include <algorithm>

#include <QCoreApplication>
#include <QFileInfo>

#include "formats/exiforientationwriter.h"

namespace Vorel {

namespace {

struct OrientationText {
    Q_DECLARE_TR_FUNCTIONS(ExifOrientationPanel)
};

} // namespace

ProcessResult rewriteOrientation(const QString &path, int orientation)
{
    ProcessResult result {QFileInfo(path).fileName(), false, {}};
    try {
        ExifOrientationWriter::rewrite(path, orientation);
        result.success = true;
        result.message = OrientationText::tr("Success (Orientation → %1)").arg(orientation);
    } catch (const ExifOrientationWriter::WriterError &error) {
        result.message = error.description();
    }
    return result;
}

QList<ProcessResult> rewriteOrientations(
    const QStringList &paths, int orientation, const std::function<void(int)> &filesDone)
{
    QList<ProcessResult> results;
    for (const QString &path : paths) {
        results.append(rewriteOrientation(path, orientation));
        if (filesDone)
            filesDone(int(results.size()));
    }
    return results;
}

QString translatedOrientationLabel(int orientation)
{
    return OrientationText::tr(orientationLabels.at(orientation - 1));
}

QString progressText(int filesDone, int fileCount)
{
    return OrientationText::tr("Processing %1 of %2 files").arg(filesDone).arg(fileCount);
}

QString summaryText(const QList<ProcessResult> &results)
{
    const auto successes
        = std::count_if(results.begin(), results.end(), [](const ProcessResult &r) { return r.success; });
    const auto failures = results.size() - successes;
    QStringList lines;
    if (failures == 0)
        lines << OrientationText::tr("✅ All %1 files written successfully").arg(results.size());
    else
        lines << OrientationText::tr("⚠️ %1 succeeded / %2 failed").arg(successes).arg(failures);
    for (const ProcessResult &r : results)
        lines << (r.success ? QStringLiteral("✅") : QStringLiteral("❌")) + QLatin1Char(' ') + r.fileName
                + QStringLiteral("\n   → ") + r.message;
    return lines.join(QLatin1Char('\n'));
}

} // namespace Vorel
