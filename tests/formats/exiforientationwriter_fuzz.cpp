// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target for the orientation tag surgery: any input must be refused or rewritten without
// a crash, and a rewritten file must take a second rewrite with the same value unchanged.
#include "formats/heiforientation.h"
#include "formats/jpegorientation.h"
#include "formats/pngorientation.h"
#include "formats/tifforientation.h"
#include "fuzz/fuzzinput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray file = Vorel::Fuzz::bytes(data, size);
    const int orientation = int(size % 8) + 1;
    for (const auto edit : {Vorel::jpegWithOrientation, Vorel::pngWithOrientation, Vorel::tiffWithOrientation,
             Vorel::heifWithOrientation}) {
        const std::optional<QByteArray> once = edit(file, orientation);
        Vorel::Fuzz::check(!once || edit(*once, orientation) == once);
    }
    return 0;
}
