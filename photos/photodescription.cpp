// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Describing a picture from its header: only the bytes before a JPEG's first scan, or a HEIF
// file's meta box, are read, so a library of thousands describes in well under a second.
#include "photos/photolibrary.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include "batch/namepairing.h"
#include "formats/exiforientation.h"
#include "formats/heifboxes.h"
#include "formats/mpindex.h"
#include "formats/pngchunks.h"

namespace Vorel {

namespace {

// Covers the header segments of nearly every JPEG (Exif with its preview, MPF) in one read.
constexpr qint64 firstRead = 64 * 1024;
// A meta box beyond this is not a photo's.
constexpr quint64 largestMetaBox = 64 * 1024 * 1024;

quint32 bigEndian(const QByteArray &bytes, qsizetype at, int width)
{
    quint32 value = 0;
    for (int i = 0; i < width; ++i)
        value = value << 8 | quint8(bytes[at + i]);
    return value;
}

struct Header {
    QSize storedSize;
    int orientation = 1; // EXIF, 1..8
    bool isMpo = false;
    bool isSpatial = false;
};

// The size as shown; a header that states an empty or negative side has no size at all.
QSize upright(QSize size, int orientation)
{
    if (size.width() <= 0 || size.height() <= 0)
        return QSize();
    return orientation >= 5 ? size.transposed() : size;
}

// The segments of a JPEG up to its first scan: SOF for the size, APP1 for the orientation, APP2
// for the MP index.
Header readJpegHeader(QFile &file, QByteArray bytes)
{
    Header header;
    auto have = [&](qsizetype end) {
        if (bytes.size() < end)
            bytes += file.read(end - bytes.size() + firstRead);
        return bytes.size() >= end;
    };
    qsizetype at = 2;
    while (have(at + 4) && quint8(bytes[at]) == 0xFF) {
        const quint8 marker = quint8(bytes[at + 1]);
        if (marker == 0xFF) { // fill byte
            ++at;
            continue;
        }
        if (marker == 0xDA || marker == 0xD9)
            break;
        const qsizetype end = at + 2 + bigEndian(bytes, at + 2, 2);
        if (!have(end))
            break;
        const bool isFrame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame && end - at >= 9 && !header.storedSize.isValid())
            header.storedSize = QSize(int(bigEndian(bytes, at + 7, 2)), int(bigEndian(bytes, at + 5, 2)));
        at = end;
    }
    // The metadata reader wants the stream to go on after the header: an end marker stands in
    // for the scan.
    bytes.truncate(at);
    bytes.append("\xFF\xD9", 2);
    header.isMpo = readMpIndex(bytes).size() >= 2;
    header.orientation = readExifOrientation(bytes);
    return header;
}

// The top-level meta box, read by skipping the boxes before it; empty when there is none.
QByteArray readMetaBox(QFile &file)
{
    qint64 at = 0;
    while (file.seek(at)) {
        const QByteArray head = file.read(16);
        if (head.size() < 8)
            break;
        quint64 size = bigEndian(head, 0, 4);
        if (size == 1 && head.size() == 16)
            size = quint64(bigEndian(head, 8, 4)) << 32 | bigEndian(head, 12, 4);
        else if (size == 0)
            size = quint64(file.size() - at);
        if (size < 8)
            break;
        if (head.mid(4, 4) == "meta")
            return size <= largestMetaBox && file.seek(at) ? file.read(qint64(size)) : QByteArray();
        at += qint64(size);
    }
    return {};
}

// The primary item's ispe size and irot quarter turns, and whether a stereo pair group exists.
Header readHeifHeader(QFile &file)
{
    using namespace Heif;
    Header header;
    const QByteArray meta = readMetaBox(file);
    if (meta.isEmpty())
        return header;
    try {
        const std::vector<BoxSpan> top = readBoxes(meta, 0, meta.size());
        const std::vector<BoxSpan> children = readBoxes(meta, top.front().payload + 4, top.front().end);
        if (const BoxSpan *grpl = findBox(children, "grpl"))
            for (const EntityGroup &group : readEntityGroups(meta, *grpl))
                header.isSpatial = header.isSpatial || (group.type == "ster" && group.entities.size() >= 2);
        const BoxSpan &pitm = requireBox(children, "pitm");
        Cursor primaryField(meta, pitm.payload, pitm.end);
        const int idWidth = primaryField.read(1) == 0 ? 2 : 4;
        primaryField.read(3); // flags
        const quint32 primary = quint32(primaryField.read(idWidth));
        const BoxSpan &iprp = requireBox(children, "iprp");
        const std::vector<BoxSpan> properties = readBoxes(meta, iprp.payload, iprp.end);
        const std::vector<BoxSpan> boxes =
            readBoxes(meta, requireBox(properties, "ipco").payload, requireBox(properties, "ipco").end);
        for (const auto &[item, associations] : readPropertyAssociations(meta, requireBox(properties, "ipma")).entries) {
            if (item != primary)
                continue;
            for (const PropertyAssociation &association : associations) {
                if (association.index == 0 || association.index > boxes.size())
                    continue;
                const BoxSpan &box = boxes[association.index - 1];
                Cursor fields(meta, box.payload, box.end);
                if (box.type == "ispe") {
                    fields.read(4);
                    const int width = int(fields.read(4)), height = int(fields.read(4));
                    header.storedSize = QSize(width, height);
                } else if (box.type == "irot" && (fields.read(1) & 1)) {
                    header.orientation = 6; // a quarter turn either way swaps width and height
                }
            }
        }
    } catch (const MalformedBoxes &) {
        return header; // described as a plain picture of unknown size
    }
    return header;
}

Header readOtherHeader(QFile &file, const QByteArray &start)
{
    Header header;
    if (!Png::chunksFit(file))
        return header;
    header.storedSize = QImageReader(&file).size();
    header.orientation = readExifOrientation(start);
    return header;
}

Header readHeader(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray start = file.read(firstRead);
    if (start.startsWith("\xFF\xD8\xFF"))
        return readJpegHeader(file, start);
    if (start.mid(4, 4) == "ftyp")
        return readHeifHeader(file);
    file.seek(0);
    return readOtherHeader(file, start);
}

bool isSideBySideByExtension(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == QLatin1String("jps") || suffix == QLatin1String("pns");
}

} // namespace

