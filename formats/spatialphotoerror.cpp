// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/spatialphotoerror.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace Vorel {

QString SpatialPhotoError::description() const
{
    const QString fileName = QFileInfo(text).fileName();
    switch (errorKind) {
    case cannotOpenFile:
        return QCoreApplication::translate("SpatialPhotoError", "Could not open the file: ") + fileName;
    case notASpatialPhoto:
        return QCoreApplication::translate("SpatialPhotoError", "This is not a spartial photo: ") + text;
    case cannotCreateDestination:
        return QCoreApplication::translate("SpatialPhotoError", "Could not create the output destination: ") + fileName;
    case finalizationFailed:
        return QCoreApplication::translate("SpatialPhotoError", "Failed to write spatial photo: ") + fileName;
    case imageExtractionFailed:
        return QCoreApplication::translate("SpatialPhotoError", "Failed to retrieve left and right images.");
    case invalidImage:
        return QCoreApplication::translate("SpatialPhotoError", "Could not convert NSImage to CGImage");
    }
    return {};
}

} // namespace Vorel
