// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Turns a pair of source images and a manual adjustment into what is shown and saved:
// the warped pair cropped to its common area, half-width squeeze, anaglyphs and the
// side-by-side picture.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include <QImage>
#include <QPointF>

#include "core/rgbbuffer.h"
#include "core/stereotypes.h"

namespace Vorel {

// Corner points top-left, top-right, bottom-right, bottom-left; 32-bit floats, y down.
struct CornerPoint {
    float x = 0;
    float y = 0;
};
using CornerPoints = std::array<CornerPoint, 4>;

// 3x3 perspective matrix, row-major, m[8] == 1.
using PerspectiveMatrix = std::array<double, 9>;

// Byte of each channel in a 32-bit pixel as QImage keeps it on a little-endian machine.
inline constexpr int pixelBlue = 0, pixelGreen = 1, pixelRed = 2;

// The image as premultiplied 32-bit pixels (opaque images are left as they are): the first
// three bytes of each pixel are then exactly what drawing it over black would give.
QImage premultiplied32(const QImage &image);

// Draws the image over black (alpha dropped) into a tightly packed RGB buffer.
std::optional<RgbBuffer> imageToRGB(const QImage &image);
// Opaque 32-bit image (QImage::Format_RGB32) of the buffer's size.
std::optional<QImage> rgbToImage(const RgbBuffer &buffer);

// The matrix mapping each `from` point onto the matching `to` point; none if singular.
std::optional<PerspectiveMatrix> perspectiveTransform(const CornerPoints &from, const CornerPoints &to);

// Inverse-maps every output pixel through `matrix` and samples bilinearly; pixels whose
// source falls outside [0, w-1) x [0, h-1) stay black. Output has the input's size.
std::vector<uint8_t> warpPerspective(const uint8_t *source, int64_t w, int64_t h, int channels,
                                     const PerspectiveMatrix &matrix);
RgbBuffer warpPerspective(const RgbBuffer &source, const PerspectiveMatrix &matrix);

// Moved corner points of the left and right image for an adjustment, in pixels.
std::pair<CornerPoints, CornerPoints> adjustedCorners(int64_t w, int64_t h, const StereoAdjustment &adjustment);

// Both images warped by their half of the adjustment and cut to the common area.
// `right` must have the size of `left`.
std::optional<ImagePair> adjustPair(const QImage &left, const QImage &right, const StereoAdjustment &adjustment);
// Warps each image so that its frame corners land on the given moved corners, and cuts
// both to the largest axis-aligned rectangle inside both moved frames (whole pixels).
std::optional<ImagePair> warpToCommonArea(const QImage &left, const QImage &right, const CornerPoints &leftCorners,
                                          const CornerPoints &rightCorners);

// The adjusted pair of adjustPair delivered as bands of rows instead of two full-size
// pictures, for outputs made row by row (anaglyphs, side by side): `begin` gets the size of
// the common area once (false gives up), then `rows` gets rows [first, first+count) of both
// warped pictures, 32-bit pixels exactly as in adjustPair's pictures, each row `stride` bytes
// after the previous. Bands come from both cores at once, each exactly once; the bytes are
// valid during the call only. False where adjustPair gives none.
using AdjustedRows = std::function<void(int64_t first, int64_t count, const uint8_t *left, const uint8_t *right,
                                        int64_t stride)>;
bool streamAdjustedPair(const QImage &left, const QImage &right, const StereoAdjustment &adjustment,
                        const std::function<bool(QSize)> &begin, const AdjustedRows &rows);

// Half side-by-side squeeze: width x 0.5 truncated, height unchanged.
QImage halfWidth(const QImage &image);
// The source index of each of `length` outputs when `sourceLength` columns or rows are squeezed
// to `length` by the painter's nearest-neighbour pick (0 < length <= sourceLength).
std::vector<int32_t> nearestSourceIndices(int sourceLength, int length);

// `kind` is an AnaglyphKind (anything else: gray). Equal sizes required.
std::optional<QImage> composeAnaglyph(const QImage &first, const QImage &second, int kind);
// The anaglyph of the adjusted pair (first and second exchanged when `swapped`), composed from
// the warp's row bands; the same bits as composeAnaglyph of adjustPair's pictures.
std::optional<QImage> composeAdjustedAnaglyph(const QImage &left, const QImage &right,
                                              const StereoAdjustment &adjustment, bool swapped, int kind);

// first | second on one canvas, bottom-aligned, transparent where nothing is drawn.
QImage composeSideBySide(const QImage &first, const QImage &second);

} // namespace Vorel
