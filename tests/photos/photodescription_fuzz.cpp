// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: the library describes any file from its header: a kind, and a size that is
// either invalid (unreadable header) or positive.
#include "fuzz/fuzzinput.h"
#include "photos/photolibrary.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = Vorel::Fuzz::writeFile(Vorel::Fuzz::bytes(data, size), QStringLiteral("photo.jpg"));
    const Vorel::PhotoAsset asset = Vorel::describeFile(path, Vorel::Fuzz::folder());
    Vorel::Fuzz::check(asset.path == path);
    Vorel::Fuzz::check(!asset.size.isValid() || (asset.size.width() > 0 && asset.size.height() > 0));
    return 0;
}
