// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps an MPO's picture index right when the first picture's header grows: the index in its
// APP2 "MPF" segment records each picture's size and its offset from the index itself.
#pragma once

#include <optional>

#include <QByteArray>

namespace Vorel {

// The MP index (the TIFF block after "MPF\0") with the first picture's size grown by `delta`
// bytes; when the growth lies between the index and the later pictures (`laterPicturesMoved`),
// their offsets grow too. None when the index cannot be read.
std::optional<QByteArray> mpIndexWithFirstPictureGrown(const QByteArray &index, qint64 delta, bool laterPicturesMoved);

} // namespace Vorel
