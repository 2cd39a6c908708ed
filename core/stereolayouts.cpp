// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Whole rows of a view are copied with memcpy; interlaced columns and the checkerboard pick the
// pixels of two rows alternately, four at a step, at about memcpy's speed (bench/render_bench).
#include "core/stereolayouts.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include <emmintrin.h>

#include "core/displaycomposition.h"
#include "core/largebuffer.h"
#include "core/parallelrows.h"

namespace Vorel {

namespace {

// out[x] = first[x] where x + phase is even, second[x] elsewhere. Both input rows are read in
// full either way; streaming the output past the cache spares memory the read of every output
// line before its write, a third of the traffic.
void alternatePixels(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t width, int phase)
{
    const auto pick = [&](int64_t x) { out[x] = (x + phase) % 2 == 0 ? first[x] : second[x]; };
    int64_t x = 0;
    for (; x < width && reinterpret_cast<uintptr_t>(out + x) % 16 != 0; ++x)
        pick(x);
    const __m128i fromFirst = (x + phase) % 2 == 0 ? _mm_set_epi32(0, -1, 0, -1) : _mm_set_epi32(-1, 0, -1, 0);
    for (; x + 4 <= width; x += 4) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i *>(first + x));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i *>(second + x));
        _mm_stream_si128(reinterpret_cast<__m128i *>(out + x),
                         _mm_or_si128(_mm_and_si128(fromFirst, a), _mm_andnot_si128(fromFirst, b)));
    }
    for (; x < width; ++x)
        pick(x);
    // Streamed stores are ordered only by a fence: the row is complete for every reader after it.
    _mm_sfence();
}

QSize layoutSize(StereoLayout layout, QSize view)
{
    switch (layout) {
    case StereoLayout::overUnder:
        return {view.width(), 2 * view.height()};
    case StereoLayout::halfOverUnder:
        return {view.width(), 2 * static_cast<int>(view.height() * 0.5)};
    default:
        return view;
    }
}

// Writes the output rows that rows [first, first+count) of both views give; bands may come
// from several threads at once, since no two bands share an output row.
class LayoutWriter {
public:
    LayoutWriter(StereoLayout layout, QImage &output, int viewHeight)
        : layout_(layout), bits_(output.bits()), stride_(output.bytesPerLine()),
          rowBytes_(static_cast<size_t>(output.width()) * 4), width_(output.width()), viewHeight_(viewHeight)
    {
        if (layout == StereoLayout::halfOverUnder)
            pickedRows_ = nearestSourceIndices(viewHeight, output.height() / 2);
    }

    void operator()(int64_t first, int64_t count, const uint8_t *a, int64_t strideA, const uint8_t *b,
                    int64_t strideB) const
    {
        if (layout_ == StereoLayout::halfOverUnder) {
            const auto begin = std::lower_bound(pickedRows_.begin(), pickedRows_.end(), first);
            const auto end = std::lower_bound(begin, pickedRows_.end(), first + count);
            const int64_t half = static_cast<int64_t>(pickedRows_.size());
            for (auto row = begin; row != end; ++row) {
                const int64_t j = row - pickedRows_.begin(), y = *row - first;
                std::memcpy(outRow(j), a + y * strideA, rowBytes_);
                std::memcpy(outRow(half + j), b + y * strideB, rowBytes_);
            }
            return;
        }
        for (int64_t y = 0; y < count; ++y) {
            const int64_t row = first + y;
            const uint8_t *fromA = a + y * strideA, *fromB = b + y * strideB;
            switch (layout_) {
            case StereoLayout::overUnder:
                std::memcpy(outRow(row), fromA, rowBytes_);
                std::memcpy(outRow(viewHeight_ + row), fromB, rowBytes_);
                break;
            case StereoLayout::rowInterlaced:
                std::memcpy(outRow(row), row % 2 == 0 ? fromA : fromB, rowBytes_);
                break;
            default:
                alternatePixels(reinterpret_cast<const uint32_t *>(fromA), reinterpret_cast<const uint32_t *>(fromB),
                                reinterpret_cast<uint32_t *>(outRow(row)), width_,
                                layout_ == StereoLayout::checkerboard ? static_cast<int>(row % 2) : 0);
            }
        }
    }

private:
    uint8_t *outRow(int64_t y) const { return bits_ + y * stride_; }

    StereoLayout layout_;
    uint8_t *bits_;
    int64_t stride_;
    size_t rowBytes_;
    int64_t width_;
    int64_t viewHeight_;
    std::vector<int32_t> pickedRows_;
};

} // namespace

std::optional<QImage> composeLayout(const QImage &first, const QImage &second, StereoLayout layout)
{
    if (first.isNull() || second.isNull() || first.size() != second.size())
        return std::nullopt;
    const QImage a = premultiplied32(first), b = premultiplied32(second);
    const bool opaque = a.format() == QImage::Format_RGB32 && b.format() == QImage::Format_RGB32;
    const QSize size = layoutSize(layout, a.size());
    QImage output = newLargeImage(size.width(), size.height(),
                                  opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    if (output.isNull())
        return std::nullopt;
    const LayoutWriter write(layout, output, a.height());
    parallelRows(a.height(), [&](int64_t begin, int64_t end) {
        write(begin, end - begin, a.constScanLine(static_cast<int>(begin)), a.bytesPerLine(),
              b.constScanLine(static_cast<int>(begin)), b.bytesPerLine());
    });
    return output;
}

std::optional<QImage> composeAdjustedLayout(const QImage &left, const QImage &right,
                                            const StereoAdjustment &adjustment, bool swapped, StereoLayout layout)
{
    // Band by band from the warp: the two full-size adjusted pictures never exist.
    QImage output;
    std::optional<LayoutWriter> write;
    const bool composed = streamAdjustedPair(
        left, right, adjustment,
        [&](QSize view) {
            const QSize size = layoutSize(layout, view);
            output = newLargeImage(size.width(), size.height(), QImage::Format_RGB32);
            if (output.isNull())
                return false;
            write.emplace(layout, output, view.height());
            return true;
        },
        [&](int64_t first, int64_t count, const uint8_t *l, const uint8_t *r, int64_t stride) {
            (*write)(first, count, swapped ? r : l, stride, swapped ? l : r, stride);
        });
    return composed ? std::optional(output) : std::nullopt;
}

} // namespace Vorel
