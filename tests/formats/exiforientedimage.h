// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Test helper: what EXIF orientation 1..8 shows for coded pixels, built from Qt's own geometry
// (2, 5, 7 mirror left-right first; 4 flips top-bottom last).
#pragma once

#include <QImage>
#include <QTransform>

namespace Vorel::TestSupport {

inline QImage exifOriented(const QImage &coded, int orientation)
{
    const bool mirrorFirst = orientation == 2 || orientation == 5 || orientation == 7;
    const QImage mirrored = mirrorFirst ? coded.mirrored(true, false) : coded;
    const int clockwiseDegrees[] = {0, 0, 180, 0, 270, 90, 90, 270};
    const QImage turned = mirrored.transformed(QTransform().rotate(clockwiseDegrees[orientation - 1]));
    return orientation == 4 ? turned.mirrored(false, true) : turned;
}

} // namespace Vorel::TestSupport
