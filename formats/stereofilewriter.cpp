// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/stereofilewriter.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "formats/imagewriter.h"
#include "formats/jps.h"
#include "formats/mpowriter.h"

namespace Vorel {

QString StereoFileError::description() const
{
    const QString name = QFileInfo(filePath).fileName();
    return errorCode == encodingFailed
        ? QCoreApplication::translate("StereoFileError", "The stereo pair cannot be encoded for \"%1\"").arg(name)
        : QCoreApplication::translate("StereoFileError", "The file \"%1\" cannot be written").arg(name);
}

void writeStereoFile(const QImage &left, const QImage &right, const QString &path, StereoFileFormat format,
                     const QByteArray &cameraExif)
{
    const std::optional<QByteArray> bytes =
        format == StereoFileFormat::mpo ? encodeMpo(left, right, cameraExif) : encodeJps(left, right, cameraExif);
    if (!bytes)
        throw StereoFileError(StereoFileError::encodingFailed, path);
    if (!saveFileAtomically(path, *bytes))
        throw StereoFileError(StereoFileError::cannotWrite, path);
}

} // namespace Vorel
