// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/jps.h"

#include <QFile>

#include "formats/cameraexif.h"
#include "formats/imagewriter.h"
#include "formats/jpegsegments.h"
#include "formats/sidebysidejpeg.h"

namespace Vorel {

namespace {

const QByteArray jpsSignature("_JPSJPS_");
constexpr qsizetype lengthAt = 8, descriptorAt = 10, minDescriptorLength = 4;
constexpr quint8 typeStereo = 1;
constexpr quint8 layoutSideBySide = 2, layoutOverUnder = 3;
constexpr quint8 halfHeightFlag = 0x01, halfWidthFlag = 0x02, leftFirstFlag = 0x04;

QString layoutName(quint8 layout)
{
    switch (layout) {
    case 1:
        return QStringLiteral("interleaved");
    case 4:
        return QStringLiteral("anaglyph");
    default:
        return QStringLiteral("unknown (%1)").arg(layout);
    }
}

} // namespace

JpsDescriptor parseJpsDescriptor(QByteArrayView payload)
{
    if (!payload.startsWith(jpsSignature) || payload.size() < descriptorAt)
        throw JpsError(QStringLiteral("the stereo descriptor is cut short"));
    const auto byteAt = [&](qsizetype i) { return quint8(payload[i]); };
    const qsizetype length = byteAt(lengthAt) << 8 | byteAt(lengthAt + 1);
    if (length < minDescriptorLength || descriptorAt + length > payload.size())
        throw JpsError(QStringLiteral("the stereo descriptor's length (%1) does not fit its segment").arg(length));
    const quint8 flags = byteAt(descriptorAt + 1), layout = byteAt(descriptorAt + 2), type = byteAt(descriptorAt + 3);
    if (type != typeStereo)
        throw JpsError(type == 0 ? QStringLiteral("it holds a single view") : QStringLiteral("unknown type (%1)").arg(type));
    if (layout != layoutSideBySide && layout != layoutOverUnder)
        throw JpsError(QStringLiteral("the %1 layout is not supported").arg(layoutName(layout)));
    JpsDescriptor descriptor;
    descriptor.layout = layout == layoutSideBySide ? JpsDescriptor::Layout::sideBySide : JpsDescriptor::Layout::overUnder;
    descriptor.leftFirst = flags & leftFirstFlag;
    descriptor.halfWidth = flags & halfWidthFlag;
    descriptor.halfHeight = flags & halfHeightFlag;
    // A view squeezed across the direction the picture is split in is not a layout anyone writes.
    if (layout == layoutSideBySide ? descriptor.halfHeight : descriptor.halfWidth)
        throw JpsError(QStringLiteral("the descriptor's half-size flag contradicts its layout"));
    return descriptor;
}

JpsDescriptor readJpsDescriptor(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const std::optional<QByteArray> payload = readJpegSegment(file, markerApp3, jpsSignature);
    return payload ? parseJpsDescriptor(*payload) : JpsDescriptor{};
}

QByteArray jpsDescriptorSegment(const JpsDescriptor &descriptor)
{
    const bool sideBySide = descriptor.layout == JpsDescriptor::Layout::sideBySide;
    const quint8 flags = (descriptor.leftFirst ? leftFirstFlag : 0) | (descriptor.halfWidth ? halfWidthFlag : 0) |
                         (descriptor.halfHeight ? halfHeightFlag : 0);
    QByteArray payload = jpsSignature;
    payload.append("\x00\x04", 2); // descriptor length
    payload.append(char(0)).append(char(flags)).append(char(sideBySide ? layoutSideBySide : layoutOverUnder));
    payload.append(char(typeStereo)).append("\x00\x00", 2); // no comment
    return jpegSegment(markerApp3, payload);
}

std::optional<QByteArray> encodeJps(const QImage &left, const QImage &right, const QByteArray &cameraExif)
{
    if (left.isNull() || right.isNull() || left.height() != right.height())
        return std::nullopt;
    const std::optional<QByteArray> encoded = encodeSideBySideJpeg(right, left, lossyQuality);
    if (!encoded)
        return std::nullopt;
    const QSize size(right.width() + left.width(), left.height());
    return jpegWithHeaders(*encoded, exifForWrittenPicture(cameraExif, size), jpsDescriptorSegment(JpsDescriptor{}));
}

} // namespace Vorel
