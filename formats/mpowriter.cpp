// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The APP2 "MPF" segment of each picture, big-endian; offsets count from the MP Endian field
// ("MM") of that segment, picture offsets from the first picture's. docs/mpo-layout.md has the
// byte tables.
//
// picture 1: header | Index IFD (version, count, entries; next IFD = the Attribute IFD)
//            | 2 MP entries | Attribute IFD | convergence angle | baseline length
// picture 2: header | Attribute IFD (with the version) | convergence angle | baseline length
#include "formats/mpowriter.h"

#include <cstdint>
#include <future>
#include <initializer_list>

#include "formats/cameraexif.h"
#include "formats/imagewriter.h"
#include "formats/jpegcodec.h"
#include "formats/jpegsegments.h"
#include "formats/tiffstructure.h"

namespace Vorel {

namespace {

constexpr quint16 typeLong = 4;
constexpr quint16 typeRational = 5;
constexpr quint16 typeSRational = 10;

constexpr quint16 tagVersion = 0xB000, tagNumberOfImages = 0xB001, tagEntries = 0xB002;
constexpr quint16 tagIndividualNum = 0xB101, tagBaseViewpoint = 0xB204, tagConvergence = 0xB205,
                  tagBaseline = 0xB206;
constexpr quint32 version0100 = 0x30313030; // "0100"

// MP entry attributes: bit 29 representative image; bits 23..0 the type, 0x020002 multi-frame
// disparity; bits 26..24 the data format, 0 = JPEG.
constexpr quint32 representativeDisparity = 0x20020002;
constexpr quint32 disparity = 0x00020002;
constexpr qsizetype entrySize = 16;

// Big-endian TIFF header pointing at an IFD right behind it.
constexpr qsizetype firstIfd = Tiff::headerSize;
// Picture 1: Index IFD of 3 entries, then the entries, then the Attribute IFD of 4 entries.
constexpr qsizetype ifdSize(int entries) { return 2 + entries * Tiff::entrySize + 4; }
constexpr qsizetype entriesAt = firstIfd + ifdSize(3);                     // 0x32
constexpr qsizetype firstAttributesAt = entriesAt + 2 * entrySize;         // 0x52
constexpr qsizetype firstUnknownsAt = firstAttributesAt + ifdSize(4);      // 0x88
constexpr qsizetype secondUnknownsAt = firstIfd + ifdSize(5);              // 0x4A
constexpr qsizetype unknownsSize = 16; // convergence angle and baseline length, 8 bytes each
// Marker, length, "MPF\0", then the block: 0xA0 bytes, the length field saying 0x9E.
constexpr qsizetype firstIndexSegmentSize = 2 + 2 + 4 + firstUnknownsAt + unknownsSize;

struct Entry {
    quint16 tag, type;
    quint32 count, value;
};

class BigEndianBlock {
public:
    explicit BigEndianBlock(qsizetype size) : bytes(size, '\0'), out(bytes, false)
    {
        out.put(0, 4, 0x4D4D002A); // "MM", 42
        out.put(4, 4, firstIfd);
    }
    void putIfd(qsizetype at, std::initializer_list<Entry> entries, quint32 next)
    {
        out.put(at, 2, quint32(entries.size()));
        at += 2;
        for (const Entry &e : entries) {
            out.put(at, 2, e.tag);
            out.put(at + 2, 2, e.type);
            out.put(at + 4, 4, e.count);
            out.put(at + 8, 4, e.value);
            at += Tiff::entrySize;
        }
        out.put(at, 4, next);
    }
    // Convergence angle and baseline length, both "unknown" (every bit set).
    void putUnknowns(qsizetype at) { bytes.replace(at, unknownsSize, QByteArray(unknownsSize, '\xFF')); }
    QByteArray segment() const { return jpegSegment(markerApp2, mpfSignature + bytes); }

