// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Photo mode of the main window: stepping over the pictures of the album the shown picture
// came from, by the same rule as folder stepping.
#pragma once

#include <optional>

#include "app/entrycursor.h"
#include "core/stereointake.h"
#include "photos/photochoice.h"

namespace Vorel
{

class PhotoAlbumNavigator
{
public:
    // Stands on the chosen pictures; a pair steps by two.
    void open(PhotoChoice choice);

    // The entry one step forwards (+1) or backwards (-1), and moves there; none at either end.
    std::optional<StereoEntry> step(int direction);
    bool canStep(int direction) const { return cursor.canStep(direction); }

    const PhotoAlbum &album() const { return chosen.album; }
    const std::vector<PhotoAsset> &photoAssets() const { return chosen.assets; }
    int photoIndex() const { return cursor.currentIndex(); }
    int photoStepSize() const { return cursor.stepSize(); }

private:
    PhotoChoice chosen;
    EntryCursor cursor;
};

} // namespace Vorel
