// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The TIFF, JPEG and PNG tag surgery on synthetic blocks: what exiv2 reads back, what stays
// in place, and the malformed structures that must be refused rather than followed.
#include <exiv2/exiv2.hpp>
#include <gtest/gtest.h>

#include "formats/jpegorientation.h"
#include "formats/mpindexgrowth.h"
#include "formats/pngorientation.h"
#include "formats/textorientation.h"
#include "formats/tifforientation.h"
#include "tests/formats/bytebuilders.h"

using namespace Vorel;
using TestSupport::pngChunk;
using TestSupport::pngSignature;
using TestSupport::tiffBlock;
using TestSupport::tiffTailOffset;

namespace {

// Every tag exiv2 finds in the block, key -> value text.
std::map<std::string, std::string> exifTags(const QByteArray &tiff)
{
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    Exiv2::ExifData exif;
    Exiv2::ExifParser::decode(exif, reinterpret_cast<const Exiv2::byte *>(tiff.constData()), uint32_t(tiff.size()));
    std::map<std::string, std::string> tags;
    for (const auto &datum : exif)
        tags[datum.key()] = datum.toString();
    return tags;
}

const std::vector<TestSupport::TiffEntry> someTags = {
    {271, 2, 4, 0x00414243}, // Make "ABC\0" inline
    {282, 5, 1, tiffTailOffset(3)}, // XResolution, rational in the tail
    {305, 2, 3, 0x00003132}, // Software "21\0"... inline
};
const QByteArray someTail("\0\0\0\x48\0\0\0\x01", 8);

struct ValidCase {
    const char *name;
    std::vector<TestSupport::TiffEntry> entries;
    bool sameSize; // tag existed: edited in place
};

TEST(TiffOrientation, SetsTheTagAndKeepsEveryOtherTag)
{
    const ValidCase cases[] = {
        {"absent", someTags, false},
        {"absent, only tag above", {{305, 2, 3, 0x31}}, false},
        {"short", {{271, 2, 4, 0x41}, {274, 3, 1, 1}, {305, 2, 3, 0x31}}, true},
        {"long instead of short", {{271, 2, 4, 0x41}, {274, 4, 1, 3}}, true},
        {"zero count", {{274, 3, 0, 0}}, true},
        {"unknown type elsewhere", {{271, 99, 4, 0x41424344}, {274, 3, 1, 5}}, true},
    };
    for (const ValidCase &c : cases)
        for (const bool little : {true, false})
            for (int orientation = 1; orientation <= 8; ++orientation) {
                SCOPED_TRACE(std::string(c.name) + (little ? " II " : " MM ") + std::to_string(orientation));
                const QByteArray before = tiffBlock(little, c.entries, 0, someTail);
                const std::optional<QByteArray> after = tiffWithOrientation(before, orientation);
                ASSERT_TRUE(after);
                EXPECT_EQ(after->size() == before.size(), c.sameSize);
                auto expected = exifTags(before);
                expected["Exif.Image.Orientation"] = std::to_string(orientation);
                EXPECT_EQ(exifTags(*after), expected);
                if (!c.sameSize) // the old bytes stay where they were; only the IFD0 pointer moves
                    EXPECT_EQ(after->mid(8, before.size() - 8), before.mid(8));
            }
}

TEST(TiffOrientation, AppendedIfdKeepsTheChainToIfd1)
{
    const QByteArray ifd1 = QByteArray("\x01\x00", 2)
        + QByteArray("\x03\x01\x03\x00\x01\x00\x00\x00\x06\x00\x00\x00", 12)
        + QByteArray(4, '\0'); // IFD1 with Compression = 6
    const QByteArray before = tiffBlock(true, {{271, 2, 4, 0x41}}, tiffTailOffset(1), ifd1);
    const std::optional<QByteArray> after = tiffWithOrientation(before, 6);
    ASSERT_TRUE(after);
    EXPECT_EQ(exifTags(*after).at("Exif.Thumbnail.Compression"), "6");
}

struct MalformedCase {
    const char *name;
    QByteArray block;
};

QByteArray withPointer(QByteArray block, qsizetype at, quint32 value)
{
    for (int i = 0; i < 4; ++i)
        block[at + i] = char(value >> 8 * i);
    return block;
}

TEST(TiffOrientation, RefusesMalformedBlocks)
{
    const QByteArray good = tiffBlock(true, someTags, 0, someTail);
    const qsizetype nextPointer = tiffTailOffset(3) - 4;
    const MalformedCase cases[] = {
        {"too short", good.left(7)},
        {"bad byte order", QByteArray("IM") + good.mid(2)},
        {"big tiff", QByteArray("II\x2b\0", 4) + good.mid(4)},
        {"no IFD0", withPointer(good, 4, 0)},
        {"IFD0 inside the header", withPointer(good, 4, 4)},
        {"IFD0 past the end", withPointer(good, 4, quint32(good.size()))},
        {"IFD0 pointer near 4 GiB", withPointer(good, 4, 0xFFFFFFFE)},
        {"entries past the end", good.left(30)},
        {"IFD0 links to itself", withPointer(good, nextPointer, 8)},
        {"IFD1 past the end", withPointer(good, nextPointer, 0x10000)},
        {"two IFDs pointing at each other",
         tiffBlock(true, someTags, tiffTailOffset(3), QByteArray(2, '\0') + QByteArray("\x08\0\0\0", 4))},
        {"value past the end", tiffBlock(true, {{270, 2, 100, 40}})},
        {"count overflows", tiffBlock(true, {{273, 4, 0xFFFFFFFF, 8}})},
        {"rational offset wraps", tiffBlock(true, {{282, 5, 1, 0xFFFFFFFC}})},
    };
    for (const MalformedCase &c : cases)
        EXPECT_FALSE(tiffWithOrientation(c.block, 3)) << c.name;
}

QByteArray segment(quint8 marker, const QByteArray &payload)
{
    const qsizetype length = payload.size() + 2;
    return QByteArray(1, '\xFF') + char(marker) + char(length >> 8) + char(length & 0xFF) + payload;
}

const QByteArray exifHeader("Exif\0\0", 6);
const QByteArray scan = segment(0xDA, QByteArray(10, '\x01')) + QByteArray("\x12\x34\xFF\x00\x56\xFF\xD9", 7);
const QByteArray app0 = segment(0xE0, QByteArray("JFIF\0\x01\x01\0\0\x01\0\x01\0\0", 14));
const QByteArray dqt = segment(0xDB, QByteArray(65, '\x02'));

TEST(JpegOrientation, RefusesMalformedFiles)
{
    const QByteArray soi("\xFF\xD8", 2);
    const QByteArray crowded
        = exifHeader + tiffBlock(true, {{271, 2, 65490, tiffTailOffset(1)}}, 0, QByteArray(65490, 'x'));
    const MalformedCase cases[] = {
        {"no SOI", app0 + scan},
        {"segment past the end", soi + dqt.left(30)},
        {"no scan", soi + app0 + QByteArray("\xFF\xD9", 2)},
        {"garbage between segments", soi + app0 + "x" + scan},
        {"malformed Exif", soi + segment(0xE1, exifHeader + "II*\0\x40\0\0\0") + scan},
        {"no room to add the tag", soi + segment(0xE1, crowded) + scan},
        {"length below two", soi + QByteArray("\xFF\xE1\0\x01", 4) + scan},
    };
    for (const MalformedCase &c : cases)
        EXPECT_FALSE(jpegWithOrientation(c.block, 6)) << c.name;
}

const QByteArray ihdr = pngChunk("IHDR", QByteArray("\0\0\0\x01\0\0\0\x01\x08\0\0\0\0", 13));
const QByteArray idat = pngChunk("IDAT", QByteArray("\x78\x9c\x63\x60\x00\x00\x00\x02\x00\x01", 10));
const QByteArray iend = pngChunk("IEND", {});

TEST(PngOrientation, RefusesBrokenChunks)
{
    const QByteArray good = pngSignature + ihdr + idat + iend;
    const MalformedCase cases[] = {
        { "bad signature", QByteArray("\x89PNG\r\n\x1a\r") + good.mid(8) },
        { "CRC mismatch", pngSignature + pngChunk("IHDR", ihdr.mid(8, 13), 1) + idat + iend },
        { "length past the end", pngSignature + ihdr + QByteArray("\0\0\x10\0IDAT", 8) + idat.mid(8) + iend },
        { "huge length", pngSignature + ihdr + QByteArray("\xFF\xFF\xFF\xF0IDAT", 8) + idat.mid(8) + iend },
        { "no IEND", pngSignature + ihdr + idat },
        { "no IDAT", pngSignature + ihdr + iend },
        { "IHDR not first", pngSignature + idat + ihdr + iend },
        { "malformed eXIf", pngSignature + ihdr + pngChunk("eXIf", "MM\0*\0\0\0\0") + idat + iend },
    };
    for (const MalformedCase &c : cases)
        EXPECT_FALSE(pngWithOrientation(c.block, 2)) << c.name;
}

struct TextCase {
    const char *name;
    QByteArray before;
    QByteArray after; // with orientation 6
};

TEST(TextOrientation, XmpValuesChangeInPlace)
{
    const TextCase cases[] = {
        {"attribute", "<d tiff:Orientation=\"3\" tiff:Make=\"x\"/>", "<d tiff:Orientation=\"6\" tiff:Make=\"x\"/>"},
        {"single quotes", "tiff:Orientation='1'", "tiff:Orientation='6'"},
        {"element, twice", "<tiff:Orientation>8</tiff:Orientation><tiff:Orientation>2</tiff:Orientation>",
            "<tiff:Orientation>6</tiff:Orientation><tiff:Orientation>6</tiff:Orientation>"},
        {"two digits kept", "tiff:Orientation=\"10\"", "tiff:Orientation=\"10\""},
        {"other property", "tiff:OrientationX=\"3\" tiff:Orientation", "tiff:OrientationX=\"3\" tiff:Orientation"},
        {"at the very end", "tiff:Orientation=\"3", "tiff:Orientation=\"3"},
    };
    for (const TextCase &c : cases)
        EXPECT_EQ(xmpWithOrientation(c.before, 6), c.after) << c.name;
}

TEST(TextOrientation, RawExifProfileChangesInPlace)
{
    const QByteArray head("\nexif\n      32\n");
    const QByteArray tagged("4578696600004d4d002a00000008000101120003000000010003000000000000\n");
    const QByteArray untagged("4578696600004d4d002a00000008000101310003000000010003000000000000\n");
    const TextCase cases[] = {
        {"lower case", head + tagged, head + QByteArray(tagged).replace("00030000000000", "00060000000000")},
        {"upper case", head + tagged.toUpper(), head + tagged.toUpper().replace("00030000000000", "00060000000000")},
        {"wrapped lines", head + tagged.left(20) + "\n" + tagged.mid(20),
            head + tagged.left(20) + "\n" + QByteArray(tagged.mid(20)).replace("00030000000000", "00060000000000")},
        {"no tag: would have to grow", head + untagged, head + untagged},
        {"odd digit count", head + tagged.left(11), head + tagged.left(11)},
        {"not hex", head + "zz" + tagged, head + "zz" + tagged},
        {"no header", tagged, tagged},
    };
    for (const TextCase &c : cases)
        EXPECT_EQ(rawExifProfileWithOrientation(c.before, 6), c.after) << c.name;
}

TEST(MpIndex, FirstPictureGrowsAndLaterOnesMoveOnlyWhenAsked)
{
    // Two big-endian MP entries: attributes, size, offset, two dependent-picture numbers.
    const auto entries = [](quint32 size1, quint32 size2, quint32 offset2) {
        QByteArray bytes;
        for (const quint32 value : {0x20030000u, size1, 0u, 0u, 0x00000000u, size2, offset2, 0u})
            TestSupport::putTiff(bytes, false, value, 4);
        return bytes;
    };
    const auto index = [&](const QByteArray &entryBytes) {
        return tiffBlock(
            false, {{0xB000, 7, 4, 0x30313030}, {0xB001, 4, 1, 2}, {0xB002, 7, 32, tiffTailOffset(3)}}, 0, entryBytes);
    };
    const QByteArray before = index(entries(1000, 900, 1200));
    EXPECT_EQ(mpIndexWithFirstPictureGrown(before, 30, false), index(entries(1030, 900, 1200)));
    EXPECT_EQ(mpIndexWithFirstPictureGrown(before, 30, true), index(entries(1030, 900, 1230)));
    EXPECT_FALSE(mpIndexWithFirstPictureGrown(before.left(60), 30, false)); // entries cut off
    EXPECT_FALSE(mpIndexWithFirstPictureGrown(index(entries(0xFFFFFFF0, 900, 1200)), 30, false));
}

} // namespace
