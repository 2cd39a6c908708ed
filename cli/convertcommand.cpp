// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/convertcommand.h"

#include <iostream>
#include <string>

#include <QCoreApplication>
#include <QFileInfo>

#include <unistd.h>

#include "batch/jobpipeline.h"
#include "cli/pipelineoptions.h"
#include "core/preferences.h"
#include "cli/clitext.h"

namespace Vorel {

namespace {

// Asks on the terminal; without one (scripts, CI) an existing file is never replaced silently.
bool mayOverwrite(const QString &path)
{
    if (!QFileInfo::exists(path))
        return true;
    if (!isatty(STDIN_FILENO))
        return false;
    std::cerr << CliText::tr("Overwrite %1? [y/N] ").arg(path).toStdString() << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

// Separate output writes OUTPUT's name with "_L" and "_R" before its extension.
QStringList outputPaths(const QString &output, const BatchSettings &settings)
{
    if (settings.outputFormat != BatchOutputFormat::separate)
        return {output};
    const QString suffix = QFileInfo(output).suffix();
    const QString dotSuffix = suffix.isEmpty() ? QString() : QLatin1Char('.') + suffix;
    const QString stem = output.left(output.size() - dotSuffix.size());
    return {stem + QStringLiteral("_L") + dotSuffix, stem + QStringLiteral("_R") + dotSuffix};
}

} // namespace

BatchJob convertJob(const PipelineOptions &options, const BatchSettings &settings)
{
    const QStringList &paths = options.positional;
    const bool separateInput = settings.inputFormat == BatchInputFormat::separate && options.inputGiven;
    if (paths.size() == 3 && options.inputGiven && !separateInput)
        throw UsageError{CliText::tr("two inputs are a separate pair; --input must be separate or left out")};
    if (separateInput && paths.size() != 3)
        throw UsageError{CliText::tr("a separate pair needs LEFT RIGHT OUTPUT")};
    if (paths.size() != 2 && paths.size() != 3)
        throw UsageError{CliText::tr("expected INPUT [RIGHT] OUTPUT")};
    BatchJob job;
    job.inputs = paths.mid(0, paths.size() - 1);
    job.outputs = outputPaths(paths.last(), settings);
    job.openAsWindow = !options.inputGiven;
    return job;
}

int runConvert(const QStringList &arguments)
{
    const PipelineOptions options = parsePipelineOptions(arguments, CliCommand::convert);
    const Preferences preferences;
    // Only the spatial parameters come from the preferences: the values last used.
    const BatchSettings stored = BatchSettings::load(preferences);
    BatchSettings base;
    base.spatialFov = stored.spatialFov;
    base.spatialAdj = stored.spatialAdj;
    base.spatialStb = stored.spatialStb;
    const BatchSettings settings = options.settings(base);
    const BatchJob job = convertJob(options, settings);

    for (const QString &output : job.outputs)
        if (!options.overwrite && !mayOverwrite(output)) {
            std::cerr << "vorel-cli: " << CliText::tr("%1 exists; pass --yes to overwrite it").arg(output).toStdString()
                      << '\n';
            return 1;
        }
    const JobResult result = runJobPipeline(settings, job, ImageBorderSettings::load(preferences), {});
    for (const QString &warning : result.warnings)
        std::cerr << "vorel-cli: " << warning.toStdString() << '\n';
    if (result.status == JobStatus::ok)
        return 0;
    std::cerr << "vorel-cli: " << job.inputs.join(QStringLiteral(" + ")).toStdString() << ": "
              << result.error.toStdString() << '\n';
    return 1;
}

QString convertUsage()
{
    return CliText::tr("usage: vorel-cli convert [options] INPUT [RIGHT] OUTPUT\n") + optionsHelp(CliCommand::convert) +
        CliText::tr("The spatial parameters default to the values last used in the window. The extension\n"
                    "of OUTPUT picks the encoding: jpg/jpeg, png, tif/tiff, heic, bmp (else PNG); --output mpo\n"
                    "and jps always write JPEG data. INPUT files ending in .jps or .pns are read as JPS.\n"
                    "Outputs keep the camera Exif of INPUT (of LEFT for a pair) unless --strip-metadata.\n"
                    "Exit status: 0 written, 1 the work failed, 2 usage error.\n");
}

} // namespace Vorel
