// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/heifboxes.h"

namespace Vorel::Heif {

namespace {

constexpr qsizetype fullBoxHeader = 4; // u8 version, u24 flags
constexpr qsizetype userTypeSize = 16;

void require(bool condition)
{
    if (!condition)
        throw MalformedBoxes {};
}

} // namespace

Cursor::Cursor(const QByteArray &bytes, qsizetype at, qsizetype end)
    : bytes(bytes)
    , at(at)
    , end(end)
{
    require(at >= 0 && at <= end && end <= bytes.size());
}

quint64 Cursor::read(int width)
{
    require(width <= end - at);
    quint64 value = 0;
    for (int i = 0; i < width; ++i)
        value = value << 8 | static_cast<quint8>(bytes[at + i]);
    at += width;
    return value;
}

QByteArray Cursor::readBytes(qsizetype count)
{
    require(count >= 0 && count <= end - at);
    at += count;
    return bytes.mid(at - count, count);
}

QByteArray Cursor::readString()
{
    const qsizetype nul = bytes.indexOf('\0', at);
    require(nul >= 0 && nul < end);
    const QByteArray text = bytes.mid(at, nul - at);
    at = nul + 1;
    return text;
}

std::vector<BoxSpan> readBoxes(const QByteArray &bytes, qsizetype from, qsizetype to)
{
    std::vector<BoxSpan> boxes;
    for (qsizetype at = from; at < to;) {
        Cursor cursor(bytes, at, to);
        quint64 size = cursor.read(4);
        const QByteArray type = cursor.readBytes(4);
        if (size == 1)
            size = cursor.read(8);
        else if (size == 0) { // "to the end" is only meaningful for the file's last box
            require(from == 0 && to == bytes.size());
            size = quint64(to - at);
        }
        if (type == "uuid")
            cursor.readBytes(userTypeSize);
        require(size >= quint64(cursor.position() - at) && size <= quint64(to - at));
        boxes.push_back({type, at, cursor.position(), at + qsizetype(size)});
        at += qsizetype(size);
    }
    return boxes;
}

const BoxSpan *findBox(const std::vector<BoxSpan> &boxes, const char *type)
{
    for (const BoxSpan &box : boxes)
        if (box.type == type)
            return &box;
    return nullptr;
}

const BoxSpan &requireBox(const std::vector<BoxSpan> &boxes, const char *type)
{
    const BoxSpan *box = findBox(boxes, type);
    require(box != nullptr);
    return *box;
}

std::map<quint32, ItemInfo> readItemInfos(const QByteArray &bytes, const BoxSpan &iinf)
{
    Cursor cursor(bytes, iinf.payload, iinf.end);
    const auto version = cursor.read(1);
    cursor.read(3);
    cursor.read(version == 0 ? 2 : 4); // entry count; the boxes that follow are what counts
    std::map<quint32, ItemInfo> infos;
    for (const BoxSpan &infe : readBoxes(bytes, cursor.position(), iinf.end)) {
        if (infe.type != "infe")
            continue;
        Cursor entry(bytes, infe.payload, infe.end);
        const auto infeVersion = entry.read(1);
        entry.read(3);
        if (infeVersion < 2) // legacy entries carry no item type
            continue;
        const auto id = quint32(entry.read(infeVersion == 2 ? 2 : 4));
        entry.read(2); // protection index
        ItemInfo info {entry.readBytes(4), {}};
        entry.readString(); // item name
        if (info.type == "mime")
            info.contentType = entry.readString();
        infos[id] = info;
    }
    return infos;
}

std::vector<ItemReference> readItemReferences(const QByteArray &bytes, const BoxSpan &iref)
{
    Cursor cursor(bytes, iref.payload, iref.end);
    const int idSize = cursor.read(1) == 0 ? 2 : 4;
    cursor.read(3);
    std::vector<ItemReference> references;
    for (const BoxSpan &box : readBoxes(bytes, cursor.position(), iref.end)) {
        Cursor reference(bytes, box.payload, box.end);
        ItemReference item {box.type, quint32(reference.read(idSize)), {}};
        for (auto count = reference.read(2); count > 0; --count)
            item.to.push_back(quint32(reference.read(idSize)));
        references.push_back(item);
    }
    return references;
}

ItemLocations readItemLocations(const QByteArray &bytes, const BoxSpan &iloc)
{
    Cursor cursor(bytes, iloc.payload, iloc.end);
    const auto version = cursor.read(1);
    require(version <= 2);
    cursor.read(3);
    const auto sizes = cursor.read(2);
    const int offsetSize = int(sizes >> 12), lengthSize = int(sizes >> 8 & 0xF);
    const int baseOffsetSize = int(sizes >> 4 & 0xF), indexSize = version == 0 ? 0 : int(sizes & 0xF);
    for (const int size : {offsetSize, lengthSize, baseOffsetSize, indexSize})
        require(size == 0 || size == 4 || size == 8);
    ItemLocations locations {offsetSize, baseOffsetSize, {}};
    for (auto count = cursor.read(version < 2 ? 2 : 4); count > 0; --count) {
        ItemLocation item {};
        item.itemId = quint32(cursor.read(version < 2 ? 2 : 4));
        item.constructionMethod = version == 0 ? 0 : int(cursor.read(2) & 0xF);
        item.dataReference = quint32(cursor.read(2));
        item.baseOffsetField = cursor.position();
        item.baseOffset = cursor.read(baseOffsetSize);
        const auto extentCount = cursor.read(2);
        // Extents without any fields would otherwise let a tiny box claim 65535 of them.
        require(indexSize + offsetSize + lengthSize > 0 || extentCount <= 1);
        for (auto extents = extentCount; extents > 0; --extents) {
            cursor.read(indexSize);
            const qsizetype field = cursor.position();
            const quint64 offset = cursor.read(offsetSize);
            item.extents.push_back({offset, cursor.read(lengthSize), field});
        }
        locations.items.push_back(item);
    }
    return locations;
}

PropertyAssociations readPropertyAssociations(const QByteArray &bytes, const BoxSpan &ipma)
{
    Cursor cursor(bytes, ipma.payload, ipma.end);
    PropertyAssociations result {quint8(cursor.read(1)), quint32(cursor.read(3)), {}};
    const bool wideIndex = result.flags & 1;
    for (auto count = cursor.read(4); count > 0; --count) {
        const auto id = quint32(cursor.read(result.version < 1 ? 2 : 4));
        std::vector<PropertyAssociation> list;
        for (auto n = cursor.read(1); n > 0; --n) {
            const auto value = cursor.read(wideIndex ? 2 : 1);
            const int indexBits = wideIndex ? 15 : 7;
            list.push_back({bool(value >> indexBits), quint16(value & ((1u << indexBits) - 1))});
        }
        result.entries.emplace_back(id, list);
    }
    return result;
}

QByteArray writePropertyAssociations(const PropertyAssociations &associations)
{
    bool wideIndex = associations.flags & 1;
    for (const auto &entry : associations.entries)
        for (const PropertyAssociation &a : entry.second)
            wideIndex = wideIndex || a.index > 127;
    QByteArray payload;
    const auto put = [&payload](int width, quint64 value) {
        payload.append(QByteArray(width, '\0'));
        putBigEndian(payload, payload.size() - width, width, value);
    };
    put(4, associations.entries.size());
    for (const auto &[id, list] : associations.entries) {
        put(associations.version < 1 ? 2 : 4, id);
        put(1, list.size());
        for (const PropertyAssociation &a : list)
            put(wideIndex ? 2 : 1, quint64(a.essential) << (wideIndex ? 15 : 7) | a.index);
    }
    return makeFullBox("ipma", associations.version, (associations.flags & ~1u) | quint32(wideIndex), payload);
}

std::vector<EntityGroup> readEntityGroups(const QByteArray &bytes, const BoxSpan &grpl)
{
    std::vector<EntityGroup> groups;
    for (const BoxSpan &box : readBoxes(bytes, grpl.payload, grpl.end)) {
        Cursor cursor(bytes, box.payload, box.end);
        cursor.read(fullBoxHeader);
        EntityGroup group {box.type, quint32(cursor.read(4)), {}};
        const auto count = cursor.read(4);
        require(count <= quint64(box.end - cursor.position()) / 4);
        for (auto n = count; n > 0; --n)
            group.entities.push_back(quint32(cursor.read(4)));
        groups.push_back(group);
    }
    return groups;
}

QByteArray makeBox(const char *type, const QByteArray &payload)
{
    QByteArray box(4, '\0');
    putBigEndian(box, 0, 4, quint64(8 + payload.size()));
    return box + QByteArray(type, 4) + payload;
}

QByteArray makeFullBox(const char *type, quint8 version, quint32 flags, const QByteArray &payload)
{
    QByteArray header(fullBoxHeader, '\0');
    putBigEndian(header, 0, 4, quint64(version) << 24 | flags);
    return makeBox(type, header + payload);
}

void putBigEndian(QByteArray &bytes, qsizetype at, int width, quint64 value)
{
    for (int i = 0; i < width; ++i)
        bytes[at + i] = char(value >> 8 * (width - 1 - i) & 0xFF);
}

} // namespace Vorel::Heif
