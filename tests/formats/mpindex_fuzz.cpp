// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: the MP index parser must survive any bytes.
#include <cstddef>
#include <cstdint>

#include "formats/mpindex.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
    for (const Vorel::MpPicture &picture : Vorel::readMpIndex(bytes))
        if (picture.size < 0)
            __builtin_trap();
    return 0;
}
