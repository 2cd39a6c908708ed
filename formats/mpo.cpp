// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/mpo.h"

#include <QCoreApplication>
#include <QFile>

#include "formats/colourprofile.h"
#include "formats/jpegcodec.h"
#include "formats/mpindex.h"
#include "formats/srgbconversion.h"

namespace Vorel {

namespace {

// Files edited by other tools sometimes keep a picture offset that is a few bytes stale;
// the picture is then found at the nearest start-of-image marker close by.
constexpr qsizetype resyncWindow = 256;

qsizetype pictureStart(const QByteArray &bytes, qsizetype offset)
{
    static const QByteArray soi("\xFF\xD8\xFF");
    if (bytes.mid(offset, 3) == soi)
        return offset;
    for (qsizetype d = 1; d <= resyncWindow; ++d)
        for (qsizetype at : {offset + d, offset - d})
            if (at >= 0 && bytes.mid(at, 3) == soi)
                return at;
    return -1;
}

} // namespace

QString MpoError::description() const
{
    return errorCode == invalidFile ? QCoreApplication::translate("MpoError", "Invalid MPO file")
                                    : QCoreApplication::translate("MpoError", "Failed to extract MPO images");
}

std::pair<QImage, QImage> extractMPO(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw MpoError(MpoError::invalidFile);
    const QByteArray bytes = file.readAll();
    // A JPEG without an index is a single picture, which is not enough for a pair.
    const std::vector<MpPicture> pictures = readMpIndex(bytes);
    if (pictures.size() < 2)
        throw MpoError(MpoError::invalidFile);
    QByteArray profile; // a picture without a colour profile of its own is taken to share the first one's
    auto decode = [&](const MpPicture &picture) {
        if (picture.offset < 0 || picture.size <= 0 || picture.offset + picture.size > bytes.size())
            throw MpoError(MpoError::extractionFailed);
        const qsizetype start = pictureStart(bytes, picture.offset);
        if (start < 0)
            throw MpoError(MpoError::extractionFailed);
        const qsizetype size = std::min<qsizetype>(picture.size, bytes.size() - start);
        std::optional<QImage> image = decodeJpeg(bytes.constData() + start, size);
        if (!image)
            throw MpoError(MpoError::extractionFailed);
        if (QByteArray own = fileColourProfile(QByteArray::fromRawData(bytes.constData() + start, size)); !own.isEmpty())
            profile = std::move(own);
        return convertedToSrgb(*image, profile);
    };
    QImage left = decode(pictures[0]);
    QImage right = decode(pictures[1]);
    return {left, right};
}

} // namespace Vorel
