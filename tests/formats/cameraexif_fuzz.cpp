// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: the camera Exif of any file (JPEG, PNG, TIFF, HEIF by their first bytes) is empty
// or a TIFF block; a block rewritten for a written picture (the file's own, and the bytes
// themselves taken as a block) is empty or a TIFF block that fits one JPEG segment and takes a
// second rewrite.
#include "formats/cameraexif.h"
#include "fuzz/fuzzinput.h"

namespace {

using Vorel::Fuzz::check;

bool isTiffBlock(const QByteArray &block)
{
    return block.startsWith(QByteArrayView("II*\0", 4)) || block.startsWith(QByteArrayView("MM\0*", 4));
}

void rewrite(const QByteArray &block)
{
    const QSize size(640, 480);
    const QByteArray written = Vorel::exifForWrittenPicture(block, size);
    if (written.isEmpty())
        return;
    check(isTiffBlock(written) && written.size() <= Vorel::maxExifBlockSize);
    check(!Vorel::exifForWrittenPicture(written, size).isEmpty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray file = Vorel::Fuzz::bytes(data, size);
    const QByteArray exif = Vorel::readCameraExif(Vorel::Fuzz::writeFile(file, QStringLiteral("in")));
    check(exif.isEmpty() || isTiffBlock(exif));
    rewrite(exif);
    rewrite(file);
    return 0;
}
