// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stereoimageprocessor.h"

#include <cmath>

#include "core/displaycomposition.h"
#include "core/preferences.h"
#include "core/stereolayouts.h"
#include "formats/spatialphoto.h"

namespace Vorel {

namespace {

// Stretched (aspect ratio not kept) into a premultiplied 32-bit image of exactly `size`.
QImage redrawn(const QImage &image, QSize size)
{
    QImage scaled = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (scaled.isNull())
        return QImage();
    return scaled.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// A view of `area` of a 32-bit image, sharing its pixels: the halves of a large side-by-side or
// over/under picture cost no copy. The view keeps the whole picture alive; writing to it
// detaches as any QImage does.
QImage areaView(const QImage &image, QRect area)
{
    auto *owner = new QImage(image);
    return QImage(owner->constBits() + static_cast<qsizetype>(area.y()) * owner->bytesPerLine() +
                      static_cast<qsizetype>(area.x()) * 4,
                  area.width(), area.height(), owner->bytesPerLine(), owner->format(),
                  [](void *info) { delete static_cast<QImage *>(info); }, owner);
}

QImage as32Bit(const QImage &image)
{
    return image.depth() == 32 ? image : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

std::optional<QImage> unlessNull(const QImage &image)
{
    return image.isNull() ? std::nullopt : std::optional(image);
}

std::optional<StereoLayout> layoutOf(DisplayMode mode)
{
    switch (mode) {
    case DisplayMode::overUnder:
        return StereoLayout::overUnder;
    case DisplayMode::halfOverUnder:
        return StereoLayout::halfOverUnder;
    case DisplayMode::rowInterlaced:
        return StereoLayout::rowInterlaced;
    case DisplayMode::columnInterlaced:
        return StereoLayout::columnInterlaced;
    case DisplayMode::checkerboard:
        return StereoLayout::checkerboard;
    default:
        return std::nullopt;
    }
}

} // namespace

void StereoImageProcessor::loadPair(const QImage &left, const QImage &right, bool resetHistory)
{
    if (left.size() == right.size()) {
        leftOriginal = left;
        rightOriginal = right;
    } else {
        const QSize target(std::min(left.width(), right.width()), std::min(left.height(), right.height()));
        leftOriginal = redrawn(left, target);
        rightOriginal = redrawn(right, target);
    }
    resetAfterLoad(resetHistory);
}

void StereoImageProcessor::loadSideBySide(const QImage &image, bool resetHistory)
{
    const int half = image.width() / 2;
    if (image.isNull() || half <= 0)
        return;
    const QImage whole = as32Bit(image);
    leftOriginal = areaView(whole, QRect(0, 0, half, whole.height()));
    rightOriginal = areaView(whole, QRect(half, 0, half, whole.height()));
    resetAfterLoad(resetHistory);
}

void StereoImageProcessor::loadOverUnder(const QImage &image, bool resetHistory)
{
    const int half = image.height() / 2;
    if (image.isNull() || half <= 0)
        return;
    const QImage whole = as32Bit(image);
    leftOriginal = areaView(whole, QRect(0, 0, whole.width(), half));
    rightOriginal = areaView(whole, QRect(0, half, whole.width(), half));
    resetAfterLoad(resetHistory);
}

void StereoImageProcessor::resetAfterLoad(bool resetHistory)
{
    cachedLeft.reset();
    cachedRight.reset();
    adjustment = StereoAdjustment{};
    if (!resetHistory)
        return;
    history.clear();
    if (!keepsHistory)
        return;
    if (std::optional<ImagePair> pair = render(false))
        history.push(pair->left, pair->right);
}

std::pair<const std::optional<QImage> &, const std::optional<QImage> &>
StereoImageProcessor::sources(bool useCache) const
{
    const bool preview = nTab == previewTab && useCache;
    return {preview ? cachedLeft : leftOriginal, preview ? cachedRight : rightOriginal};
}

std::optional<ImagePair> StereoImageProcessor::renderInputs(bool useCache) const
{
    const auto [left, right] = sources(useCache);
    if (!left || !right)
        return std::nullopt;
    return adjustPair(*left, *right, adjustment);
}

std::optional<ImagePair> StereoImageProcessor::renderFullWidth(bool useCache) const
{
    std::optional<ImagePair> adjusted = renderInputs(useCache);
    if (adjusted && isSwap)
        std::swap(adjusted->left, adjusted->right);
    return adjusted;
}

std::optional<ImagePair> StereoImageProcessor::render(bool useCache) const
{
    std::optional<ImagePair> adjusted = renderFullWidth(useCache);
    if (adjusted && isHalf)
        adjusted = ImagePair{halfWidth(adjusted->left), halfWidth(adjusted->right)};
    return adjusted;
}

std::optional<QImage> StereoImageProcessor::renderAnaglyph(int kind, bool useCache) const
{
    const auto [left, right] = sources(useCache);
    if (!left || !right)
        return std::nullopt;
    return composeAdjustedAnaglyph(*left, *right, adjustment, isSwap, kind);
}

std::optional<QImage> StereoImageProcessor::renderDisplayPicture(DisplayMode mode, bool useCache) const
{
    if (const int kind = displayModeInfo(mode).anaglyphKind; kind >= 0)
        return renderAnaglyph(kind, useCache);
    if (const std::optional<StereoLayout> layout = layoutOf(mode)) {
        const auto [left, right] = sources(useCache);
        if (!left || !right)
            return std::nullopt;
        return composeAdjustedLayout(*left, *right, adjustment, isSwap, *layout);
    }
    if (mode != DisplayMode::sbs && mode != DisplayMode::hsbs)
        return std::nullopt;
    const std::optional<ImagePair> pair = renderFullWidth(useCache);
    if (!pair)
        return std::nullopt;
    if (mode == DisplayMode::hsbs)
        return unlessNull(composeSideBySide(halfWidth(pair->left), halfWidth(pair->right)));
    return unlessNull(composeSideBySide(pair->left, pair->right));
}

void StereoImageProcessor::makePreviewCache(int maxWidth, int maxHeight)
{
    if (!leftOriginal || maxWidth <= 0 || maxHeight <= 0)
        return;
    const double w = leftOriginal->width();
    const double h = leftOriginal->height();
    const QSize target = h / maxHeight < w / maxWidth
                             ? QSize(maxWidth, static_cast<int>(maxWidth * h / w))
                             : QSize(static_cast<int>(maxHeight * w / h), maxHeight);
    if (target.isEmpty())
        return;
    cachedLeft = redrawn(*leftOriginal, target);
    cachedRight.reset();
    if (rightOriginal)
        cachedRight = redrawn(*rightOriginal, target);
}

void StereoImageProcessor::rememberAdjustment(Preferences &preferences)
{
    if (adjustment == adjustprev)
        return;
    adjustprev = adjustment;
    preferences.setNumber(QStringLiteral("batch.manualH"), adjustment.horizontalOffset);
    preferences.setNumber(QStringLiteral("batch.manualV"), adjustment.verticalOffset);
    preferences.setNumber(QStringLiteral("batch.manualRot"), adjustment.rotation);
    preferences.setNumber(QStringLiteral("batch.manualScale"), adjustment.scale);
}

std::optional<QImage> StereoImageProcessor::crop(const QImage &image, const QRectF &rect)
{
    if (image.isNull())
        return std::nullopt;
    const QRect pixels(static_cast<int>(rect.x() * image.width()), static_cast<int>(rect.y() * image.height()),
                       static_cast<int>(rect.width() * image.width()),
                       static_cast<int>(rect.height() * image.height()));
    const QRect inside = pixels.intersected(image.rect());
    if (inside.isEmpty())
        return std::nullopt;
    return image.copy(inside);
}

bool StereoImageProcessor::replaceByAdjusted(const std::function<std::optional<QImage>(const QImage &)> &change)
{
    // In source order: swapping only ever changes the order of what is shown.
    const std::optional<ImagePair> adjusted = renderInputs(false);
    if (!adjusted)
        return false;
    const std::optional<QImage> left = change(adjusted->left), right = change(adjusted->right);
    if (!left || !right)
        return false;
    loadPair(*left, *right, false);
    return true;
}

bool StereoImageProcessor::cropPair(const QRectF &rect)
{
    return replaceByAdjusted([&rect](const QImage &image) { return crop(image, rect); });
}

bool StereoImageProcessor::cropPair(const QRect &pixels)
{
    return replaceByAdjusted([&pixels](const QImage &image) -> std::optional<QImage> {
        const QRect inside = pixels.intersected(image.rect());
        return inside.isEmpty() ? std::nullopt : std::optional(image.copy(inside));
    });
}

bool StereoImageProcessor::resizePair(int width, int height, ResizeMode mode)
{
    return replaceByAdjusted([=](const QImage &image) { return resizeImage(image, width, height, mode); });
}

bool StereoImageProcessor::saveAsSpatialPhoto(const QString &path, int adj, double fov, double stb) const
{
    const std::optional<ImagePair> pair = renderFullWidth(false);
    if (!pair)
        return false;
    writeSpatialPhoto(pair->left, pair->right, path, adj, fov, stb, cameraExif);
    return true;
}

} // namespace Vorel
