// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stereointake.h"

#include <QFileInfo>

#include "core/stereoimageprocessor.h"
#include "formats/imagereader.h"
#include "formats/mpo.h"
#include "formats/spatialphoto.h"

namespace Vorel {

namespace {

bool openSideBySide(StereoImageProcessor &proc, const QString &path)
{
    const std::optional<QImage> image = loadCorrectImageOriented(path);
    if (!image || image->width() < 2)
        return false;
    proc.loadSideBySide(*image, true);
    return true;
}

bool openMpo(StereoImageProcessor &proc, const QString &path)
{
    try {
        const auto [left, right] = extractMPO(path);
        proc.loadPair(left, right, true);
        return true;
    } catch (const MpoError &) {
        return false;
    }
}

bool openSpatialPhoto(StereoImageProcessor &proc, const QString &path)
{
    try {
        const ImagePair pair = readSpatialPhoto(path);
        proc.loadPair(pair.left, pair.right, true);
        return true;
    } catch (const SpatialPhotoError &) {
        return false;
    }
}

} // namespace

bool openEntry(StereoImageProcessor &proc, const StereoEntry &entry, StereoFileKind kind)
{
    if (entry.isSeparatePair()) {
        const std::optional<QImage> left = loadCorrectImageOriented(entry.left);
        const std::optional<QImage> right = loadCorrectImageOriented(entry.right);
        if (!left || !right)
            return false;
        proc.loadPair(*left, *right, true);
        return true;
    }
    if (kind == StereoFileKind::byExtension) {
        const QString suffix = QFileInfo(entry.left).suffix().toUpper();
        if (suffix == QLatin1String("MPO"))
            kind = StereoFileKind::mpo;
        else if (suffix == QLatin1String("HEIC"))
            kind = StereoFileKind::spatial;
        else
            kind = StereoFileKind::sideBySide;
    }
    if (kind == StereoFileKind::mpo && openMpo(proc, entry.left))
        return true;
    if (kind == StereoFileKind::spatial && openSpatialPhoto(proc, entry.left))
        return true;
    // Files that are not what their kind says are read as side-by-side pictures.
    return openSideBySide(proc, entry.left);
}

} // namespace Vorel
