// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/foldernavigator.h"

#include <QDir>
#include <QFileInfo>

namespace Vorel {

void FolderNavigator::rebuild(const QString &openedFile, LoadMode loadMode)
{
    mode = loadMode;
    const QFileInfo opened(openedFile);
    files = opened.dir().exists() ? listStereoFiles(opened.absolutePath()) : QStringList();
    index = static_cast<int>(files.indexOf(opened.absoluteFilePath()));
    if (index < 0) {
        // Not listable, or a file that is never listed (BMP): the opened file alone.
        files = QStringList{opened.absoluteFilePath()};
        index = 0;
    } else if (mode == filePair && index % 2 == 1) {
        --index; // an entry always starts on a left file
    }
}

bool FolderNavigator::canStep(int direction) const
{
    const int next = index + direction * stepSize();
    return !files.isEmpty() && next >= 0 && next < files.size();
}

std::optional<StereoEntry> FolderNavigator::step(int direction)
{
    if (!canStep(direction))
        return std::nullopt;
    index += direction * stepSize();
    if (mode == singleFile)
        return StereoEntry{files[index], {}};
    // On the last position the same file is both views, deliberately.
    const int right = index + 1 < files.size() ? index + 1 : index;
    return StereoEntry{files[index], files[right]};
}

} // namespace Vorel
