// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/spatialphotoerror.h"

#include <QFileInfo>

namespace Vorel {

QString SpatialPhotoError::description() const
{
    const QString fileName = QFileInfo(text).fileName();
    switch (errorKind) {
    case cannotOpenFile:
        return QStringLiteral("Could not open the file: ") + fileName;
    case notASpatialPhoto:
        return QStringLiteral("This is not a spartial photo: ") + text;
    case cannotCreateDestination:
        return QStringLiteral("Could not create the output destination: ") + fileName;
    case finalizationFailed:
        return QStringLiteral("Failed to write spatial photo: ") + fileName;
    case imageExtractionFailed:
        return QStringLiteral("Failed to retrieve left and right images.");
    case invalidImage:
        return QStringLiteral("Could not convert NSImage to CGImage");
    }
    return {};
}

} // namespace Vorel
