// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The MP index of a multi-picture JPEG: the APP2 "MPF" segment of the first picture, whose
// TIFF-style IFD lists every picture's byte range in the file.
#pragma once

#include <cstdint>
#include <vector>

#include <QByteArray>

namespace Vorel {

struct MpPicture {
    int64_t offset = 0; // from the start of the file
    int64_t size = 0;
};

// The pictures listed by the index, in index order; empty when the data is not a JPEG or has
// no readable MP index (it is then one picture). Ranges are not checked against the file.
std::vector<MpPicture> readMpIndex(const QByteArray &file);

} // namespace Vorel
