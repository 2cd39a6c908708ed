// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: a spatial photo read end to end (container, stereo group, both eyes decoded to
// sRGB) either gives two pictures or throws SpatialPhotoError; its camera parameters read
// without a crash.
#include "formats/spatialphoto.h"
#include "formats/spatialphotoerror.h"
#include "fuzz/fuzzinput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray file = Vorel::Fuzz::bytes(data, size);
    try {
        const Vorel::ImagePair pair = Vorel::readSpatialPhoto(Vorel::Fuzz::writeFile(file, QStringLiteral("in.heic")));
        Vorel::Fuzz::check(!pair.left.isNull() && !pair.right.isNull());
    } catch (const Vorel::SpatialPhotoError &) {
    }
    Vorel::readSpatialParameters(file);
    return 0;
}
