// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stereointake.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "core/stereoimageprocessor.h"
#include "formats/imagereader.h"
#include "formats/mpo.h"
#include "formats/spatialphoto.h"

namespace Vorel {

namespace {

QImage readUpright(const QString &path)
{
    std::optional<QImage> image = loadCorrectImageOriented(path);
    if (!image)
        throw StereoIntakeError{
            QCoreApplication::translate("MainWindow", "Cannot open %1").arg(QFileInfo(path).fileName())};
    return *std::move(image);
}

StereoFileKind kindOfFile(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toUpper();
    if (suffix == QLatin1String("MPO"))
        return StereoFileKind::mpo;
    if (suffix == QLatin1String("HEIC"))
        return StereoFileKind::spatial;
    return StereoFileKind::sideBySide;
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
    default: {
        const QImage image = readUpright(path);
        if (image.width() < 2) // no room for two halves
            throw StereoIntakeError{
                QCoreApplication::translate("MainWindow", "Cannot open %1").arg(QFileInfo(path).fileName())};
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
        return;
    }
    loadSingleFile(proc, entry.left, kind);
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
        loadSingleFile(proc, entry.left, StereoFileKind::sideBySide);
        return true;
    } catch (const StereoIntakeError &) {
        return false;
    }
}

} // namespace Vorel
