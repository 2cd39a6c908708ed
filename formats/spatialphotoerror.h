// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What reading or writing a spatial photo reports when it fails.
#pragma once

#include <QString>

namespace Vorel {

class SpatialPhotoError {
public:
    enum Kind { cannotOpenFile, notASpatialPhoto, cannotCreateDestination, finalizationFailed, imageExtractionFailed,
                invalidImage };

    // `payload` is the file path for the file cases and the reason for notASpatialPhoto.
    explicit SpatialPhotoError(Kind kind, QString payload = {}) : errorKind(kind), text(std::move(payload)) {}
    Kind kind() const { return errorKind; }
    QString description() const;

private:
    Kind errorKind;
    QString text;
};

} // namespace Vorel
