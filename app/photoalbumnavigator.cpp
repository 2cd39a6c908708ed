// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/photoalbumnavigator.h"

namespace Vorel
{

void PhotoAlbumNavigator::open(PhotoChoice choice)
{
    chosen = std::move(choice);
    cursor.place(int(chosen.assets.size()), chosen.left, chosen.right < 0 ? 1 : 2);
}

std::optional<StereoEntry> PhotoAlbumNavigator::step(int direction)
{
    const std::optional<EntryPosition> position = cursor.step(direction);
    if (!position)
        return std::nullopt;
    const auto path = [this](int index) { return chosen.assets[size_t(index)].path; };
    return StereoEntry { path(position->left), position->right < 0 ? QString() : path(position->right) };
}

} // namespace Vorel
