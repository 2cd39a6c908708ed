// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Spatial photos: one HEIC file holding a stereo pair as two images, grouped as a stereo pair
// (left first) and each described by a simple pinhole camera, as headsets show them.
#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

#include "core/stereotypes.h"
#include "formats/spatialphotoerror.h"

namespace Vorel {

// Reads the pair of a spatial photo. Throws SpatialPhotoError.
ImagePair readSpatialPhoto(const QString &path);

// Writes `left` and `right` (alpha is dropped; odd sizes lose their last column or row, so that
// each eye is one plain coded image) with the horizontal field of view `fov` in degrees, the
// disparity adjustment `adj` and the stereo base `stb` in metres. Prints the three values on
// the console first. Each eye carries `cameraExif` (readCameraExif), rewritten for its size, as
// an Exif item. The file is replaced atomically. Throws SpatialPhotoError.
void writeSpatialPhoto(const QImage &left, const QImage &right, const QString &path, int adj, double fov, double stb,
                       const QByteArray &cameraExif = {});

// What a spatial photo says about its cameras, derived from the left image's intrinsics and
// both positions; none where a property is missing.
struct SpatialParameters {
    std::optional<double> fov; // degrees
    std::optional<int> adj;
    std::optional<double> stb; // metres
};
SpatialParameters readSpatialParameters(const QByteArray &file);

} // namespace Vorel
