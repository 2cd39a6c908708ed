// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: two small pictures made from the bytes, with camera Exif from the bytes, encode
// as an MPO whose index lists two pictures inside the file, and which reads back as two
// pictures of the sizes written.
// Input: width and height of each picture (1 to 64: four bytes), the pixel format of each
// (one byte), the Exif block's length (two bytes, big-endian), the Exif block, then the pixels
// (repeated as needed; grey when there are none).
#include <algorithm>

#include "formats/mpindex.h"
#include "formats/mpo.h"
#include "formats/mpowriter.h"
#include "fuzz/fuzzinput.h"

namespace {

using Vorel::Fuzz::check;

constexpr QImage::Format formats[] = {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_Grayscale8,
                                      QImage::Format_RGB888};

QImage picture(QSize size, QImage::Format format, const QByteArray &pixels)
{
    QImage image(size, format);
    image.fill(Qt::gray);
    if (!pixels.isEmpty())
        for (int y = 0; y < image.height(); ++y) {
            uchar *line = image.scanLine(y);
            for (qsizetype x = 0; x < image.bytesPerLine(); ++x)
                line[x] = uchar(pixels[(y * image.bytesPerLine() + x) % pixels.size()]);
        }
    return image;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 7)
        return 0;
    const auto side = [&](size_t i) { return 1 + data[i] % 64; };
    const QSize leftSize(side(0), side(1)), rightSize(side(2), side(3));
    const QImage::Format leftFormat = formats[data[4] % 4], rightFormat = formats[data[4] / 4 % 4];
    const size_t exifSize = std::min<size_t>(size_t(data[5]) << 8 | data[6], size - 7);
    const QByteArray exif = Vorel::Fuzz::bytes(data + 7, exifSize);
    const QByteArray pixels = Vorel::Fuzz::bytes(data + 7 + exifSize, size - 7 - exifSize);

    const std::optional<QByteArray> mpo =
        Vorel::encodeMpo(picture(leftSize, leftFormat, pixels), picture(rightSize, rightFormat, pixels), exif);
    check(mpo.has_value());
    const std::vector<Vorel::MpPicture> index = Vorel::readMpIndex(*mpo);
    check(index.size() == 2);
    for (const Vorel::MpPicture &entry : index)
        check(entry.offset >= 0 && entry.size > 0 && entry.offset + entry.size <= mpo->size());
    const auto [left, right] = Vorel::extractMPO(Vorel::Fuzz::writeFile(*mpo, QStringLiteral("out.mpo")));
    check(left.size() == leftSize && right.size() == rightSize);
    return 0;
}
