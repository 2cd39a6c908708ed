// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/colourprofile.h"

#include <map>
#include <memory>
#include <optional>

#include <exiv2/exiv2.hpp>
#include <libheif/heif.h>
#include <zlib.h>

#include "formats/iccprofiles.h"
#include "formats/tiffstructure.h"

namespace Vorel {

namespace {

constexpr quint32 pngScale = 100000; // cHRM and gAMA store values times 100,000
constexpr quint16 tiffIccTag = 34675;
constexpr qsizetype largestProfile = qsizetype{64} << 20; // beyond any real profile: a bomb

quint32 bigEndian(const QByteArray &b, qsizetype at, int width)
{
    quint32 v = 0;
    for (int i = 0; i < width; ++i)
        v = v << 8 | static_cast<quint8>(b[at + i]);
    return v;
}

// APP2 chunks carry "ICC_PROFILE\0", a 1-based sequence number, the chunk count, then bytes.
// All chunks must be there, once each, with one count; anything else is a broken profile.
QByteArray jpegIccChunks(const QByteArray &b)
{
    static const QByteArray signature("ICC_PROFILE\0", 12);
    std::map<int, QByteArray> chunks;
    int count = 0;
    for (qsizetype at = 2; at + 4 <= b.size() && static_cast<quint8>(b[at]) == 0xFF;) {
        const int marker = static_cast<quint8>(b[at + 1]);
        if (marker == 0xFF) { // fill byte
            ++at;
            continue;
        }
        if (marker == 0xDA || marker == 0xD9) // scan data or end: no more metadata
            break;
        const qsizetype length = bigEndian(b, at + 2, 2);
        if (length < 2 || at + 2 + length > b.size())
            break;
        const qsizetype body = at + 4, bodySize = length - 2;
        if (marker == 0xE2 && bodySize > 14 && b.mid(body, 12) == signature) {
            const int sequence = static_cast<quint8>(b[body + 12]), total = static_cast<quint8>(b[body + 13]);
            if (sequence == 0 || total == 0 || (count && total != count) || chunks.count(sequence))
                return {};
            count = total;
            chunks[sequence] = b.mid(body + 14, bodySize - 14);
        }
        at += 2 + length;
    }
    if (chunks.empty() || static_cast<int>(chunks.size()) != count || chunks.rbegin()->first != count)
        return {};
    QByteArray profile;
    for (const auto &[sequence, bytes] : chunks)
        profile += bytes;
    return profile;
}

// Cameras set to Adobe RGB mark it in the Exif interoperability index instead of a profile.
bool exifSaysAdobeRgb(const QByteArray &fileBytes)
{
    try {
        const auto image = Exiv2::ImageFactory::open(reinterpret_cast<const Exiv2::byte *>(fileBytes.constData()),
                                                     static_cast<long>(fileBytes.size()));
        if (!image.get())
            return false;
        image->readMetadata();
        const Exiv2::ExifData &exif = image->exifData();
        const auto index = exif.findKey(Exiv2::ExifKey("Exif.Iop.InteroperabilityIndex"));
        const auto space = exif.findKey(Exiv2::ExifKey("Exif.Photo.ColorSpace"));
        const bool saysSrgb = space != exif.end() && space->count() > 0 && space->toLong() == 1;
        return index != exif.end() && index->toString().rfind("R03", 0) == 0 && !saysSrgb;
    } catch (const Exiv2::Error &) {
        return false;
    }
}

QByteArray inflated(const QByteArray &compressed)
{
    z_stream stream{};
    if (inflateInit(&stream) != Z_OK)
        return {};
    QByteArray out;
    char buffer[1 << 14];
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(compressed.constData()));
    stream.avail_in = static_cast<uInt>(compressed.size());
    int status = Z_OK;
    while (status == Z_OK && out.size() <= largestProfile) {
        stream.next_out = reinterpret_cast<Bytef *>(buffer);
        stream.avail_out = sizeof buffer;
        status = inflate(&stream, Z_NO_FLUSH);
        out.append(buffer, static_cast<qsizetype>(sizeof buffer - stream.avail_out));
        if (status == Z_BUF_ERROR && stream.avail_in == 0)
            break; // cut short
    }
    inflateEnd(&stream);
    return status == Z_STREAM_END ? out : QByteArray();
}

QByteArray pngProfile(const QByteArray &b)
{
    std::optional<Chromaticities> primaries;
    std::optional<double> gamma;
    for (qsizetype at = 8; at + 12 <= b.size();) {
        const qsizetype length = bigEndian(b, at, 4);
        const QByteArray type = b.mid(at + 4, 4);
        if (length > b.size() - at - 12 || type == "IDAT")
            break;
        const qsizetype data = at + 8;
        if (type == "iCCP") {
            const qsizetype nameEnd = b.indexOf('\0', data);
            if (nameEnd < 0 || nameEnd + 2 > data + length || b[nameEnd + 1] != 0)
                return {};
            return inflated(b.mid(nameEnd + 2, data + length - nameEnd - 2));
        }
        if (type == "sRGB")
            return {};
        if (type == "cHRM" && length == 32) {
            double v[8];
            for (int i = 0; i < 8; ++i)
                v[i] = bigEndian(b, data + 4 * i, 4) / double(pngScale);
            primaries = Chromaticities{v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]};
        }
        if (type == "gAMA" && length == 4) {
            if (const quint32 g = bigEndian(b, data, 4))
                gamma = double(pngScale) / g; // the file stores the encoding exponent
        }
        at = data + length + 4;
    }
    if (!primaries && !gamma)
        return {};
    return rgbIccProfile(primaries.value_or(srgbChromaticities),
                         gamma ? ToneCurve{ToneCurve::power, *gamma} : ToneCurve{ToneCurve::srgb});
}

