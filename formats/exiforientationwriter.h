// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Rewrites the EXIF orientation of one image file in place, in the file's own format,
// changing nothing but the orientation.
#pragma once

#include <utility>

#include <QString>

namespace Vorel {

class ExifOrientationWriter {
public:
    class WriterError {
    public:
        enum Case { unsupportedFormat, cannotReadFile, unknownFileType, cannotCreateDestination, finalizeFailed };

        explicit WriterError(Case c, QString typeIdentifier = {})
            : errorCase(c)
            , type(std::move(typeIdentifier))
        {
        }
        Case which() const { return errorCase; }
        QString description() const;

    private:
        Case errorCase;
        QString type; // payload of unsupportedFormat: the file's MIME type
    };

    // Sets the orientation (1..8) of the image file at `path`; the type comes from the file's
    // content. JPEG, TIFF and PNG get their IFD0 Orientation tag; HEIC/HEIF get irot/imir on
    // the primary image and the tag of its Exif item. The file is replaced atomically, so on
    // any failure (a thrown WriterError) it stays untouched.
    static void rewrite(const QString &path, int orientation);
};

} // namespace Vorel
