// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Automatic colour matching: one image of a pair takes on the brightness and the per-channel
// level distribution of the other (a gamma step, then histogram specification).
#pragma once

#include <optional>

#include <QImage>

#include "core/rgbbuffer.h"

namespace Vorel {

class StereoImageProcessor;

// The target corrected towards the reference, same size as the target. The first
// target.w * target.h pixels of the reference are compared; a smaller reference leaves the
// target unchanged.
RgbBuffer matchColors(const RgbBuffer &reference, const RgbBuffer &target);
// None when either image is null.
std::optional<QImage> matchColors(const QImage &reference, const QImage &target);

// Matches one source image of the processor to the other. With `flag` equal to the
// processor's swap flag the right original is corrected (left as reference), otherwise the
// left original. Nothing changes without a pair or when matching yields nothing.
void matchColours(StereoImageProcessor &processor, bool flag);

} // namespace Vorel
