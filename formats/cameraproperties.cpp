// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/cameraproperties.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "formats/heifboxes.h"

namespace Vorel::Heif {

namespace {

// The uuid forms wrap exactly the payload of the 'cmin' and 'cmex' FullBoxes; the disparity
// form holds one signed 32-bit number and no version or flags.
const QByteArray intrinsicsUuid = QByteArray::fromHex("22cc04c7d6d94e079d904eb6ecbaf3a3");
const QByteArray extrinsicsUuid = QByteArray::fromHex("4363e9145b7d4aab97aebea69803b434");
const QByteArray disparityUuid = QByteArray::fromHex("de22508536cb436587432f8705e7c78a");

constexpr quint32 positionXPresent = 0x1; // cmex flag; y, z and rotation are never needed here
constexpr double micrometresPerMetre = 1e6;

QByteArray uuidBox(const QByteArray &userType, const QByteArray &payload)
{
    return makeBox("uuid", userType + payload);
}

QByteArray bigEndian32(qint64 value)
{
    QByteArray bytes(4, '\0');
    putBigEndian(bytes, 0, 4, quint64(quint32(qint32(value))));
    return bytes;
}

qint32 readSigned32(Cursor &cursor) { return qint32(quint32(cursor.read(4))); }

// The payload of a property box of the given kind (uuid or four-character form), or none.
// A general pinhole's fy and skew follow fx, cx, cy and are not needed here.
std::optional<Cursor> payloadOf(const QByteArray &box, const char *fourCC, const QByteArray &userType)
{
    try {
        const std::vector<BoxSpan> spans = readBoxes(box, 0, box.size());
        if (spans.size() != 1)
            return std::nullopt;
        const BoxSpan &span = spans.front();
        const bool matches = (fourCC && span.type == fourCC) ||
                             (span.type == "uuid" && box.mid(span.payload - userType.size(), userType.size()) == userType);
        if (!matches)
            return std::nullopt;
        return Cursor(box, span.payload, span.end);
    } catch (const MalformedBoxes &) {
        return std::nullopt;
    }
}

} // namespace

QByteArray intrinsicsProperty(const CameraIntrinsics &intrinsics, int width, int height)
{
    // Stored as fractions of the image size in fixed point with denominator 2^shift: the
    // largest shift that keeps every value inside a signed 32-bit field.
    const double relative[] = {intrinsics.focalLength / width, intrinsics.principalX / width,
                               intrinsics.principalY / height};
    const double largest = std::max({std::fabs(relative[0]), std::fabs(relative[1]), std::fabs(relative[2])});
    int shift = 30;
    while (shift > 0 && std::ldexp(largest, shift) >= 2147483647.0)
        --shift;
    QByteArray payload;
    for (const double value : relative)
        payload += bigEndian32(std::llround(std::ldexp(value, shift)));
    QByteArray header(4, '\0');
    putBigEndian(header, 0, 4, quint64(quint32(shift) << 8)); // version 0; simplified pinhole
    return uuidBox(intrinsicsUuid, header + payload);
}

QByteArray positionProperty(double xMetres)
{
    const qint64 micrometres = std::llround(xMetres * micrometresPerMetre);
    QByteArray header(4, '\0');
    if (micrometres == 0)
        return uuidBox(extrinsicsUuid, header); // at the origin, not rotated: no fields at all
    putBigEndian(header, 0, 4, positionXPresent);
    return uuidBox(extrinsicsUuid, header + bigEndian32(micrometres));
}

QByteArray disparityProperty(qint32 adjustment) { return uuidBox(disparityUuid, bigEndian32(adjustment)); }

std::optional<CameraIntrinsics> readIntrinsics(const QByteArray &box, int width, int height)
{
    std::optional<Cursor> cursor = payloadOf(box, "cmin", intrinsicsUuid);
    if (!cursor)
        return std::nullopt;
    try {
        const quint32 versionAndFlags = quint32(cursor->read(4));
        if (versionAndFlags >> 24 != 0)
            return std::nullopt;
        const double denominator = std::ldexp(1.0, int(versionAndFlags >> 8 & 0x1F));
        const double fx = readSigned32(*cursor) / denominator * width;
        const double cx = readSigned32(*cursor) / denominator * width;
        const double cy = readSigned32(*cursor) / denominator * height;
        return CameraIntrinsics{fx, cx, cy};
    } catch (const MalformedBoxes &) {
        return std::nullopt;
    }
}

std::optional<double> readPositionX(const QByteArray &box)
{
    std::optional<Cursor> cursor = payloadOf(box, "cmex", extrinsicsUuid);
    if (!cursor)
        return std::nullopt;
    try {
        const quint32 flags = quint32(cursor->read(4)) & 0xFFFFFF;
        if (!(flags & positionXPresent))
            return 0.0;
        return readSigned32(*cursor) / micrometresPerMetre;
    } catch (const MalformedBoxes &) {
        return std::nullopt;
    }
}

std::optional<qint32> readDisparity(const QByteArray &box)
{
    std::optional<Cursor> cursor = payloadOf(box, nullptr, disparityUuid);
    if (!cursor)
        return std::nullopt;
    try {
        return readSigned32(*cursor);
    } catch (const MalformedBoxes &) {
        return std::nullopt;
    }
}

} // namespace Vorel::Heif
