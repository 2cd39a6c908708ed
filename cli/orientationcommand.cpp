// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/orientationcommand.h"

#include <algorithm>
#include <iostream>

#include "cli/clitext.h"
#include "cli/pipelineoptions.h"
#include "formats/orientationrewriterun.h"

namespace Vorel {

OrientationRequest parseOrientationArguments(const QStringList &arguments)
{
    if (arguments.size() < 2)
        throw UsageError{CliText::tr("orientation expects a VALUE and at least one FILE")};
    bool ok = false;
    const int value = arguments.first().toInt(&ok);
    if (!ok || value < 1 || value > int(orientationLabels.size()))
        throw UsageError{CliText::tr("orientation VALUE must be 1..8, not \"%1\"").arg(arguments.first())};
    return {value, arguments.mid(1)};
}

bool runOrientation(const OrientationRequest &request)
{
    const auto count = int(request.files.size());
    const QList<ProcessResult> results = rewriteOrientations(request.files, request.orientation,
        [count](int filesDone) { std::cerr << progressText(filesDone, count).toStdString() << '\n'; });
    std::cout << summaryText(results).toStdString() << '\n';
    return std::all_of(results.begin(), results.end(), [](const ProcessResult &r) { return r.success; });
}

QString orientationUsage()
{
    QString usage = CliText::tr("usage: vorel-cli orientation VALUE FILE...\n"
                                "Sets the EXIF orientation of each JPEG, PNG, TIFF or HEIC file in place.\n"
                                "VALUE:\n");
    for (int value = 1; value <= int(orientationLabels.size()); ++value)
        usage += QStringLiteral("  %1\n").arg(translatedOrientationLabel(value));
    return usage;
}

} // namespace Vorel
