// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/exiforientationwriter.h"

#include <optional>
#include <stdexcept>

#include <QCoreApplication>
#include <QFile>
#include <QMimeDatabase>
#include <QSaveFile>

#include "formats/heiforientation.h"
#include "formats/jpegorientation.h"
#include "formats/pngorientation.h"
#include "formats/tifforientation.h"

namespace Vorel {

namespace {

using WriterError = ExifOrientationWriter::WriterError;

QByteArray readWhole(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw WriterError(WriterError::cannotReadFile);
    QByteArray bytes = file.readAll();
    if (bytes.isEmpty() || file.error() != QFileDevice::NoError)
        throw WriterError(WriterError::cannotReadFile);
    return bytes;
}

// The file with the new orientation in its own format; none when its structure is broken.
std::optional<QByteArray> withOrientation(const QByteArray &bytes, const QString &mimeType, int orientation)
{
    if (mimeType == QLatin1String("image/jpeg"))
        return jpegWithOrientation(bytes, orientation);
    if (mimeType == QLatin1String("image/png"))
        return pngWithOrientation(bytes, orientation);
    if (mimeType == QLatin1String("image/tiff"))
        return tiffWithOrientation(bytes, orientation);
    if (mimeType == QLatin1String("image/heic") || mimeType == QLatin1String("image/heif"))
        return heifWithOrientation(bytes, orientation);
    throw WriterError(WriterError::unsupportedFormat, mimeType);
}

void replaceAtomically(const QString &path, const QByteArray &bytes)
{
    // A write-protected file stays protected even for a user (root) whom the system would let through.
    const bool writeProtected = !QFile::permissions(path).testFlag(QFileDevice::WriteOwner);
    QSaveFile file(path);
    // Unbuffered, as saveFileAtomically: on a full disk the write itself must fail.
    if (writeProtected || !file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw WriterError(WriterError::cannotCreateDestination);
    if (file.write(bytes) != bytes.size() || !file.commit())
        throw WriterError(WriterError::finalizeFailed);
}

} // namespace

QString ExifOrientationWriter::WriterError::description() const
{
    switch (errorCase) {
    case unsupportedFormat:
        return QCoreApplication::translate("ExifOrientationWriter", "Unsupported format: %1").arg(type);
    case cannotReadFile:
        return QCoreApplication::translate("ExifOrientationWriter", "Could not read the file");
    case unknownFileType:
        return QCoreApplication::translate("ExifOrientationWriter", "Could not determine file type");
    case cannotCreateDestination:
        return QCoreApplication::translate("ExifOrientationWriter", "Could not create write destination");
    case finalizeFailed:
        return QCoreApplication::translate("ExifOrientationWriter", "Failed to finalize the file");
    }
    return {};
}

void ExifOrientationWriter::rewrite(const QString &path, int orientation)
{
    if (orientation < 1 || orientation > 8)
        throw std::invalid_argument("EXIF orientation must be 1..8");
    const QByteArray bytes = readWhole(path);
    const QMimeType mimeType = QMimeDatabase().mimeTypeForData(bytes);
    // Only images get as far as "Unsupported format"; text and the like are of unknown type.
    if (!mimeType.isValid() || mimeType.isDefault() || !mimeType.name().startsWith(QLatin1String("image/")))
        throw WriterError(WriterError::unknownFileType);
    // A file whose structure we cannot follow is one we could not read.
    const std::optional<QByteArray> rewritten = withOrientation(bytes, mimeType.name(), orientation);
    if (!rewritten)
        throw WriterError(WriterError::cannotReadFile);
    replaceAtomically(path, *rewritten);
}

} // namespace Vorel
