// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: the MP index parser must survive any bytes.
#include "formats/mpindex.h"
#include "fuzz/fuzzinput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    for (const Vorel::MpPicture &picture : Vorel::readMpIndex(Vorel::Fuzz::bytes(data, size)))
        Vorel::Fuzz::check(picture.size >= 0);
    return 0;
}
