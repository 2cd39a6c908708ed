// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/jobpipeline.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QRect>

#include "align/autoalign.h"
#include "align/colormatching.h"
#include "border/borderedpair.h"
#include "core/stereoimageprocessor.h"
#include "core/stereointake.h"
#include "formats/imagewriter.h"
#include "formats/spatialphotoerror.h"
#include "formats/stereofilewriter.h"
#include "batch/batchtext.h"

namespace Vorel {

namespace {

// A stage that cannot go on; its text becomes the job's error.
struct StageFailure {
    QString text;
};
struct Cancelled {};

StereoFileKind strictKind(BatchInputFormat format)
{
    switch (format) {
    case BatchInputFormat::spatial:
        return StereoFileKind::spatial;
    case BatchInputFormat::mpo:
        return StereoFileKind::mpo;
    case BatchInputFormat::jps:
        return StereoFileKind::jps;
    case BatchInputFormat::overUnder:
        return StereoFileKind::overUnder;
    default:
        return StereoFileKind::sideBySide;
    }
}

void load(StereoImageProcessor &proc, const BatchSettings &settings, const BatchJob &job)
{
    const bool separate = job.inputs.size() == 2;
    if (job.inputs.size() == 1 && settings.inputFormat == BatchInputFormat::separate && !job.openAsWindow)
        throw StageFailure{BatchText::tr("No right image to pair with %1").arg(QFileInfo(job.inputs[0]).fileName())};
    const StereoEntry entry{job.inputs.value(0), separate ? job.inputs[1] : QString()};
    if (job.openAsWindow) {
        if (!openEntry(proc, entry))
            throw StageFailure{BatchText::tr("Cannot open %1").arg(job.displayName())};
        return;
    }
    try {
        loadEntry(proc, entry, strictKind(settings.inputFormat));
    } catch (const StereoIntakeError &error) {
        throw StageFailure{error.description};
    }
}

void writeOutputs(const StereoImageProcessor &proc, const BatchSettings &settings, const BatchJob &job,
                  const ImageBorderSettings &border)
{
    const QString &path = job.outputs.value(0);
    const auto written = [&](const std::optional<QImage> &picture, const QString &target) {
        if (!picture || !writeImage(*picture, target, proc.cameraExif))
            throw StageFailure{BatchText::tr("Could not save %1").arg(QFileInfo(target).fileName())};
    };
    if (const std::optional<DisplayMode> mode = displayModeWritten(settings.outputFormat)) {
        written(proc.renderDisplayPicture(*mode, false), path);
        return;
    }
    switch (settings.outputFormat) {
    case BatchOutputFormat::spatial:
        try {
            proc.saveAsSpatialPhoto(path, settings.spatialAdj, settings.spatialFov, settings.spatialStb);
        } catch (const SpatialPhotoError &error) {
            throw StageFailure{error.description()};
        }
        return;
    case BatchOutputFormat::imageBorder:
        written(composeBorderedPair(proc, border, false), path);
        return;
    case BatchOutputFormat::separate: {
        const std::optional<ImagePair> pair = proc.renderFullWidth(false);
        written(pair ? std::optional(pair->left) : std::nullopt, path);
        try {
            written(pair ? std::optional(pair->right) : std::nullopt, job.outputs.value(1));
        } catch (const StageFailure &) {
            // Both views or neither: a lone left view would pass for a finished job to
            // --skip-existing only when the right one appears, and to a person never.
            QFile::remove(path);
            throw;
        }
        return;
    }
    case BatchOutputFormat::mpo:
    case BatchOutputFormat::jps: {
        const std::optional<ImagePair> pair = proc.renderFullWidth(false);
        const StereoFileFormat format =
            settings.outputFormat == BatchOutputFormat::mpo ? StereoFileFormat::mpo : StereoFileFormat::jps;
        if (!pair)
            throw StageFailure{BatchText::tr("Could not save %1").arg(QFileInfo(path).fileName())};
        try {
            writeStereoFile(pair->left, pair->right, path, format, proc.cameraExif);
        } catch (const StereoFileError &error) {
            throw StageFailure{error.description()};
        }
        return;
    }
    default:
        return; // every other output is a display picture
    }
}

void runStages(const BatchSettings &settings, const BatchJob &job, const ImageBorderSettings &border,
               const CancelCheck &isCancelled, QStringList &warnings)
{
    const auto checkpoint = [&] {
        if (isCancelled && isCancelled())
            throw Cancelled{};
    };
    StereoImageProcessor proc;
    proc.keepsHistory = false;
    checkpoint();
    load(proc, settings, job);
    checkpoint();
    if (settings.stripMetadata)
        proc.cameraExif.clear();
    // The source images stay in place; every output shows them exchanged.
    proc.isSwap = settings.swapLR;
    if (settings.autoAdj) {
        if (const std::optional<QImage> aligned = autoAlign(*proc.leftOriginal, *proc.rightOriginal))
            proc.loadSideBySide(*aligned, false);
        else
            warnings << BatchText::tr("Automatic alignment found nothing to match; the pair was not aligned.");
        checkpoint();
    }
    if (settings.autoAdjCol) {
        // The stored left-reference choice is the flag itself, as the batch has always passed it.
        matchColours(proc, settings.autoAdjColLeft);
        checkpoint();
    }
    if (settings.manualAdj)
        proc.adjustment = StereoAdjustment{settings.manualH, settings.manualV, settings.manualRot, settings.manualScale};
    if (settings.cropEnabled && settings.cropW >= 1 && settings.cropH >= 1) {
        if (!proc.cropPair(QRect(settings.cropX, settings.cropY, settings.cropW, settings.cropH)))
            throw StageFailure{BatchText::tr("The crop rectangle lies outside the picture.")};
        checkpoint();
    }
    if (settings.resizeEnabled) {
        if (!proc.resizePair(settings.resizeW, settings.resizeH, settings.resizeMode))
            throw StageFailure{BatchText::tr("Could not resize the pair.")};
        checkpoint();
    }
    writeOutputs(proc, settings, job, border);
}

} // namespace

JobResult runJobPipeline(const BatchSettings &settings, const BatchJob &job, const ImageBorderSettings &border,
                         const CancelCheck &isCancelled)
{
    QElapsedTimer clock;
    clock.start();
    JobResult result;
    try {
        runStages(settings, job, border, isCancelled, result.warnings);
    } catch (const StageFailure &failure) {
        result.status = JobStatus::failed;
        result.error = failure.text;
    } catch (const Cancelled &) {
        result.status = JobStatus::cancelled;
    } catch (const std::bad_alloc &) {
        result.status = JobStatus::failed;
        result.error = BatchText::tr("Not enough memory for %1").arg(job.displayName());
    }
    result.seconds = double(clock.nsecsElapsed()) / 1e9;
    return result;
}

} // namespace Vorel
