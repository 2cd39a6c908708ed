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

} // namespace Vorel
