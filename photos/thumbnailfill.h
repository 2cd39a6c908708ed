// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Filling the thumbnail cache for many files at once, on every core, without an event loop.
#pragma once

#include <QStringList>

#include "photos/thumbnailcache.h"

namespace Vorel {

// Makes sure each file has its thumbnails of `sizes` in `cache`; the files that are broken
// (see ThumbnailCache::fill), in the order of `paths`.
QStringList fillThumbnails(const ThumbnailCache &cache, const QStringList &paths,
                           std::initializer_list<ThumbnailSize> sizes);

} // namespace Vorel
