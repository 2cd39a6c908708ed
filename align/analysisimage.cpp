// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "align/analysisimage.h"

#include <algorithm>
#include <vector>

#include "core/displaycomposition.h"
#include "core/parallelrows.h"

namespace Vorel {

double analysisScale(int64_t w, int64_t h)
{
    return std::min(analysisSide / static_cast<double>(w), analysisSide / static_cast<double>(h));
}

RgbBuffer resampleBilinear(const QImage &image, int64_t width, int64_t height)
{
    // Sampling the 32-bit pixels directly gives the bytes of the RGB copy without making it.
    const QImage source = premultiplied32(image);
    const int64_t w = source.width(), h = source.height();
    if (source.isNull() || width <= 0 || height <= 0)
        return {};
    RgbBuffer out(width, height);
    // Column sources are the same on every row.
    struct ColumnSample {
        int64_t left, right; // byte offsets of the neighbouring pixels
        float fx;
    };
    std::vector<ColumnSample> columns(static_cast<size_t>(width));
    for (int64_t x = 0; x < width; ++x) {
        const float sx = static_cast<float>(x) * static_cast<float>(w) / static_cast<float>(width);
        const int64_t x0 = static_cast<int64_t>(sx);
        columns[x] = {x0 * 4, std::min(x0 + 1, w - 1) * 4, sx - static_cast<float>(x0)};
    }
    constexpr int channels[3] = {pixelRed, pixelGreen, pixelBlue};
    parallelRows(height, [&](int64_t first, int64_t end) {
        for (int64_t y = first; y < end; ++y) {
            const float sy = static_cast<float>(y) * static_cast<float>(h) / static_cast<float>(height);
            const int64_t y0 = static_cast<int64_t>(sy);
            const float fy = sy - static_cast<float>(y0);
            const uint8_t *top = source.constScanLine(static_cast<int>(y0));
            const uint8_t *bottom = source.constScanLine(static_cast<int>(std::min(y0 + 1, h - 1)));
            uint8_t *o = out.row(y);
            for (const ColumnSample &s : columns) {
                for (const int ch : channels) {
                    const float v = (1 - fy) * (1 - s.fx) * top[s.left + ch] + (1 - fy) * s.fx * top[s.right + ch] +
                                    fy * (1 - s.fx) * bottom[s.left + ch] + fy * s.fx * bottom[s.right + ch] + 0.5f;
                    *o++ = static_cast<uint8_t>(std::clamp(v, 0.0f, 255.0f));
                }
            }
        }
    });
    return out;
}

SiftImage<uint8_t> grayImage(const RgbBuffer &image)
{
    SiftImage<uint8_t> gray(image.w, image.h);
    const uint8_t *p = image.data.data();
    for (uint8_t &g : gray.data) {
        const float v = 0.299f * p[0] + 0.587f * p[1] + 0.114f * p[2] + 0.5f;
        g = static_cast<uint8_t>(std::clamp(v, 0.0f, 255.0f));
        p += 3;
    }
    return gray;
}

} // namespace Vorel
