// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Stepping through the stereo files of the folder that holds the last opened file: one file
// per entry (load mode 1) or a left and a right file per entry (load mode 2).
#pragma once

#include <optional>

#include <QStringList>

#include "app/entrycursor.h"
#include "core/stereofilelist.h"
#include "core/stereointake.h"

namespace Vorel {

class FolderNavigator {
public:
    enum LoadMode { singleFile = 1, filePair = 2 };

    // Rebuilds the list around the file just opened.
    void rebuild(const QString &openedFile, LoadMode mode);

    // The entry one step forwards (+1) or backwards (-1), and moves there; none at either end.
    std::optional<StereoEntry> step(int direction);
    bool canStep(int direction) const;

    const QStringList &imageList() const { return files; }
    int currentIndex() const { return cursor.currentIndex(); }
    LoadMode loadMode() const { return mode; }
    // False while the opened file is one the list never holds (a BMP): currentIndex is then
    // where it would sort, and stepping goes to the entries on either side of it.
    bool isCurrentListed() const { return cursor.isCurrentListed(); }

private:
    QStringList files;
    EntryCursor cursor;
    LoadMode mode = singleFile;
};

} // namespace Vorel
