// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The per-image camera properties of a HEIF stereo pair: intrinsics (a simplified pinhole),
// the camera position, and the disparity adjustment. Written in the uuid forms headset
// captures carry; read in those and in the four-character 'cmin'/'cmex' forms.
#pragma once

#include <optional>

#include <QByteArray>

namespace Vorel::Heif {

// In pixels of the coded image the property belongs to (its 'ispe').
struct CameraIntrinsics {
    double focalLength = 0; // fx = fy
    double principalX = 0;
    double principalY = 0;
};

// Property boxes, ready for ipco. `width`/`height`: the coded image size.
QByteArray intrinsicsProperty(const CameraIntrinsics &intrinsics, int width, int height);
QByteArray positionProperty(double xMetres); // identity rotation, y = z = 0
QByteArray disparityProperty(qint32 adjustment);

// What a property box says, if it is one of the three kinds (else none).
std::optional<CameraIntrinsics> readIntrinsics(const QByteArray &box, int width, int height);
std::optional<double> readPositionX(const QByteArray &box); // metres
std::optional<qint32> readDisparity(const QByteArray &box);

} // namespace Vorel::Heif
