// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/hostilefiles.h"

#include <zlib.h>

#include "formats/heifboxes.h"
#include "formats/pngchunks.h"

namespace Vorel::Hostile {

namespace {

QByteArray bigEndian(quint64 value, int width)
{
    QByteArray bytes(width, '\0');
    Heif::putBigEndian(bytes, 0, width, value);
    return bytes;
}

QByteArray segment(quint8 marker, const QByteArray &payload)
{
    return QByteArray("\xFF", 1) + char(marker) + bigEndian(quint64(payload.size() + 2), 2) + payload;
}

// Entropy-coded bits with the 0xFF byte stuffing of JPEG scans, the last byte padded with ones.
class ScanBits {
public:
    void put(quint32 bits, int count)
    {
        for (int i = count - 1; i >= 0; --i) {
            byte = quint8(byte << 1 | (bits >> i & 1));
            if (++used == 8)
                flushByte();
        }
    }
    QByteArray finished()
    {
        while (used != 0)
            put(1, 1);
        return bytes;
    }

private:
    void flushByte()
    {
        bytes += char(byte);
        if (byte == 0xFF)
            bytes += '\0';
        byte = 0;
        used = 0;
    }
    QByteArray bytes;
    quint8 byte = 0;
    int used = 0;
};

} // namespace

QByteArray jpegClaiming(const QByteArray &jpeg, int side)
{
    QByteArray patched = jpeg;
    for (qsizetype at = 2; at + 9 <= patched.size();) {
        const quint8 marker = quint8(patched[at + 1]);
        if (marker >= 0xC0 && marker <= 0xC2) {
            Heif::putBigEndian(patched, at + 5, 2, quint64(side));
            Heif::putBigEndian(patched, at + 7, 2, quint64(side));
            return patched;
        }
        at += 2 + (quint8(patched[at + 2]) << 8 | quint8(patched[at + 3]));
    }
    return {};
}

QByteArray pngClaiming(const QByteArray &png, int side)
{
    QByteArray header = png.mid(16, 13); // IHDR data: width, height, depth, colour type, ...
    Heif::putBigEndian(header, 0, 4, quint64(side));
    Heif::putBigEndian(header, 4, 4, quint64(side));
    return png.left(8) + Png::makeChunk("IHDR", header) + png.mid(33);
}

QByteArray tiffClaiming(const QByteArray &tiff, int side)
{
    QByteArray patched = tiff;
    const bool little = tiff.startsWith("II");
    const auto read = [&](qsizetype at, int width) {
        quint32 value = 0;
        for (int i = 0; i < width; ++i)
            value |= quint32(quint8(patched[at + i])) << 8 * (little ? i : width - 1 - i);
        return value;
    };
    const auto write = [&](qsizetype at, int width, quint32 value) {
        for (int i = 0; i < width; ++i)
            patched[at + i] = char(value >> 8 * (little ? i : width - 1 - i));
    };
    const qsizetype ifd = read(4, 4);
    for (quint32 i = 0, count = read(ifd, 2); i < count; ++i) {
        const qsizetype entry = ifd + 2 + 12 * i;
        if (const quint32 tag = read(entry, 2); tag == 256 || tag == 257) // ImageWidth, ImageLength
            write(entry + 8, read(entry + 2, 2) == 3 ? 2 : 4, quint32(side));
    }
    return patched;
}

QByteArray progressiveJpeg(int side, int scans)
{
    const QByteArray one("\x00\x01\x00\x00", 4); // Huffman counts: one code of length 1
    QByteArray jpeg("\xFF\xD8", 2);
    jpeg += segment(0xDB, QByteArray(1, '\0') + QByteArray(64, 1));
    jpeg += segment(0xC2, QByteArray(1, 8) + bigEndian(quint64(side), 2) + bigEndian(quint64(side), 2) +
                              QByteArray("\x01\x01\x11\x00", 4));
    // DC: the only symbol is category 0. AC: the only symbol is an end-of-band run of 2^14 + 14 bits.
    jpeg += segment(0xC4, QByteArray(1, 0x00) + one + QByteArray(12, '\0') + QByteArray(1, 0x00));
    jpeg += segment(0xC4, QByteArray(1, 0x10) + one + QByteArray(12, '\0') + QByteArray(1, char(0xE0)));
    const qint64 blocks = qint64((side + 7) / 8) * ((side + 7) / 8);
    const auto scan = [&](int ss, int se, int ah, int al) {
        jpeg += segment(0xDA, QByteArray("\x01\x01\x00", 3) + char(ss) + char(se) + char(ah << 4 | al));
        ScanBits bits;
        for (qint64 covered = 0; covered < blocks; covered += 32767)
            if (ss == 0)
                bits.put(0, 1);
            else
                bits.put(0x3FFF, 15); // code 0, then 14 one bits: a run of 32767 blocks
        jpeg += bits.finished();
    };
    scan(0, 0, 0, 0);
    scan(1, 63, 0, 1);
    for (int i = 2; i < scans; ++i)
        scan(1, 63, 1, 0);
    return jpeg + QByteArray("\xFF\xD9", 2);
}

QByteArray pngWithTextBomb(const QByteArray &png, qint64 inflatedBytes)
{
    // Every MiB of zeros after the first compresses to the same bytes once the stream is
    // flushed to a byte boundary, because the window before it holds zeros either way.
    constexpr qint64 piece = 1 << 20;
    QByteArray zeros(piece, '\0'), first(4096, '\0'), next(4096, '\0');
    z_stream stream{};
    deflateInit(&stream, Z_BEST_COMPRESSION);
    for (QByteArray *out : {&first, &next}) {
        stream.next_in = reinterpret_cast<Bytef *>(zeros.data());
        stream.avail_in = uInt(piece);
        stream.next_out = reinterpret_cast<Bytef *>(out->data());
        stream.avail_out = uInt(out->size());
        deflate(&stream, Z_SYNC_FLUSH);
        out->truncate(out->size() - qsizetype(stream.avail_out));
    }
    deflateEnd(&stream);
    QByteArray text = QByteArray("Comment\0\0", 9) + first;
    for (qint64 i = 1; i < inflatedBytes / piece; ++i)
        text += next;
    // An empty final block, then the Adler-32 of n zeros: sums 1 and n mod 65521.
    text += QByteArray("\x03\x00", 2) + bigEndian(quint64(inflatedBytes % 65521) << 16 | 1, 4);
    const qsizetype idat = Png::findChunk(png, "IDAT");
    return png.left(idat) + Png::makeChunk("zTXt", text) + png.mid(idat);
}

QByteArray heifGrid(const QByteArray &heif, int columns, int rows)
{
    using namespace Heif;
    const std::vector<BoxSpan> top = readBoxes(heif, 0, heif.size());
    const BoxSpan &meta = requireBox(top, "meta");
    const std::vector<BoxSpan> inMeta = readBoxes(heif, meta.payload + 4, meta.end);
    const BoxSpan &iprp = requireBox(inMeta, "iprp");
    const std::vector<BoxSpan> inIprp = readBoxes(heif, iprp.payload, iprp.end);
    const BoxSpan &ipco = requireBox(inIprp, "ipco");
    const std::vector<BoxSpan> properties = readBoxes(heif, ipco.payload, ipco.end);
    QByteArray hvcC, tile;
    int tileWidth = 0, tileHeight = 0;
    for (const auto &[item, associations] : readPropertyAssociations(heif, requireBox(inIprp, "ipma")).entries)
        for (const PropertyAssociation &association : associations)
            if (const BoxSpan &p = properties.at(association.index - 1); item == 1 && p.type == "hvcC")
                hvcC = heif.mid(p.start, p.end - p.start);
            else if (item == 1 && p.type == "ispe") {
                Cursor ispe(heif, p.payload + 4, p.end);
                tileWidth = int(ispe.read(4));
                tileHeight = int(ispe.read(4));
            }
    for (const ItemLocation &location : readItemLocations(heif, requireBox(inMeta, "iloc")).items)
        if (location.itemId == 1)
            tile = heif.mid(qsizetype(location.baseOffset + location.extents.at(0).offset),
                            qsizetype(location.extents.at(0).length));

    const int width = columns * tileWidth, height = rows * tileHeight;
    QByteArray references = bigEndian(2, 2) + bigEndian(quint64(columns * rows), 2);
    for (int i = 0; i < columns * rows; ++i)
        references += bigEndian(1, 2);
    const auto infe = [](int id, const char *type) {
        return makeFullBox("infe", 2, 0, bigEndian(quint64(id), 2) + bigEndian(0, 2) + type + QByteArray(1, '\0'));
    };
    const auto ispe = [](int w, int h) { return makeFullBox("ispe", 0, 0, bigEndian(quint64(w), 4) + bigEndian(quint64(h), 4)); };
    // ipma: item 1 has the essential hvcC (1) and ispe (2); the grid item 2 has ispe (3).
    const QByteArray ipma = makeFullBox("ipma", 0, 0, bigEndian(2, 4) + bigEndian(1, 2) + QByteArray("\x02\x81\x02", 3) +
                                                          bigEndian(2, 2) + QByteArray("\x01\x03", 2));
    const QByteArray ftyp = makeBox("ftyp", QByteArray("heic") + bigEndian(0, 4) + "mif1heic");
    const auto metaWithTileAt = [&](quint64 offset) {
        // iloc version 1: 4-byte offsets and lengths; item 1 in the file, item 2 (the grid) in idat.
        const QByteArray iloc = makeFullBox(
            "iloc", 1, 0, QByteArray("\x44\x00", 2) + bigEndian(2, 2) + bigEndian(1, 2) + bigEndian(0, 2) +
                              bigEndian(0, 2) + bigEndian(1, 2) + bigEndian(offset, 4) +
                              bigEndian(quint64(tile.size()), 4) + bigEndian(2, 2) + bigEndian(1, 2) + bigEndian(0, 2) +
                              bigEndian(1, 2) + bigEndian(0, 4) + bigEndian(8, 4));
        const QByteArray grid = QByteArray(2, '\0') + char(rows - 1) + char(columns - 1) +
                                bigEndian(quint64(width), 2) + bigEndian(quint64(height), 2);
        return makeFullBox(
            "meta", 0, 0,
            makeFullBox("hdlr", 0, 0, bigEndian(0, 4) + "pict" + QByteArray(13, '\0')) +
                makeFullBox("pitm", 0, 0, bigEndian(2, 2)) +
                makeFullBox("iinf", 0, 0, bigEndian(2, 2) + infe(1, "hvc1") + infe(2, "grid")) +
                makeFullBox("iref", 0, 0, makeBox("dimg", references)) +
                makeBox("iprp", makeBox("ipco", hvcC + ispe(tileWidth, tileHeight) + ispe(width, height)) + ipma) +
                makeBox("idat", grid) + iloc);
    };
    const quint64 tileOffset = quint64(ftyp.size() + metaWithTileAt(0).size() + 8);
    return ftyp + metaWithTileAt(tileOffset) + makeBox("mdat", tile);
}

} // namespace Vorel::Hostile