PhotoAsset describeFile(const QString &path, const QString &album)
{
    const Header header = readHeader(path);
    PhotoAsset asset{path, album, PhotoKind::single, upright(header.storedSize, header.orientation), {}};
    if (header.isMpo)
        asset.kind = PhotoKind::mpo;
    else if (header.isSpatial)
        asset.kind = PhotoKind::spatial;
    else if (isSideBySideByExtension(path) ||
             (asset.size.isValid() && asset.size.width() >= 2 * qint64(asset.size.height()))) // no int overflow
        asset.kind = PhotoKind::sideBySide;
    return asset;
}

PhotoDescriber::PhotoDescriber(QStringList files, QString album) : files(std::move(files)), album(std::move(album))
{
    for (const NamePairing &pairing : pairByName(this->files, {}, {}))
        if (!pairing.left.isEmpty()) {
            pairs.insert(pairing.left, {PhotoKind::left, pairing.right});
            pairs.insert(pairing.right, {PhotoKind::right, pairing.left});
        }
}

PhotoAsset PhotoDescriber::describe(qsizetype index) const
{
    PhotoAsset asset = describeFile(files[index], album);
    if (const auto pair = pairs.constFind(asset.path); pair != pairs.cend())
        std::tie(asset.kind, asset.partner) = *pair;
    return asset;
}

std::vector<PhotoAsset> describePhotos(const QStringList &files, const QString &album)
{
    const PhotoDescriber describer(files, album);
    std::vector<PhotoAsset> assets;
    assets.reserve(size_t(files.size()));
    for (qsizetype i = 0; i < describer.count(); ++i)
        assets.push_back(describer.describe(i));
    return assets;
}

} // namespace Vorel
