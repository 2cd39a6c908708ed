// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Small crafted files that would make a careless reader allocate or work without bound.
#pragma once

#include <QByteArray>

namespace Vorel::Hostile {

// Real pictures whose headers are patched to claim `side` x `side` pixels.
QByteArray jpegClaiming(const QByteArray &jpeg, int side);
QByteArray pngClaiming(const QByteArray &png, int side);
QByteArray tiffClaiming(const QByteArray &tiff, int side);

// A grey progressive JPEG of side x side whose first two scans are followed by `scans - 2`
// refinement scans of end-of-band runs: a few bytes each, a pass over every block each.
QByteArray progressiveJpeg(int side, int scans);

// `png` with a zTXt chunk before its pixels that inflates to `inflatedBytes` zero bytes.
QByteArray pngWithTextBomb(const QByteArray &png, qint64 inflatedBytes);

// A HEIF whose primary item is a grid of `columns` x `rows` tiles, every tile the one small
// HEVC picture of `heif` (a file of a single coded picture, item 1).
QByteArray heifGrid(const QByteArray &heif, int columns, int rows);

} // namespace Vorel::Hostile
