// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batchprogress.h"

#include <iostream>

#include <QCoreApplication>

#include "cli/joblog.h"
#include "cli/clitext.h"

namespace Vorel {

namespace {

constexpr int barWidth = 24;
constexpr qsizetype nameWidth = 32;

QString clockTime(double seconds)
{
    const auto s = qint64(seconds + 0.5);
    return s >= 3600 ? QStringLiteral("%1:%2:%3").arg(s / 3600).arg(s / 60 % 60, 2, 10, QLatin1Char('0')).arg(s % 60, 2, 10, QLatin1Char('0'))
                     : QStringLiteral("%1:%2").arg(s / 60).arg(s % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

BatchProgress::BatchProgress(size_t total, bool terminal) : total(total), terminal(terminal) { clock.start(); }

void BatchProgress::drawBar(size_t index, const QString &name) const
{
    const int filled = total ? int(barWidth * done / total) : barWidth;
    const QString bar = QString(filled, QLatin1Char('#')) + QString(barWidth - filled, QLatin1Char('.'));
    const double elapsed = double(clock.elapsed()) / 1000;
    // The mean time of the jobs that really ran: skipped jobs take no time worth counting.
    const QString remaining =
        worked ? clockTime(workSeconds / double(worked) * double(total - done)) : QStringLiteral("--:--");
    const QString shownName = name.size() > nameWidth ? QStringLiteral("…") + name.right(nameWidth - 1) : name;
    std::cerr << '\r'
              << CliText::tr("[%1] %2/%3 %4  %5 elapsed, %6 left")
                     .arg(bar)
                     .arg(index + 1)
                     .arg(total)
                     .arg(shownName, clockTime(elapsed), remaining)
                     .toStdString()
              << "\x1b[K" << std::flush;
}

void BatchProgress::jobStarted(size_t index, const BatchJob &job)
{
    if (terminal)
        drawBar(index, job.displayName());
}

void BatchProgress::jobFinished(size_t index, const BatchJob &job, const JobResult &result)
{
    ++done;
    if (result.status == JobStatus::ok) {
        ++written;
    } else if (result.status == JobStatus::skippedExisting) {
        ++skipped;
    } else if (result.status == JobStatus::failed) {
        failures.emplace_back(job.displayName(), result.error);
    } else if (result.status == JobStatus::skippedUnpaired) {
        unpaired.emplace_back(job.displayName(), result.error);
    }
    if (result.status != JobStatus::skippedExisting && result.status != JobStatus::skippedUnpaired) {
        ++worked;
        workSeconds += result.seconds;
    }
    QString line = QStringLiteral("[%1/%2] %3: %4").arg(index + 1).arg(total).arg(job.displayName(), jobStatusName(result.status));
    if (!result.error.isEmpty())
        line += QStringLiteral(": ") + result.error;
    for (const QString &warning : result.warnings)
        line += QStringLiteral(" (") + warning + QLatin1Char(')');
    // On a terminal only what the bar cannot show gets a line of its own.
    if (!terminal)
        std::cerr << line.toStdString() << '\n';
    else if (result.status == JobStatus::failed || result.status == JobStatus::skippedUnpaired ||
             !result.warnings.isEmpty())
        std::cerr << "\r\x1b[K" << line.toStdString() << '\n';
}

void BatchProgress::finish(bool stopped)
{
    if (terminal)
        std::cerr << "\r\x1b[K";
    std::cerr << CliText::tr("%1 of %2 jobs done in %3: %4 written, %5 skipped as existing, %6 failed")
                     .arg(done)
                     .arg(total)
                     .arg(clockTime(double(clock.elapsed()) / 1000))
                     .arg(written)
                     .arg(skipped)
                     .arg(failures.size())
                     .toStdString()
              << '\n';
    if (stopped)
        std::cerr << CliText::tr("Processing aborted.").toStdString() << '\n';
    const auto list = [](const char *title, const std::vector<std::pair<QString, QString>> &jobs) {
        if (jobs.empty())
            return;
        std::cerr << CliText::tr(title).toStdString() << '\n';
        for (const auto &[name, reason] : jobs)
            std::cerr << "  " << name.toStdString() << ": " << reason.toStdString() << '\n';
    };
    list(QT_TRANSLATE_NOOP("VorelCli", "Skipped without a partner:"), unpaired);
    list(QT_TRANSLATE_NOOP("VorelCli", "Failed:"), failures);
}

} // namespace Vorel
