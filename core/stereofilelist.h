// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The stereo files of a folder, as both folder stepping in the window and the batch list them:
// the accepted extensions, hidden files skipped, natural file-name order.
#pragma once

#include <QStringList>

namespace Vorel {

// The accepted extensions, lower case, in the order they are checked.
inline constexpr const char *stereoFileExtensions[] = {"jpg", "jpeg", "png", "tiff", "tif", "heic", "mpo", "jps", "pns"};

// The folder's direct entries with an accepted extension (any case), hidden files skipped, as
// absolute paths in natural order ("a2.JPG" < "a10.jpg" < "b.jpg"). Empty when the folder
// cannot be listed.
QStringList listStereoFiles(const QString &folder);

// Sorts paths by file name: digit runs compare by their value, everything else
// case-insensitively, the same in every locale.
void sortNaturally(QStringList &paths);

// Where `path` would stand among `sortedPaths` (in the order of sortNaturally): the index of
// the first path that sorts after it.
qsizetype naturalSortPosition(const QStringList &sortedPaths, const QString &path);

} // namespace Vorel
