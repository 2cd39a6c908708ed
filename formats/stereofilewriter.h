// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Writing a stereo pair as one file in a pair format (MPO or JPS), atomically.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace Vorel {

enum class StereoFileFormat { mpo, jps };

class StereoFileError {
public:
    enum Code { encodingFailed, cannotWrite };

    StereoFileError(Code code, QString path) : errorCode(code), filePath(std::move(path)) {}
    Code code() const { return errorCode; }
    QString description() const;

private:
    Code errorCode;
    QString filePath;
};

// Encodes the pair in memory, then replaces the file at `path`: on failure nothing is left
// behind and an existing file stays as it was. `cameraExif`: the source's Exif block
// (readCameraExif), carried by the written pictures. Throws StereoFileError.
void writeStereoFile(const QImage &left, const QImage &right, const QString &path, StereoFileFormat format,
                     const QByteArray &cameraExif = {});

} // namespace Vorel
