// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A baseline scan with a restart interval is a series of entropy-coded segments, each holding
// `interval` MCUs (16 x 16 pixels in 4:2:0) with the DC predictions reset at its start,
// separated by RST0..RST7 markers counting modulo 8. When each picture is encoded with a
// restart after every MCU row and the first picture's row is exactly one interval of the
// joint picture (its width a multiple of 16, the second as many MCUs wide), row r of the joint
// scan is segment r of the first picture, then segment r of the second; the joint header is
// the first picture's with the width of both. Coefficients are those of the composed picture:
// no block straddles the seam, and the blocks of the right and bottom edges are padded from
// the same pixels.
#include "formats/sidebysidejpeg.h"

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <vector>

#include <jpeglib.h>

#include "core/displaycomposition.h"
#include "formats/jpegcodec.h"

namespace Vorel {

namespace {

constexpr int mcuSize = 16; // 4:2:0
constexpr quint8 markerSof0 = 0xC0, markerSos = 0xDA, markerEoi = 0xD9, markerRst0 = 0xD0;

struct ErrorJump {
    jpeg_error_mgr manager;
    std::jmp_buf jump;
};

[[noreturn]] void jumpOut(j_common_ptr info) { std::longjmp(reinterpret_cast<ErrorJump *>(info->err)->jump, 1); }
void ignoreWarning(j_common_ptr, int) {}

// libjpeg's own buffer.
struct MallocedJpeg {
    unsigned char *data = nullptr;
    unsigned long size = 0;
    ~MallocedJpeg() { std::free(data); }
    QByteArrayView bytes() const { return {reinterpret_cast<const char *>(data), qsizetype(size)}; }
};

// `rows` (BGRX) as a baseline 4:2:0 JPEG with the settings compressJpeg uses and a restart
// marker after every MCU row. No C++ object may live only between setjmp and a longjmp.
bool encodeWithRowRestarts(const std::vector<JSAMPROW> &rows, int width, int quality, MallocedJpeg &out)
{
    jpeg_compress_struct info;
    ErrorJump errors;
    info.err = jpeg_std_error(&errors.manager);
    errors.manager.error_exit = jumpOut;
    errors.manager.emit_message = ignoreWarning;
    if (setjmp(errors.jump)) {
        jpeg_destroy_compress(&info);
        return false;
    }
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, &out.data, &out.size);
    info.image_width = JDIMENSION(width);
    info.image_height = JDIMENSION(rows.size());
    info.input_components = 4;
    info.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    // TurboJPEG's choice below quality 96, which compressJpeg gets.
    info.dct_method = quality >= 96 ? JDCT_ISLOW : JDCT_IFAST;
    info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = 2;
    info.restart_in_rows = 1;
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height)
        jpeg_write_scanlines(&info, const_cast<JSAMPARRAY>(rows.data()) + info.next_scanline,
                             info.image_height - info.next_scanline);
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    return true;
}

bool encodeView(const QImage &view, int quality, MallocedJpeg &out)
{
    const QImage pixels = jpegEncoderPixels(view);
    std::vector<JSAMPROW> rows(size_t(pixels.height()));
    for (int y = 0; y < pixels.height(); ++y)
        rows[size_t(y)] = const_cast<JSAMPROW>(pixels.constScanLine(y));
    return encodeWithRowRestarts(rows, pixels.width(), quality, out);
}

// The header (SOI up to the end of the SOS segment), the offset of the SOF0 segment in it, and
// the entropy-coded segments between the restart markers.
struct Scan {
    QByteArrayView header;
    qsizetype sof0 = -1;
    std::vector<QByteArrayView> segments;
};

std::optional<Scan> splitScan(QByteArrayView jpeg)
{
    const auto byteAt = [&](qsizetype i) { return quint8(jpeg[i]); };
    Scan scan;
    qsizetype at = 2;
    for (;;) {
        if (at + 4 > jpeg.size() || byteAt(at) != 0xFF)
            return std::nullopt;
        const quint8 marker = byteAt(at + 1);
        const qsizetype end = at + 2 + (byteAt(at + 2) << 8 | byteAt(at + 3));
        if (marker == markerSof0)
            scan.sof0 = at;
        at = end;
        if (marker == markerSos)
            break;
    }
    scan.header = jpeg.first(at);
    // Inside entropy-coded data a 0xFF byte is always followed by 0x00 or a marker.
    for (qsizetype start = at; at < jpeg.size() - 1; ++at) {
        at = jpeg.indexOf('\xFF', at);
        if (at < 0 || at + 1 >= jpeg.size())
            return std::nullopt;
        const quint8 marker = byteAt(at + 1);
        if ((marker & 0xF8) == markerRst0 || marker == markerEoi) {
            scan.segments.push_back(jpeg.sliced(start, at - start));
            if (marker == markerEoi)
                return scan.sof0 >= 0 ? std::optional(scan) : std::nullopt;
            start = at + 2;
        }
        ++at; // past the byte after 0xFF
    }
    return std::nullopt;
}

std::optional<QByteArray> interleaved(QByteArrayView first, QByteArrayView second, int width)
{
    const std::optional<Scan> a = splitScan(first), b = splitScan(second);
    if (!a || !b || a->segments.size() != b->segments.size())
        return std::nullopt;
    QByteArray jpeg;
    jpeg.reserve(first.size() + second.size());
    jpeg.append(a->header);
    jpeg[a->sof0 + 7] = char(width >> 8); // SOF0: FF C0 length precision height width
    jpeg[a->sof0 + 8] = char(width & 0xFF);
    int restart = 0;
    for (size_t row = 0; row < a->segments.size(); ++row) {
        if (row > 0)
            jpeg.append(char(0xFF)).append(char(markerRst0 + restart++ % 8));
        jpeg.append(a->segments[row]).append(char(0xFF)).append(char(markerRst0 + restart++ % 8));
        jpeg.append(b->segments[row]);
    }
    return jpeg.append(char(0xFF)).append(char(markerEoi));
}

} // namespace

std::optional<QByteArray> encodeSideBySideJpeg(const QImage &first, const QImage &second, int quality)
{
    if (first.isNull() || second.isNull() || first.height() != second.height())
        return std::nullopt;
    const int mcuColumns = first.width() / mcuSize;
    if (first.width() % mcuSize != 0 || (second.width() + mcuSize - 1) / mcuSize != mcuColumns)
        return encodeJpeg(composeSideBySide(first, second), quality);
    MallocedJpeg firstJpeg, secondJpeg;
    std::future<bool> secondJob = std::async(std::launch::async, [&] { return encodeView(second, quality, secondJpeg); });
    const bool firstEncoded = encodeView(first, quality, firstJpeg);
    if (!secondJob.get() || !firstEncoded)
        return std::nullopt;
    return interleaved(firstJpeg.bytes(), secondJpeg.bytes(), first.width() + second.width());
}

} // namespace Vorel
