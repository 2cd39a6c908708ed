// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/displaycomposition.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <numbers>
#include <vector>

#include "core/largebuffer.h"
#include "core/parallelrows.h"
#include "core/homographywarp.h"

namespace Vorel {

namespace {

constexpr double pivotLimit = 1e-12;

PixelLayout layoutOf(const QImage &image)
{
    return {image.width(), image.height(), image.bytesPerLine(), 4, 3};
}

} // namespace

QImage premultiplied32(const QImage &image)
{
    if (image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32_Premultiplied)
        return image;
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

std::optional<RgbBuffer> imageToRGB(const QImage &image)
{
    if (image.isNull())
        return std::nullopt;
    const QImage source = premultiplied32(image);
    RgbBuffer buffer(source.width(), source.height());
    parallelRows(buffer.h, [&](int64_t begin, int64_t end) {
        for (int64_t y = begin; y < end; ++y) {
            const uint8_t *in = source.constScanLine(static_cast<int>(y));
            uint8_t *out = buffer.row(y);
            for (int64_t x = 0; x < buffer.w; ++x, in += 4, out += 3) {
                out[0] = in[pixelRed];
                out[1] = in[pixelGreen];
                out[2] = in[pixelBlue];
            }
        }
    });
    return buffer;
}

std::optional<QImage> rgbToImage(const RgbBuffer &buffer)
{
    if (buffer.isEmpty() || buffer.data.size() < static_cast<size_t>(buffer.w * buffer.h * 3))
        return std::nullopt;
    QImage image(static_cast<int>(buffer.w), static_cast<int>(buffer.h), QImage::Format_RGB32);
    if (image.isNull())
        return std::nullopt;
    parallelRows(buffer.h, [&](int64_t begin, int64_t end) {
        for (int64_t y = begin; y < end; ++y) {
            const uint8_t *in = buffer.row(y);
            auto *out = reinterpret_cast<QRgb *>(image.scanLine(static_cast<int>(y)));
            for (int64_t x = 0; x < buffer.w; ++x, in += 3)
                out[x] = qRgb(in[0], in[1], in[2]);
        }
    });
    return image;
}

// Rows 2i and 2i+1 of the 8x8 system for point pair (x, y) -> (u, v):
//   (x, y, 1, 0, 0, 0, -x*u, -y*u) = u
//   (0, 0, 0, x, y, 1, -x*v, -y*v) = v
// solved by Gaussian elimination with partial pivoting and back substitution; h33 = 1.
std::optional<PerspectiveMatrix> perspectiveTransform(const CornerPoints &from, const CornerPoints &to)
{
    double a[8][9] = {};
    for (int i = 0; i < 4; ++i) {
        const double x = from[i].x, y = from[i].y, u = to[i].x, v = to[i].y;
        double *r0 = a[2 * i];
        double *r1 = a[2 * i + 1];
        r0[0] = x, r0[1] = y, r0[2] = 1, r0[6] = -x * u, r0[7] = -y * u, r0[8] = u;
        r1[3] = x, r1[4] = y, r1[5] = 1, r1[6] = -x * v, r1[7] = -y * v, r1[8] = v;
    }
    for (int col = 0; col < 8; ++col) {
        int pivot = col;
        for (int r = col + 1; r < 8; ++r)
            if (std::fabs(a[r][col]) > std::fabs(a[pivot][col]))
                pivot = r;
        if (std::fabs(a[pivot][col]) < pivotLimit)
            return std::nullopt;
        if (pivot != col)
            std::swap(a[pivot], a[col]);
        for (int r = col + 1; r < 8; ++r) {
            const double factor = a[r][col] / a[col][col];
            for (int c = col; c < 9; ++c)
                a[r][c] -= factor * a[col][c];
        }
    }
    PerspectiveMatrix h{};
    for (int i = 7; i >= 0; --i) {
        double sum = a[i][8];
        for (int j = i + 1; j < 8; ++j)
            sum -= a[i][j] * h[j];
        h[i] = sum / a[i][i];
    }
    h[8] = 1;
    return h;
}

std::vector<uint8_t> warpPerspective(const uint8_t *source, int64_t w, int64_t h, int channels,
                                     const PerspectiveMatrix &matrix)
{
    std::vector<uint8_t> output(static_cast<size_t>(w * h * channels), 0);
    const PixelLayout layout{w, h, w * channels, channels, channels};
    warpPerspectiveRegion(source, layout, matrix, 0, 0, w, h, output.data(), layout, 0);
    return output;
}

RgbBuffer warpPerspective(const RgbBuffer &source, const PerspectiveMatrix &matrix)
{
    RgbBuffer output;
    output.w = source.w;
    output.h = source.h;
    output.data = warpPerspective(source.data.data(), source.w, source.h, RgbBuffer::pixelStride, matrix);
    return output;
}

// Corners about the centre, rotated by +-r/2, scaled by 1 +- s/200, the right image moved by
// (h, v) percent of the width, then back to pixel coordinates and rounded to float.
std::pair<CornerPoints, CornerPoints> adjustedCorners(int64_t w, int64_t h, const StereoAdjustment &adjustment)
{
    const double halfW = static_cast<double>(w) / 2;
    const double halfH = static_cast<double>(h) / 2;
    const double centred[4][2] = {{-halfW, -halfH}, {halfW, -halfH}, {halfW, halfH}, {-halfW, halfH}};
    auto move = [&](double degrees, double factor, double dx, double dy) {
        const double a = degrees * std::numbers::pi / 180;
        const double cosA = std::cos(a), sinA = std::sin(a);
        CornerPoints points;
        for (int i = 0; i < 4; ++i) {
            const double x = centred[i][0], y = centred[i][1];
            double rx = x * cosA - y * sinA;
            double ry = x * sinA + y * cosA;
            rx *= factor;
            ry *= factor;
            rx -= dx;
            ry -= dy;
            points[i] = {static_cast<float>(rx + halfW), static_cast<float>(ry + halfH)};
        }
        return points;
    };
    const double width = static_cast<double>(w);
    CornerPoints left = move(adjustment.rotation / 2, 1 + adjustment.scale / 200, 0, 0);
    CornerPoints right = move(-adjustment.rotation / 2, 1 - adjustment.scale / 200,
                              adjustment.horizontalOffset * width / 100, adjustment.verticalOffset * width / 100);
    return {left, right};
}

namespace {

// Where both moved pictures overlap, in whole pixels, and each picture's matrix.
struct CommonArea {
    int64_t x0, y0, width, height;
    PerspectiveMatrix left, right;
};

std::optional<CommonArea> commonArea(int64_t w, int64_t h, const CornerPoints &l, const CornerPoints &r)
{
    // Common area, in float: the innermost corner on each edge of both moved images.
    const float leftBound = std::max({0.0f, l[0].x, l[3].x, r[0].x, r[3].x});
    const float rightBound = std::min({static_cast<float>(w), l[1].x, l[2].x, r[1].x, r[2].x});
    const float topBound = std::max({0.0f, l[0].y, l[1].y, r[0].y, r[1].y});
    const float bottomBound = std::min({static_cast<float>(h), l[2].y, l[3].y, r[2].y, r[3].y});
    if (leftBound >= rightBound || topBound >= bottomBound)
        return std::nullopt;

    const CornerPoints frame{{{0, 0}, {static_cast<float>(w), 0}, {static_cast<float>(w), static_cast<float>(h)},
                              {0, static_cast<float>(h)}}};
    const std::optional<PerspectiveMatrix> leftMatrix = perspectiveTransform(frame, l);
    const std::optional<PerspectiveMatrix> rightMatrix = perspectiveTransform(frame, r);
    if (!leftMatrix || !rightMatrix)
        return std::nullopt;

    // Only the cut-out is computed: a warped pixel depends on its coordinates alone, so this
    // equals warping the whole frame and cropping afterwards.
    const CommonArea area{static_cast<int64_t>(leftBound), static_cast<int64_t>(topBound),
                          static_cast<int64_t>(rightBound - leftBound), static_cast<int64_t>(bottomBound - topBound),
                          *leftMatrix, *rightMatrix};
    if (area.width <= 0 || area.height <= 0)
        return std::nullopt;
    return area;
}

// The warp writes every pixel, opaque black where nothing is sampled; a matrix it cannot
// invert samples nothing at all.
constexpr uint32_t opaqueBlack = 0xff000000u;

// Rows [first, first+count) of the cut-out of one warped picture into `out` (rows `stride`
// bytes apart).
void warpRows(const QImage &source, const PerspectiveMatrix &matrix, const CommonArea &area, int64_t first,
              int64_t count, uint8_t *out, int64_t stride)
{
    const PixelLayout target{area.width, count, stride, 4, 3};
    if (!warpPerspectiveRegion(source.constBits(), layoutOf(source), matrix, area.x0, area.y0 + first, area.width,
                               count, out, target, opaqueBlack))
        for (int64_t y = 0; y < count; ++y)
            std::fill_n(reinterpret_cast<uint32_t *>(out + y * stride), area.width, opaqueBlack);
}

} // namespace

std::optional<ImagePair> adjustPair(const QImage &left, const QImage &right, const StereoAdjustment &adjustment)
{
    if (left.isNull() || right.isNull() || left.size() != right.size())
        return std::nullopt;
    const auto [l, r] = adjustedCorners(left.width(), left.height(), adjustment);
    return warpToCommonArea(left, right, l, r);
}

std::optional<ImagePair> warpToCommonArea(const QImage &left, const QImage &right, const CornerPoints &l,
                                          const CornerPoints &r)
{
    if (left.isNull() || right.isNull() || left.size() != right.size())
        return std::nullopt;
    const std::optional<CommonArea> area = commonArea(left.width(), left.height(), l, r);
    if (!area)
        return std::nullopt;
    auto warp = [&](const QImage &image, const PerspectiveMatrix &matrix) {
        QImage output = newLargeImage(static_cast<int>(area->width), static_cast<int>(area->height),
                                      QImage::Format_RGB32);
        if (!output.isNull())
            warpRows(premultiplied32(image), matrix, *area, 0, area->height, output.bits(), output.bytesPerLine());
        return output;
    };
    ImagePair pair{warp(left, area->left), warp(right, area->right)};
    if (pair.left.isNull() || pair.right.isNull())
        return std::nullopt;
    return pair;
}

bool streamAdjustedPair(const QImage &left, const QImage &right, const StereoAdjustment &adjustment,
                        const std::function<bool(QSize)> &begin, const AdjustedRows &rows)
{
    if (left.isNull() || right.isNull() || left.size() != right.size())
        return false;
    const auto [l, r] = adjustedCorners(left.width(), left.height(), adjustment);
    const std::optional<CommonArea> area = commonArea(left.width(), left.height(), l, r);
    if (!area || !begin(QSize(static_cast<int>(area->width), static_cast<int>(area->height))))
        return false;
    const QImage a = premultiplied32(left), b = premultiplied32(right);
    // Bands small enough that both warped bands stay in the core's cache until consumed.
    const int64_t bandRows = std::clamp<int64_t>((int64_t{128} << 10) / (area->width * 4), 1, 64);
    const int64_t stride = area->width * 4;
    std::atomic<int64_t> next{0};
    parallelRows(area->height, [&](int64_t, int64_t) {
        std::vector<uint8_t> bands(static_cast<size_t>(2 * bandRows * stride));
        uint8_t *bandLeft = bands.data(), *bandRight = bands.data() + bandRows * stride;
        for (int64_t first; (first = next.fetch_add(bandRows, std::memory_order_relaxed)) < area->height;) {
            const int64_t count = std::min(bandRows, area->height - first);
            warpRows(a, area->left, *area, first, count, bandLeft, stride);
            warpRows(b, area->right, *area, first, count, bandRight, stride);
            rows(first, count, bandLeft, bandRight, stride);
        }
    });
    return true;
}

} // namespace Vorel
