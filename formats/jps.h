// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// JPS files: a stereo pair in one JPEG picture, described by an APP3 "_JPSJPS_" segment.
// PNS files (the same in PNG) carry no descriptor and take the default one.
#pragma once

#include <optional>

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>
#include <QString>

namespace Vorel {

class JpsError {
public:
    explicit JpsError(QString reason) : why(std::move(reason)) {}
    QString description() const { return QStringLiteral("Invalid JPS file: ") + why; }

private:
    QString why;
};

// How the two views share the picture. The default is what files without a descriptor hold.
struct JpsDescriptor {
    enum class Layout { sideBySide, overUnder };
    Layout layout = Layout::sideBySide;
    bool leftFirst = false; // the left view on the left (side by side) or on top (over/under)
    bool halfWidth = false; // each view squeezed to half its width (side by side only)
    bool halfHeight = false; // each view squeezed to half its height (over/under only)
    bool operator==(const JpsDescriptor &) const = default;
};

// The descriptor of an APP3 payload starting with "_JPSJPS_":
//   "_JPSJPS_" | u16 descriptor length | separation u8 | flags u8 | layout u8 | type u8
//   | (rest of the descriptor) | u16 comment length | comment          (big-endian)
//   type 1 stereo (0 mono); layout 1 interleaved, 2 side by side, 3 over/under, 4 anaglyph;
//   flags 0x01 half height, 0x02 half width, 0x04 left view first.
// Throws JpsError for a descriptor that does not describe a pair we can split.
JpsDescriptor parseJpsDescriptor(QByteArrayView payload);

// The descriptor of the file at `path`, read from its headers; the default one when the file
// has none (also for PNG and unreadable files, which the picture reader reports). Throws JpsError.
JpsDescriptor readJpsDescriptor(const QString &path);

// The APP3 segment stating `descriptor`.
QByteArray jpsDescriptorSegment(const JpsDescriptor &descriptor);

// The right view then the left, side by side at full size, as a baseline JPEG at the lossy
// quality with a descriptor saying so and `cameraExif` rewritten for the whole picture. None
// when the views differ in height or the picture cannot be encoded.
std::optional<QByteArray> encodeJps(const QImage &left, const QImage &right, const QByteArray &cameraExif = {});

} // namespace Vorel
