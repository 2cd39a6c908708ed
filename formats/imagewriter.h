// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Writes one image, encoded by the lower-cased extension of the target: jpg/jpeg, png,
// tif/tiff, heic, bmp; any other extension writes PNG data under the given name. JPEG and
// HEIC at quality 90. The write is atomic: on failure an existing file stays untouched.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace Vorel {

// The quality of every lossy encoding the application writes (0..100).
inline constexpr int lossyQuality = 90;

// `cameraExif`: the source's Exif block (readCameraExif); when not empty, every format but
// BMP carries it, rewritten for the written pixels (exifForWrittenPicture).
bool writeImage(const QImage &image, const QString &path, const QByteArray &cameraExif = {});

// Replaces the file at `path` with `bytes` atomically; false when that fails.
bool saveFileAtomically(const QString &path, const QByteArray &bytes);

} // namespace Vorel
