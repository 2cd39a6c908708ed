// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "core/imagehistory.h"

using namespace Vorel;

namespace {

// A state identified by its width, so sequences read plainly.
QImage tagged(int n) { return QImage(n, 1, QImage::Format_RGB32); }
int tagOf(const std::optional<ImagePair> &pair) { return pair ? pair->left.width() : -1; }

TEST(ImageHistory, UndoRedoSequence)
{
    ImageHistory history;
    history.push(tagged(1), tagged(1));
    EXPECT_EQ(tagOf(history.undo()), -1); // the loaded state cannot be undone
    history.push(tagged(2), tagged(2));
    history.push(tagged(3), tagged(3));
    EXPECT_EQ(tagOf(history.undo()), 2);
    EXPECT_EQ(tagOf(history.undo()), 1);
    EXPECT_EQ(tagOf(history.undo()), -1);
    EXPECT_EQ(tagOf(history.redo()), 2);
    EXPECT_EQ(tagOf(history.redo()), 3);
    EXPECT_EQ(tagOf(history.redo()), -1);
    history.undo();
    history.push(tagged(4), tagged(4)); // a push after undo drops the redo states
    EXPECT_EQ(tagOf(history.redo()), -1);
}

TEST(ImageHistory, KeepsTwentyStatesAndSharesPixels)
{
    ImageHistory history;
    const QImage first = tagged(100);
    history.push(first, first);
    for (int i = 1; i <= 25; ++i)
        history.push(tagged(100 + i), tagged(100 + i));
    EXPECT_EQ(history.undoCount(), ImageHistory::maxHistory);
    int undos = 0;
    std::optional<ImagePair> last;
    while (std::optional<ImagePair> pair = history.undo()) {
        last = pair;
        ++undos;
    }
    EXPECT_EQ(undos, 19);
    EXPECT_EQ(tagOf(last), 106);

    ImageHistory sharing;
    sharing.push(first, first);
    sharing.push(tagged(2), tagged(2));
    EXPECT_EQ(sharing.undo()->left.constBits(), first.constBits()); // no pixel copy
}

} // namespace
