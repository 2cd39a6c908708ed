// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The stereo pair being worked on: source images, manual adjustment, swap and half-width
// flags, preview copies and the undo/redo history. Every rendering of the pair starts here.
// Single-threaded: one processor is used on one thread only.
#pragma once

#include <functional>
#include <optional>
#include <utility>

#include <QByteArray>
#include <QImage>
#include <QRectF>
#include <QString>

#include "core/imagehistory.h"
#include "core/pairresize.h"
#include "core/stereotypes.h"

namespace Vorel {

class Preferences;

class StereoImageProcessor {
public:
    // Control panel page whose selection switches rendering to the preview copies.
    static constexpr int previewTab = 3;

    ImageHistory history;
    // Headless runs (the batch, vorel-cli) never undo: without a history, loading a pair renders
    // nothing that no output needs.
    bool keepsHistory = true;
    std::optional<QImage> leftOriginal;
    std::optional<QImage> rightOriginal;
    std::optional<QImage> cachedLeft;
    std::optional<QImage> cachedRight;
    bool ismakeanaglyph = false; // reserved, no behaviour
    int nTab = 0;
    bool isSwap = false;
    bool isHalf = false;
    StereoAdjustment adjustment;
    StereoAdjustment adjustprev;
    // The Exif block (TIFF structure) of the file the pair came from, the left file of a
    // separate pair; every picture written from the pair carries it. Empty when there is none.
    QByteArray cameraExif;

    bool hasPair() const { return leftOriginal.has_value() && rightOriginal.has_value(); }

    // Makes two images the source pair; different sizes are stretched to the common minimum.
    void loadPair(const QImage &left, const QImage &right, bool resetHistory);
    // Splits a side-by-side picture at width / 2 (an odd last column is dropped).
    void loadSideBySide(const QImage &image, bool resetHistory);
    // Splits an over/under picture at height / 2, the left view on top (an odd last row is dropped).
    void loadOverUnder(const QImage &image, bool resetHistory);

    std::optional<ImagePair> render(bool useCache) const;
    // The adjusted (and swapped) pair at full width, whatever isHalf says.
    std::optional<ImagePair> renderFullWidth(bool useCache) const;
    std::optional<QImage> renderAnaglyph(int kind, bool useCache) const;
    // The one picture a display mode shows and saves (side by side, half side by side, over/under,
    // interlaced, every anaglyph); none for `imageBorder`, which the border composer frames.
    std::optional<QImage> renderDisplayPicture(DisplayMode mode, bool useCache) const;

    // Colour-matches one source image to the other; `matcher(image, reference)` does the
    // matching (automatic colour matching supplies it).
    template <typename Matcher> void matchColours(bool flag, Matcher &&matcher);

    void makePreviewCache(int maxWidth, int maxHeight);
    // Writes the adjustment to the "batch.manual*" keys when it changed since the last call.
    void rememberAdjustment(Preferences &preferences);

    // `rect` in fractions of the image size.
    static std::optional<QImage> crop(const QImage &image, const QRectF &rect);

    // The crop and resize commands: the adjusted pair, each image cut to `rect` or resized,
    // becomes the new source pair (the history is the caller's). False, with nothing changed,
    // when there is no pair or an image cannot be made.
    bool cropPair(const QRectF &rect);
    bool cropPair(const QRect &pixels); // a rectangle inside the adjusted pair
    bool resizePair(int width, int height, ResizeMode mode);

    // Writes the full-width pair as a spatial photo carrying the camera Exif. False when there
    // is no pair; throws SpatialPhotoError when writing fails.
    bool saveAsSpatialPhoto(const QString &path, int adj, double fov, double stb) const;

private:
    void resetAfterLoad(bool resetHistory);
    // The pictures rendering starts from: the preview copies on the adjustment page when allowed.
    std::pair<const std::optional<QImage> &, const std::optional<QImage> &> sources(bool useCache) const;
    std::optional<ImagePair> renderInputs(bool useCache) const;
    bool replaceByAdjusted(const std::function<std::optional<QImage>(const QImage &)> &change);
};

template <typename Matcher> void StereoImageProcessor::matchColours(bool flag, Matcher &&matcher)
{
    if (!hasPair())
        return;
    if (flag == isSwap) {
        if (std::optional<QImage> matched = matcher(*rightOriginal, *leftOriginal))
            rightOriginal = *matched;
    } else {
        if (std::optional<QImage> matched = matcher(*leftOriginal, *rightOriginal))
            leftOriginal = *matched;
    }
}

} // namespace Vorel
