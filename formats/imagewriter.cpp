// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/imagewriter.h"

#include <QFileInfo>
#include <QSaveFile>

namespace Vorel {

bool writeImage(const QImage &image, const QString &path)
{
    if (image.isNull())
        return false;
    const QString suffix = QFileInfo(path).suffix().toLower();
    const bool jpeg = suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg");
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (!image.save(&file, jpeg ? "JPEG" : "PNG", jpeg ? 90 : -1))
        return false;
    return file.commit();
}

} // namespace Vorel
