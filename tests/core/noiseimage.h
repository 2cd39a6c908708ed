// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of random 32-bit pixels for the pixel-kernel tests, the fourth byte included
// (premultiplied where the format asks for it), and plain ones of a single colour.
#pragma once

#include <cstdint>
#include <random>

#include <QImage>

namespace Vorel::TestReference {

inline QImage noiseImage(int w, int h, unsigned seed, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(w, h, format);
    std::mt19937 rng(seed);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            reinterpret_cast<uint32_t *>(image.scanLine(y))[x] =
                format == QImage::Format_ARGB32_Premultiplied ? qPremultiply(rng()) : rng();
    return image;
}

inline QImage filledImage(int w, int h, QRgb colour)
{
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

} // namespace Vorel::TestReference
