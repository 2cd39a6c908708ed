// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The codec floor of one conversion: `codec_floor IN.jpg OUT.jpg` decodes a side-by-side JPEG
// with TurboJPEG, composes the Dubois anaglyph of its halves with a plain float loop and encodes
// it at quality 90, as the application does, and nothing else. vorel-cli is measured against it.
#include <cstdio>
#include <vector>

#include <turbojpeg.h>

#include "core/anaglyphrows.h"

namespace {

std::vector<unsigned char> readFile(const char *path)
{
    std::vector<unsigned char> bytes;
    if (FILE *file = std::fopen(path, "rb")) {
        unsigned char buffer[1 << 16];
        for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, file)) > 0;)
            bytes.insert(bytes.end(), buffer, buffer + n);
        std::fclose(file);
    }
    return bytes;
}

unsigned char toByte(float value) { return value < 0 ? 0 : value > 255 ? 255 : static_cast<unsigned char>(value); }

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3)
        return 2;
    std::vector<unsigned char> jpeg = readFile(argv[1]);
    tjhandle decoder = tjInitDecompress();
    int width = 0, height = 0, subsampling = 0, colourspace = 0;
    if (tjDecompressHeader3(decoder, jpeg.data(), jpeg.size(), &width, &height, &subsampling, &colourspace) != 0)
        return 1;
    std::vector<unsigned char> pixels(size_t(width) * height * 4);
    if (tjDecompress2(decoder, jpeg.data(), jpeg.size(), pixels.data(), width, width * 4, height, TJPF_RGBX, 0) != 0)
        return 1;
    tjDestroy(decoder);

    const int half = width / 2;
    std::vector<unsigned char> anaglyph(size_t(half) * height * 4);
    const auto &m = Vorel::AnaglyphDetail::dubois;
    for (int y = 0; y < height; ++y) {
        const unsigned char *left = pixels.data() + size_t(y) * width * 4, *right = left + size_t(half) * 4;
        unsigned char *out = anaglyph.data() + size_t(y) * half * 4;
        for (int x = 0; x < half; ++x, left += 4, right += 4, out += 4) {
            const float v[6] = {left[0] / 255.0f, left[1] / 255.0f, left[2] / 255.0f,
                                right[0] / 255.0f, right[1] / 255.0f, right[2] / 255.0f};
            for (int k = 0; k < 3; ++k) {
                float sum = 0;
                for (int i = 0; i < 6; ++i)
                    sum += m[k][i] * v[i];
                out[k] = toByte(sum * 255.0f + 0.5f);
            }
        }
    }

    tjhandle encoder = tjInitCompress();
    unsigned char *encoded = nullptr;
    unsigned long encodedSize = 0;
    if (tjCompress2(encoder, anaglyph.data(), half, half * 4, height, TJPF_RGBX, &encoded, &encodedSize, TJSAMP_420, 90,
                    0) != 0)
        return 1;
    FILE *file = std::fopen(argv[2], "wb");
    const bool written = file && std::fwrite(encoded, 1, encodedSize, file) == encodedSize;
    if (file)
        std::fclose(file);
    tjFree(encoded);
    tjDestroy(encoder);
    return written ? 0 : 1;
}
