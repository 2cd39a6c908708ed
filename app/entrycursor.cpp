// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/entrycursor.h"

namespace Vorel
{

void EntryCursor::place(int pictureCount, int position, int entrySize, bool isListed)
{
    count = pictureCount;
    size = entrySize;
    listed = isListed;
    index = listed && size == 2 && position % 2 == 1 ? position - 1 : position;
}

int EntryCursor::target(int direction) const
{
    if (listed)
        return index + direction * size;
    // From the gap the unlisted picture sorts into: the first entry after it, or the last before.
    const int after = (index + size - 1) / size * size;
    return direction > 0 ? after : after - size;
}

bool EntryCursor::canStep(int direction) const
{
    const int next = target(direction);
    return count > 0 && next >= 0 && next < count;
}

std::optional<EntryPosition> EntryCursor::step(int direction)
{
    if (!canStep(direction))
        return std::nullopt;
    index = target(direction);
    listed = true;
    if (size == 1)
        return EntryPosition { index, -1 };
    // On the last position the same picture is both views, deliberately.
    return EntryPosition { index, index + 1 < count ? index + 1 : index };
}

} // namespace Vorel
