// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The half-width squeeze and the side-by-side canvas: both only move whole 32-bit pixels, one
// row at a time.
#include "core/displaycomposition.h"

#include <cmath>
#include <cstring>
#include <vector>

#include <QPainter>

#include <emmintrin.h>

#include "core/largebuffer.h"
#include "core/parallelrows.h"

namespace Vorel {

namespace {

// The painter's own column steps wrap past 65537 source columns, so wider pictures are left to
// the painter itself.
constexpr int widestSteppedSource = 65537;

// out[x] = in[2x] for x in [0, width).
void everySecond(const uint32_t *in, uint32_t *out, int width)
{
    int x = 0;
    for (; x + 4 <= width; x += 4) {
        const __m128 a = _mm_castsi128_ps(_mm_loadu_si128(reinterpret_cast<const __m128i *>(in + 2 * x)));
        const __m128 b = _mm_castsi128_ps(_mm_loadu_si128(reinterpret_cast<const __m128i *>(in + 2 * x + 4)));
        _mm_storeu_si128(reinterpret_cast<__m128i *>(out + x), _mm_castps_si128(_mm_shuffle_ps(a, b, 0x88)));
    }
    for (; x < width; ++x)
        out[x] = in[2 * x];
}

QImage paintedHalfWidth(const QImage &image, int width)
{
    QImage half(width, image.height(), QImage::Format_ARGB32_Premultiplied);
    if (half.isNull())
        return half;
    half.fill(Qt::transparent);
    QPainter painter(&half);
    painter.drawImage(QRect(0, 0, width, image.height()), image);
    return half;
}

} // namespace

// The painter's nearest-neighbour scaling steps its source position in 16.16 fixed point from
// the centre of the first output pixel; 64-bit steps give its picks wherever its own 32-bit
// ones do not wrap, and go on past that for tall pictures.
std::vector<int32_t> nearestSourceIndices(int sourceLength, int length)
{
    const double step = static_cast<double>(sourceLength) / length;
    const auto increment = static_cast<uint64_t>(static_cast<int64_t>(0x10000 * step));
    auto position = static_cast<uint64_t>(static_cast<int64_t>(std::ceil(0.5 * step * 0x10000)) - 1);
    std::vector<int32_t> indices(static_cast<size_t>(length));
    for (int32_t &index : indices) {
        index = static_cast<int32_t>(position >> 16);
        position += increment;
    }
    return indices;
}

// Drawn over transparent with the painter's default (nearest-neighbour) scaling, a 32-bit
// pixel lands unchanged, so the squeeze is a pick of source columns.
QImage halfWidth(const QImage &image)
{
    const int width = static_cast<int>(image.width() * 0.5);
    const bool picked = image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32_Premultiplied;
    if (!picked || image.width() > widestSteppedSource)
        return paintedHalfWidth(image, width);
    QImage half = newLargeImage(width, image.height(), QImage::Format_ARGB32_Premultiplied);
    if (half.isNull())
        return paintedHalfWidth(image, width);

    const std::vector<int32_t> columns = nearestSourceIndices(image.width(), width);
    bool evenStep = true;
    for (int x = 0; x < width && evenStep; ++x)
        evenStep = columns[x] == columns[0] + 2 * x;
    uchar *outBits = half.bits();
    parallelRows(image.height(), [&](int64_t begin, int64_t end) {
        for (int64_t y = begin; y < end; ++y) {
            const auto *in = reinterpret_cast<const uint32_t *>(image.constBits() + y * image.bytesPerLine());
            auto *out = reinterpret_cast<uint32_t *>(outBits + y * half.bytesPerLine());
            if (evenStep) {
                everySecond(in + columns[0], out, width);
            } else {
                for (int x = 0; x < width; ++x)
                    out[x] = in[columns[x]];
            }
        }
    });
    return half;
}

// Every canvas row is written once: a row copy where an image lies, transparent above the
// shorter one.
QImage composeSideBySide(const QImage &first, const QImage &second)
{
    const int height = std::max(first.height(), second.height());
    QImage canvas = newLargeImage(first.width() + second.width(), height, QImage::Format_ARGB32_Premultiplied);
    if (canvas.isNull())
        return canvas;
    const QImage sources[2] = {premultiplied32(first), premultiplied32(second)};
    const int left[2] = {0, first.width()};
    uchar *bits = canvas.bits();
    parallelRows(height, [&](int64_t begin, int64_t end) {
        for (int64_t y = begin; y < end; ++y) {
            uchar *row = bits + y * canvas.bytesPerLine();
            for (int i = 0; i < 2; ++i) {
                const QImage &source = sources[i];
                const int64_t sourceRow = y - (height - source.height());
                uchar *out = row + static_cast<size_t>(left[i]) * 4;
                const size_t bytes = static_cast<size_t>(source.width()) * 4;
                if (sourceRow < 0)
                    std::memset(out, 0, bytes);
                else
                    std::memcpy(out, source.constBits() + sourceRow * source.bytesPerLine(), bytes);
            }
        }
    });
    return canvas;
}

} // namespace Vorel
