// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The bordered picture drawn mostly with row copies: background and unscaled images row by
// row, the painter only over the rows that rounded corners and fusion dots cross.
#pragma once

#include "border/borderpainter.h"

namespace Vorel {

// Fills the whole canvas and returns true when both images have the slot size, the slots do
// not overlap and rounded slots start on whole columns; otherwise returns false and writes
// nothing.
bool copyBorderScene(QImage &canvas, const BorderScene &scene);

} // namespace Vorel
