// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Writing a stereo pair as an MPO file: two baseline JPEGs joined by an MP index, laid out as
// 3-D cameras write them (docs/mpo-layout.md).
#pragma once

#include <optional>

#include <QByteArray>
#include <QImage>

namespace Vorel {

// Left picture first, both at the lossy quality; each carries `cameraExif` (readCameraExif)
// rewritten for its own size. None when a picture cannot be encoded.
std::optional<QByteArray> encodeMpo(const QImage &left, const QImage &right, const QByteArray &cameraExif = {});

} // namespace Vorel
