// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Reads one image file upright: JPEG, TIFF and PNG by their EXIF orientation (1..8),
// HEIC/HEIF by their irot/imir transforms. Never throws; none for anything unreadable.
#pragma once

#include <optional>

#include <QImage>
#include <QString>

namespace Vorel {

std::optional<QImage> loadCorrectImageOriented(const QString &path);

} // namespace Vorel