    QByteArray bytes;
    Tiff::Bytes out;
};

QByteArray firstPictureIndex(quint32 size1, quint32 size2, quint32 offset2)
{
    BigEndianBlock block(firstUnknownsAt + unknownsSize);
    block.putIfd(firstIfd,
                 {{tagVersion, Tiff::typeUndefined, 4, version0100},
                  {tagNumberOfImages, typeLong, 1, 2},
                  {tagEntries, Tiff::typeUndefined, 2 * entrySize, quint32(entriesAt)}},
                 firstAttributesAt);
    const quint32 entries[2][3] = {{representativeDisparity, size1, 0}, {disparity, size2, offset2}};
    for (int i = 0; i < 2; ++i)
        for (int field = 0; field < 3; ++field) // the two dependent-image fields stay 0
            block.out.put(entriesAt + i * entrySize + field * 4, 4, entries[i][field]);
    block.putIfd(firstAttributesAt,
                 {{tagIndividualNum, typeLong, 1, 1},
                  {tagBaseViewpoint, typeLong, 1, 1},
                  {tagConvergence, typeSRational, 1, quint32(firstUnknownsAt)},
                  {tagBaseline, typeRational, 1, quint32(firstUnknownsAt + 8)}},
                 0);
    block.putUnknowns(firstUnknownsAt);
    return block.segment();
}

QByteArray secondPictureAttributes()
{
    BigEndianBlock block(secondUnknownsAt + unknownsSize);
    block.putIfd(firstIfd,
                 {{tagVersion, Tiff::typeUndefined, 4, version0100},
                  {tagIndividualNum, typeLong, 1, 2},
                  {tagBaseViewpoint, typeLong, 1, 1},
                  {tagConvergence, typeSRational, 1, quint32(secondUnknownsAt)},
                  {tagBaseline, typeRational, 1, quint32(secondUnknownsAt + 8)}},
                 0);
    block.putUnknowns(secondUnknownsAt);
    return block.segment();
}

// The MP Endian field sits behind SOI, the Exif segment, the APP2 marker and length, and "MPF\0".
constexpr qsizetype mpEndianOffset(qsizetype exifSegmentSize) { return 2 + exifSegmentSize + 4 + 4; }

} // namespace

std::optional<QByteArray> encodeMpo(const QImage &left, const QImage &right, const QByteArray &cameraExif)
{
    if (left.isNull() || right.isNull())
        return std::nullopt;
    // The two encodes are independent: the right one runs on the other core.
    std::future<std::optional<EncodedJpeg>> rightJob =
        std::async(std::launch::async, [&] { return compressJpeg(right, lossyQuality); });
    const QByteArray leftExif = exifSegment(exifForWrittenPicture(cameraExif, left.size()));
    const QByteArray rightExif = right.size() == left.size()
                                     ? leftExif
                                     : exifSegment(exifForWrittenPicture(cameraExif, right.size()));
    const std::optional<EncodedJpeg> leftJpeg = compressJpeg(left, lossyQuality);
    const std::optional<EncodedJpeg> rightJpeg = rightJob.get();
    if (!leftJpeg || !rightJpeg)
        return std::nullopt;

    // As in camera files, no JFIF APP0: Exif and MP segments come first.
    const QByteArrayView leftRest = jpegAfterJfif(leftJpeg->bytes());
    const QByteArrayView rightRest = jpegAfterJfif(rightJpeg->bytes());
    const QByteArray secondIndex = secondPictureAttributes();
    const qsizetype size1 = 2 + leftExif.size() + firstIndexSegmentSize + leftRest.size();
    const qsizetype size2 = 2 + rightExif.size() + secondIndex.size() + rightRest.size();
    if (size1 + size2 > qsizetype(UINT32_MAX)) // beyond what the index can address
        return std::nullopt;
    const QByteArray firstIndex = firstPictureIndex(quint32(size1), quint32(size2),
                                                    quint32(size1 - mpEndianOffset(leftExif.size())));

    static const QByteArray soi("\xFF\xD8", 2);
    QByteArray file;
    file.reserve(size1 + size2);
    file.append(soi).append(leftExif).append(firstIndex).append(leftRest);
    file.append(soi).append(rightExif).append(secondIndex).append(rightRest);
    return file;
}

} // namespace Vorel
