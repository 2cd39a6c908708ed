// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Undo/redo stacks of rendered pairs. The last element of `undoStack` is the current state;
// the first state (the pair as loaded) can never be undone.
#pragma once

#include <optional>
#include <vector>

#include "core/stereotypes.h"

namespace Vorel {

class ImageHistory {
public:
    static constexpr int maxHistory = 20;

    void push(const QImage &left, const QImage &right);
    std::optional<ImagePair> undo();
    std::optional<ImagePair> redo();
    void clear();

    int undoCount() const { return static_cast<int>(undoStack.size()); }
    int redoCount() const { return static_cast<int>(redoStack.size()); }

private:
    std::vector<ImagePair> undoStack; // oldest first
    std::vector<ImagePair> redoStack; // oldest first; last = next to redo
};

} // namespace Vorel
