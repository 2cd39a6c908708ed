// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stereointake.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "core/stereoimageprocessor.h"
#include "formats/cameraexif.h"
#include "formats/imagereader.h"
#include "formats/jps.h"
#include "formats/mpo.h"
#include "formats/spatialphoto.h"

namespace Vorel {

namespace {

struct IntakeText {
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
};

QImage readUpright(const QString &path)
{
    std::optional<QImage> image = loadCorrectImageOriented(path);
    if (!image)
        throw StereoIntakeError{IntakeText::tr("Cannot open %1").arg(QFileInfo(path).fileName())};
    return *std::move(image);
}

StereoFileKind kindOfFile(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toUpper();
    if (suffix == QLatin1String("MPO"))
        return StereoFileKind::mpo;
    if (suffix == QLatin1String("HEIC"))
        return StereoFileKind::spatial;
    if (suffix == QLatin1String("JPS") || suffix == QLatin1String("PNS"))
        return StereoFileKind::jps;
    return StereoFileKind::sideBySide;
}

// A picture made of two views needs an even number of columns (rows) to split them fairly;
// an odd one means the file is not what it is opened as.
void requireEvenSplit(const QImage &image, bool overUnder, const QString &path)
{
    const int extent = overUnder ? image.height() : image.width();
    if (extent >= 2 && extent % 2 == 0)
        return;
    const QString name = QFileInfo(path).fileName();
    throw StereoIntakeError{overUnder
                                ? IntakeText::tr("%1 cannot be an over/under picture: its height of %2 rows is odd.")
                                      .arg(name)
                                      .arg(image.height())
                                : IntakeText::tr("%1 cannot be a side-by-side pair: its width of %2 columns is odd.")
                                      .arg(name)
                                      .arg(image.width())};
}

// A JPS (PNS) picture as its descriptor says: views squeezed to half size are stretched back,
// and the right view comes first unless the descriptor says otherwise.
void loadJps(StereoImageProcessor &proc, const QString &path)
{
    JpsDescriptor layout;
    try {
        layout = readJpsDescriptor(path);
    } catch (const JpsError &error) {
        throw StereoIntakeError{error.description()};
    }
    const bool overUnder = layout.layout == JpsDescriptor::Layout::overUnder;
    QImage image = readUpright(path);
    requireEvenSplit(image, overUnder, path);
    if (layout.halfWidth || layout.halfHeight)
        image = image.scaled(image.width() * (layout.halfWidth ? 2 : 1), image.height() * (layout.halfHeight ? 2 : 1),
                             Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (image.isNull())
        throw StereoIntakeError{IntakeText::tr("Cannot open %1").arg(QFileInfo(path).fileName())};
    if (overUnder)
        proc.loadOverUnder(image, layout.leftFirst);
    else
        proc.loadSideBySide(image, layout.leftFirst);
    if (!layout.leftFirst) {
        const QImage first = *proc.leftOriginal, second = *proc.rightOriginal;
        proc.loadPair(second, first, true);
    }
}

void loadSingleFile(StereoImageProcessor &proc, const QString &path, StereoFileKind kind)
{
    if (kind == StereoFileKind::byExtension)
        kind = kindOfFile(path);
    switch (kind) {
    case StereoFileKind::mpo:
        try {
            const auto [left, right] = extractMPO(path);
            proc.loadPair(left, right, true);
        } catch (const MpoError &error) {
            throw StereoIntakeError{error.description()};
        }
        return;
    case StereoFileKind::spatial:
        try {
            const ImagePair pair = readSpatialPhoto(path);
            proc.loadPair(pair.left, pair.right, true);
        } catch (const SpatialPhotoError &error) {
            throw StereoIntakeError{error.description()};
        }
        return;
    case StereoFileKind::jps:
        loadJps(proc, path);
        return;
    case StereoFileKind::overUnder: {
        const QImage image = readUpright(path);
        requireEvenSplit(image, true, path);
        proc.loadOverUnder(image, true);
        return;
    }
    default: {
        const QImage image = readUpright(path);
        if (image.width() < 2) // no room for two halves
            throw StereoIntakeError{IntakeText::tr("Cannot open %1").arg(QFileInfo(path).fileName())};
        proc.loadSideBySide(image, true);
        return;
    }
    }
}

} // namespace

void loadEntry(StereoImageProcessor &proc, const StereoEntry &entry, StereoFileKind kind)
{
    if (entry.isSeparatePair()) {
        const QImage left = readUpright(entry.left);
        const QImage right = readUpright(entry.right);
        proc.loadPair(left, right, true);
    } else {
        loadSingleFile(proc, entry.left, kind);
    }
    proc.cameraExif = readCameraExif(entry.left);
}

bool openEntry(StereoImageProcessor &proc, const StereoEntry &entry, StereoFileKind kind)
{
    if (kind == StereoFileKind::byExtension && !entry.isSeparatePair())
        kind = kindOfFile(entry.left);
    try {
        loadEntry(proc, entry, kind);
        return true;
    } catch (const StereoIntakeError &) {
    }
    if (entry.isSeparatePair() || kind == StereoFileKind::sideBySide)
        return false;
    // Files that are not what their kind says are read as side-by-side pictures.
    try {
        loadEntry(proc, StereoEntry{entry.left, {}}, StereoFileKind::sideBySide);
        return true;
    } catch (const StereoIntakeError &) {
        return false;
    }
}

} // namespace Vorel
