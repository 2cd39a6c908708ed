// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The thumbnail cache every desktop program shares (the freedesktop Thumbnail Managing
// Standard): PNGs named by the MD5 of the file's URI, valid while their Thumb::MTime (and
// Thumb::Size, when present) match the file; failures remembered under fail/vorel-<version>/.
// All methods are const and may run on several threads at once.
#pragma once

#include <optional>
#include <vector>

#include <QImage>
#include <QString>

namespace Vorel {

// The standard's size folders; the value is the box a thumbnail fits in.
enum class ThumbnailSize { normal = 128, large = 256, xLarge = 512 };
inline constexpr ThumbnailSize thumbnailSizes[] = {ThumbnailSize::normal, ThumbnailSize::large, ThumbnailSize::xLarge};

// "normal", "large", "x-large".
QString thumbnailFolderName(ThumbnailSize size);

// $XDG_CACHE_HOME/thumbnails when the variable is set and not blank, else ~/.cache/thumbnails.
QString defaultThumbnailFolder();

// file:// + the absolute canonical path, percent-encoded as the desktop's file managers do.
QByteArray thumbnailUri(const QString &path);
// Lowercase hex MD5 of the URI + ".png".
QString thumbnailFileName(const QByteArray &uri);

class ThumbnailCache {
public:
    explicit ThumbnailCache(QString folder = defaultThumbnailFolder());

    // A stored thumbnail still valid for the file, from `size`'s folder or a larger one
    // (scaled into the box); none otherwise.
    std::optional<QImage> find(const QString &path, ThumbnailSize size) const;

    // find(), else a new thumbnail made by a reduced decode and stored (when the cache folder
    // is writable). None for a file that cannot be read or decoded: such a file gets a fail
    // entry and is not tried again until its modification time changes.
    std::optional<QImage> thumbnail(const QString &path, ThumbnailSize size) const;

    // Makes sure every size in `sizes` is stored, decoding the file at most once. False when
    // the file is broken (see thumbnail).
    bool fill(const QString &path, std::initializer_list<ThumbnailSize> sizes) const;

    // Whether a current fail entry stands for the file.
    bool hasFailed(const QString &path) const;

    const QString &folder() const { return base; }
    // Where the thumbnail of `path` in `size` is stored.
    QString thumbnailPath(const QString &path, ThumbnailSize size) const;
    QString failPath(const QString &path) const;

private:
    // Renders the file once for the largest of `sizes`, stores each size, and hands back the
    // first; a file that does not decode gets its fail entry instead.
    bool make(const QString &path, const std::vector<ThumbnailSize> &sizes, std::optional<QImage> *first) const;

    QString base;
};

// The picture of `path` fitted into a square box of `box` pixels (never enlarged), upright
// and in sRGB, decoded at the smallest scale that still fills the box; none when unreadable.
std::optional<QImage> renderThumbnail(const QString &path, int box);

} // namespace Vorel