QByteArray tiffProfile(QByteArray b)
{
    const std::optional<bool> little = Tiff::littleEndianHeader(b);
    if (!little)
        return {};
    const Tiff::Bytes tiff(b, *little);
    const std::optional<qsizetype> ifd0 = Tiff::validatedIfd0(tiff, Tiff::Chain::ignore);
    if (!ifd0)
        return {};
    const std::optional<qsizetype> entry = Tiff::findEntry(tiff, *ifd0, tiffIccTag);
    if (!entry)
        return {};
    const quint32 count = tiff.u32(*entry + 4), offset = tiff.u32(*entry + 8);
    if (count <= 4 || offset > b.size() || count > b.size() - offset)
        return {};
    return b.mid(offset, count);
}

// nclx codes (ISO/IEC 23091-2) of the curves a display profile can describe.
std::optional<ToneCurve> nclxToneCurve(int transfer)
{
    switch (transfer) {
    case heif_transfer_characteristic_ITU_R_BT_709_5:
    case heif_transfer_characteristic_ITU_R_BT_601_6:
    case heif_transfer_characteristic_ITU_R_BT_2020_2_10bit:
    case heif_transfer_characteristic_ITU_R_BT_2020_2_12bit:
        return ToneCurve{ToneCurve::rec709};
    case heif_transfer_characteristic_ITU_R_BT_470_6_System_M:
        return ToneCurve{ToneCurve::power, 2.2};
    case heif_transfer_characteristic_ITU_R_BT_470_6_System_B_G:
        return ToneCurve{ToneCurve::power, 2.8};
    case heif_transfer_characteristic_linear:
        return ToneCurve{ToneCurve::power, 1};
    default: // sRGB, unspecified, and high dynamic range curves, which an 8-bit sRGB picture cannot hold
        return std::nullopt;
    }
}

} // namespace

QByteArray fileColourProfile(const QByteArray &b)
{
    if (b.startsWith("\xFF\xD8")) {
        if (b.contains("ICC_PROFILE"))
            return jpegIccChunks(b);
        return exifSaysAdobeRgb(b) ? adobeRgbIccProfile() : QByteArray();
    }
    if (b.startsWith("\x89PNG\r\n\x1A\n"))
        return pngProfile(b);
    if (b.startsWith("II*") || b.startsWith("MM\0*"))
        return tiffProfile(b);
    return {};
}

QByteArray heifColourProfile(const heif_image_handle *handle)
{
    if (!handle)
        return {};
    if (const size_t size = heif_image_handle_get_raw_color_profile_size(handle);
        size > 0 && size <= static_cast<size_t>(largestProfile)) {
        QByteArray icc(static_cast<qsizetype>(size), Qt::Uninitialized);
        if (heif_image_handle_get_raw_color_profile(handle, icc.data()).code == heif_error_Ok)
            return icc;
    }
    heif_color_profile_nclx *nclx = nullptr;
    const heif_error read = heif_image_handle_get_nclx_color_profile(handle, &nclx);
    // The library may hand back the profile it allocated even when it reports an error.
    const std::unique_ptr<heif_color_profile_nclx, void (*)(heif_color_profile_nclx *)> owned(
        nclx, heif_nclx_color_profile_free);
    if (read.code != heif_error_Ok || !nclx)
        return {};
    const std::optional<ToneCurve> curve = nclxToneCurve(nclx->transfer_characteristics);
    const bool srgbPrimaries = nclx->color_primaries == heif_color_primaries_ITU_R_BT_709_5 ||
                               nclx->color_primaries == heif_color_primaries_unspecified;
    QByteArray profile;
    if (curve || !srgbPrimaries)
        profile = rgbIccProfile({nclx->color_primary_white_x, nclx->color_primary_white_y, nclx->color_primary_red_x,
                                 nclx->color_primary_red_y, nclx->color_primary_green_x, nclx->color_primary_green_y,
                                 nclx->color_primary_blue_x, nclx->color_primary_blue_y},
                                curve.value_or(ToneCurve{ToneCurve::srgb}));
    return profile;
}

} // namespace Vorel
