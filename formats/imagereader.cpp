// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/imagereader.h"

#include <QImageReader>

namespace Vorel {

std::optional<QImage> loadCorrectImageOriented(const QString &path)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    QImage image = reader.read();
    if (image.isNull())
        return std::nullopt;
    return image;
}

} // namespace Vorel
