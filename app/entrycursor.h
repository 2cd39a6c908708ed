// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The stepping rule of the main window, over any list of pictures: entries of one picture, or
// of a left and a right picture. Folder stepping and photo-album stepping both run on it.
#pragma once

#include <optional>

namespace Vorel
{

// Positions in the list of the pictures of one entry; `right` is -1 for a single picture.
struct EntryPosition {
    int left = 0;
    int right = -1;
};

class EntryCursor
{
public:
    // Stands on `index` of `count` pictures, with entries of `stepSize` (1 or 2) pictures. A pair
    // always starts on an even position (a left picture), so an odd index moves one lower.
    // `listed` false: the picture on screen is not in the list and `index` is where it would sort.
    void place(int count, int index, int stepSize, bool listed = true);

    bool canStep(int direction) const;
    // The entry one step forwards (+1) or backwards (-1), and moves there; none past either end.
    std::optional<EntryPosition> step(int direction);

    int currentIndex() const { return index; }
    int stepSize() const { return size; }
    bool isCurrentListed() const { return listed; }

private:
    int target(int direction) const;

    int count = 0;
    int index = 0;
    int size = 1;
    bool listed = true;
};

} // namespace Vorel
