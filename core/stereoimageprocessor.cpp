// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stereoimageprocessor.h"

#include <cmath>

#include "core/displaycomposition.h"
#include "core/preferences.h"
#include "formats/imagewriter.h"
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

// A view of columns [x, x+width) of a 32-bit image, sharing its pixels: the halves of a large
// side-by-side picture cost no copy. The view keeps the whole picture alive; writing to it
// detaches as any QImage does.
QImage columnsView(const QImage &image, int x, int width)
{
    auto *owner = new QImage(image);
    return QImage(owner->constBits() + static_cast<qsizetype>(x) * 4, width, owner->height(), owner->bytesPerLine(),
                  owner->format(), [](void *info) { delete static_cast<QImage *>(info); }, owner);
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
    const QImage whole = image.depth() == 32 ? image : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    leftOriginal = columnsView(whole, 0, half);
    rightOriginal = columnsView(whole, half, half);
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

bool StereoImageProcessor::saveSideBySide(const QString &path) const
{
    const std::optional<ImagePair> pair = render(false);
    return pair && writeImage(composeSideBySide(pair->left, pair->right), path);
}

bool StereoImageProcessor::saveAsSpatialPhoto(const QString &path, int adj, double fov, double stb) const
{
    const std::optional<ImagePair> pair = renderFullWidth(false);
    if (!pair)
        return false;
    writeSpatialPhoto(pair->left, pair->right, path, adj, fov, stb);
    return true;
}

} // namespace Vorel
