// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What the photo pickers hand to the main window: one picture, or a left and a right picture,
// out of the pictures of one album.
#pragma once

#include <vector>

#include "photos/photoasset.h"

namespace Vorel
{

struct PhotoChoice {
    PhotoAlbum album;
    std::vector<PhotoAsset> assets; // the album's pictures, in natural name order
    int left = 0; // positions in `assets`
    int right = -1; // -1: one picture
};

} // namespace Vorel
