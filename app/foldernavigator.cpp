// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/foldernavigator.h"

#include <QFileInfo>

namespace Vorel
{

void FolderNavigator::rebuild(const QString &openedFile, LoadMode loadMode)
{
    mode = loadMode;
    const QFileInfo opened(openedFile);
    const QString path = opened.absoluteFilePath();
    files = listStereoFiles(opened.absolutePath());
    const int index = static_cast<int>(files.indexOf(path));
    if (index >= 0) {
        cursor.place(int(files.size()), index, int(mode));
    } else if (!QFileInfo(opened.absolutePath()).isReadable()) {
        files = QStringList { path }; // the folder cannot be listed: the opened file alone
        cursor.place(1, 0, int(mode));
    } else {
        cursor.place(int(files.size()), int(naturalSortPosition(files, path)), int(mode), false);
    }
}

bool FolderNavigator::canStep(int direction) const
{
    return cursor.canStep(direction);
}

std::optional<StereoEntry> FolderNavigator::step(int direction)
{
    const std::optional<EntryPosition> position = cursor.step(direction);
    if (!position)
        return std::nullopt;
    return StereoEntry { files[position->left], position->right < 0 ? QString() : files[position->right] };
}

} // namespace Vorel
