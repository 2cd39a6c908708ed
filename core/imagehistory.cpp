// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/imagehistory.h"

namespace Vorel {

void ImageHistory::push(const QImage &left, const QImage &right)
{
    const bool full = undoStack.size() >= static_cast<size_t>(maxHistory);
    undoStack.push_back({left, right});
    if (full)
        undoStack.erase(undoStack.begin());
    redoStack.clear();
}

std::optional<ImagePair> ImageHistory::undo()
{
    if (undoStack.size() < 2)
        return std::nullopt;
    redoStack.push_back(std::move(undoStack.back()));
    undoStack.pop_back();
    return undoStack.back();
}

std::optional<ImagePair> ImageHistory::redo()
{
    if (redoStack.empty())
        return std::nullopt;
    undoStack.push_back(std::move(redoStack.back()));
    redoStack.pop_back();
    return undoStack.back();
}

void ImageHistory::clear()
{
    undoStack.clear();
    redoStack.clear();
}

} // namespace Vorel
