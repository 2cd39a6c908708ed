// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/foldernavigator.h"

#include <QFileInfo>

namespace Vorel {

void FolderNavigator::rebuild(const QString &openedFile, LoadMode loadMode)
{
    mode = loadMode;
    const QFileInfo opened(openedFile);
    const QString path = opened.absoluteFilePath();
    files = listStereoFiles(opened.absolutePath());
    index = static_cast<int>(files.indexOf(path));
    listed = true;
    if (index >= 0) {
        if (mode == filePair && index % 2 == 1)
            --index; // an entry always starts on a left file
    } else if (!QFileInfo(opened.absolutePath()).isReadable()) {
        files = QStringList{path}; // the folder cannot be listed: the opened file alone
        index = 0;
    } else {
        index = static_cast<int>(naturalSortPosition(files, path));
        listed = false;
    }
}

int FolderNavigator::stepTarget(int direction) const
{
    const int size = stepSize();
    if (listed)
        return index + direction * size;
    // From the gap the unlisted file sorts into: the first entry after it, or the last before.
    const int after = (index + size - 1) / size * size;
    return direction > 0 ? after : after - size;
}

bool FolderNavigator::canStep(int direction) const
{
    const int next = stepTarget(direction);
    return !files.isEmpty() && next >= 0 && next < files.size();
}

std::optional<StereoEntry> FolderNavigator::step(int direction)
{
    if (!canStep(direction))
        return std::nullopt;
    index = stepTarget(direction);
    listed = true;
    if (mode == singleFile)
        return StereoEntry{files[index], {}};
    // On the last position the same file is both views, deliberately.
    const int right = index + 1 < files.size() ? index + 1 : index;
    return StereoEntry{files[index], files[right]};
}

} // namespace Vorel
