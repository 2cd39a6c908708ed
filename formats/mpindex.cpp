// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Layout read here:
//   SOI FFD8, then marker segments FFxx + u16 length (including itself) until SOS (FFDA).
//   APP2 (FFE2) payload: "MPF\0" + TIFF header: "II*\0" (little-endian) or "MM\0*" (big-endian)
//   + u32 offset of the MP index IFD, counted from the TIFF header.
//   IFD: u16 count, then 12-byte entries (u16 tag, u16 type, u32 count, u32 value/offset).
//   Tag 0xB002 (MP Entry) points at count/16 entries of 16 bytes each:
//   u32 attributes, u32 size, u32 offset (from the TIFF header; 0 for the first picture), u16, u16.
#include "formats/mpindex.h"

#include <optional>

namespace Vorel {

namespace {

constexpr uint16_t mpEntryTag = 0xB002;
constexpr int mpEntrySize = 16;
constexpr int ifdEntrySize = 12;

class Reader {
public:
    Reader(const QByteArray &bytes, int64_t begin, int64_t end, bool littleEndian)
        : bytes(bytes), begin(begin), end(end), little(littleEndian)
    {
    }
    // Unsigned value of `width` bytes at `at` (relative to `begin`); none outside the range.
    std::optional<uint32_t> read(int64_t at, int width) const
    {
        if (at < 0 || at + width > end - begin)
            return std::nullopt;
        uint32_t value = 0;
        for (int i = 0; i < width; ++i) {
            const uint32_t byte = static_cast<uint8_t>(bytes.at(qsizetype(begin + at + (little ? width - 1 - i : i))));
            value = (value << 8) | byte;
        }
        return value;
    }

private:
    const QByteArray &bytes;
    int64_t begin, end;
    bool little;
};

// Start and end of the TIFF header inside the APP2 "MPF" segment, if there is one.
std::optional<std::pair<int64_t, int64_t>> findMpfPayload(const QByteArray &file)
{
    const auto byteAt = [&](int64_t i) { return static_cast<uint8_t>(file.at(qsizetype(i))); };
    if (file.size() < 4 || byteAt(0) != 0xFF || byteAt(1) != 0xD8)
        return std::nullopt;
    int64_t at = 2;
    while (at + 4 <= file.size()) {
        if (byteAt(at) != 0xFF)
            return std::nullopt;
        const uint8_t marker = byteAt(at + 1);
        if (marker == 0xFF) { // fill byte
            ++at;
            continue;
        }
        if (marker == 0xDA || marker == 0xD9)
            return std::nullopt;
        const int64_t length = (byteAt(at + 2) << 8) | byteAt(at + 3);
        const int64_t payload = at + 4;
        const int64_t segmentEnd = at + 2 + length;
        if (length < 2 || segmentEnd > file.size())
            return std::nullopt;
        if (marker == 0xE2 && segmentEnd - payload >= 8 && file.mid(payload, 4) == QByteArray("MPF\0", 4))
            return std::pair{payload + 4, segmentEnd};
        at = segmentEnd;
    }
    return std::nullopt;
}

} // namespace

std::vector<MpPicture> readMpIndex(const QByteArray &file)
{
    const auto payload = findMpfPayload(file);
    if (!payload)
        return {};
    const auto [tiff, end] = *payload;
    const QByteArray order = file.mid(tiff, 4);
    const bool little = order == QByteArray("II*\0", 4);
    if (!little && order != QByteArray("MM\0*", 4))
        return {};
    const Reader r(file, tiff, end, little);
    const std::optional<uint32_t> ifd = r.read(4, 4);
    const std::optional<uint32_t> count = ifd ? r.read(*ifd, 2) : std::nullopt;
    if (!count)
        return {};
    for (uint32_t i = 0; i < *count; ++i) {
        const int64_t entry = int64_t(*ifd) + 2 + int64_t(i) * ifdEntrySize;
        const std::optional<uint32_t> tag = r.read(entry, 2);
        if (!tag)
            return {};
        if (*tag != mpEntryTag)
            continue;
        const std::optional<uint32_t> bytes = r.read(entry + 4, 4);
        const std::optional<uint32_t> at = r.read(entry + 8, 4);
        if (!bytes || !at)
            return {};
        std::vector<MpPicture> pictures;
        for (int64_t k = 0; k + mpEntrySize <= int64_t(*bytes); k += mpEntrySize) {
            const std::optional<uint32_t> size = r.read(int64_t(*at) + k + 4, 4);
            const std::optional<uint32_t> offset = r.read(int64_t(*at) + k + 8, 4);
            if (!size || !offset)
                return {};
            // The first picture starts the file; the others are counted from the TIFF header.
            pictures.push_back({pictures.empty() ? 0 : tiff + int64_t(*offset), int64_t(*size)});
        }
        return pictures;
    }
    return {};
}

} // namespace Vorel
