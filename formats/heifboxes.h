// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Bounds-checked reading of the HEIF (ISOBMFF) boxes an in-place metadata edit needs: box
// spans, item types and references, item locations (iloc), property associations (ipma) and
// entity groups (grpl).
// Every reader throws MalformedBoxes when a structure does not fit its container.
#pragma once

#include <map>
#include <vector>

#include <QByteArray>

namespace Vorel::Heif {

struct MalformedBoxes { };

// Box layout: u32 size | 4cc type | [u64 size when size == 1] | [16-byte user type for 'uuid'];
// size 0 means "to the end of the file" (top level only). FullBoxes add u8 version | u24 flags.
struct BoxSpan {
    QByteArray type;
    qsizetype start; // first byte of the box
    qsizetype payload; // first byte after the header
    qsizetype end; // one past the last byte
};

// The boxes that tile bytes [from, to) exactly; the whole array is the top level.
std::vector<BoxSpan> readBoxes(const QByteArray &bytes, qsizetype from, qsizetype to);
// The first child of the given type, or nullptr.
const BoxSpan *findBox(const std::vector<BoxSpan> &boxes, const char *type);
const BoxSpan &requireBox(const std::vector<BoxSpan> &boxes, const char *type);

// Big-endian reads inside [at, end) of a byte array.
class Cursor {
public:
    Cursor(const QByteArray &bytes, qsizetype at, qsizetype end);
    quint64 read(int width); // width 0 reads nothing and gives 0
    QByteArray readBytes(qsizetype count);
    QByteArray readString(); // up to and excluding a NUL
    qsizetype position() const { return at; }

private:
    const QByteArray &bytes;
    qsizetype at;
    qsizetype end;
};

struct ItemInfo {
    QByteArray type; // 'hvc1', 'grid', 'Exif', 'mime', ...
    QByteArray contentType; // for 'mime' items
};
std::map<quint32, ItemInfo> readItemInfos(const QByteArray &bytes, const BoxSpan &iinf);

struct ItemReference {
    QByteArray type; // 'cdsc', 'thmb', 'dimg', ...
    quint32 from;
    std::vector<quint32> to;
};
std::vector<ItemReference> readItemReferences(const QByteArray &bytes, const BoxSpan &iref);

// iloc, with the file position of each offset field so that it can be patched in place.
struct ItemExtent {
    quint64 offset;
    quint64 length; // 0 = to the end
    qsizetype offsetField;
};
struct ItemLocation {
    quint32 itemId;
    int constructionMethod; // 0 file offset, 1 offset in idat, 2 item
    quint32 dataReference; // 0 = this file
    quint64 baseOffset;
    qsizetype baseOffsetField;
    std::vector<ItemExtent> extents;
};
struct ItemLocations {
    int offsetSize;
    int baseOffsetSize;
    std::vector<ItemLocation> items;
};
ItemLocations readItemLocations(const QByteArray &bytes, const BoxSpan &iloc);

// ipma: per item, the 1-based indexes of its ipco properties, in order.
struct PropertyAssociation {
    bool essential;
    quint16 index;
};
struct PropertyAssociations {
    quint8 version;
    quint32 flags;
    std::vector<std::pair<quint32, std::vector<PropertyAssociation>>> entries;
};
PropertyAssociations readPropertyAssociations(const QByteArray &bytes, const BoxSpan &ipma);
// The whole ipma box; switches to 15-bit indexes when an index needs them.
QByteArray writePropertyAssociations(const PropertyAssociations &associations);

// grpl: its entity groups ('ster', 'altr', ...), in order. A group's entity count must fit its box.
struct EntityGroup {
    QByteArray type;
    quint32 id;
    std::vector<quint32> entities;
};
std::vector<EntityGroup> readEntityGroups(const QByteArray &bytes, const BoxSpan &grpl);

// A plain box or FullBox with the given payload and a 32-bit size.
QByteArray makeBox(const char *type, const QByteArray &payload);
QByteArray makeFullBox(const char *type, quint8 version, quint32 flags, const QByteArray &payload);

// Writes `value` big-endian into `width` bytes at `at`.
void putBigEndian(QByteArray &bytes, qsizetype at, int width, quint64 value);

} // namespace Vorel::Heif
