// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The anaglyph of a pair: each row of the output from the same row of both pictures.
#include "core/displaycomposition.h"

#include "core/anaglyphrows.h"
#include "core/largebuffer.h"
#include "core/parallelrows.h"

namespace Vorel {

std::optional<QImage> composeAnaglyph(const QImage &first, const QImage &second, int kind)
{
    if (first.isNull() || second.isNull() || first.size() != second.size())
        return std::nullopt;
    const QImage a = premultiplied32(first);
    const QImage b = premultiplied32(second);
    QImage output = newLargeImage(a.width(), a.height(), QImage::Format_RGB32);
    if (output.isNull())
        return std::nullopt;
    const AnaglyphDetail::AnaglyphRow row = AnaglyphDetail::anaglyphRow(kind);
    const auto pixels = [](const QImage &image, int64_t y) {
        return reinterpret_cast<const uint32_t *>(image.constBits() + y * image.bytesPerLine());
    };
    uchar *outBits = output.bits();
    parallelRows(a.height(), [&](int64_t begin, int64_t end) {
        for (int64_t y = begin; y < end; ++y)
            row(pixels(a, y), pixels(b, y), reinterpret_cast<uint32_t *>(outBits + y * output.bytesPerLine()),
                a.width());
    });
    return output;
}

std::optional<QImage> composeAdjustedAnaglyph(const QImage &left, const QImage &right,
                                              const StereoAdjustment &adjustment, bool swapped, int kind)
{
    // Band by band from the warp: the two full-size adjusted pictures never exist.
    QImage output;
    const AnaglyphDetail::AnaglyphRow row = AnaglyphDetail::anaglyphRow(kind);
    const bool composed = streamAdjustedPair(
        left, right, adjustment,
        [&](QSize size) {
            output = newLargeImage(size.width(), size.height(), QImage::Format_RGB32);
            return !output.isNull();
        },
        [&](int64_t first, int64_t count, const uint8_t *l, const uint8_t *r, int64_t stride) {
            for (int64_t y = 0; y < count; ++y) {
                const auto *a = reinterpret_cast<const uint32_t *>(l + y * stride);
                const auto *b = reinterpret_cast<const uint32_t *>(r + y * stride);
                row(swapped ? b : a, swapped ? a : b, reinterpret_cast<uint32_t *>(output.scanLine(int(first + y))),
                    output.width());
            }
        });
    return composed ? std::optional(output) : std::nullopt;
}

} // namespace Vorel
