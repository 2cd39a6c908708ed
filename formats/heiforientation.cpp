// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/heiforientation.h"

#include <algorithm>
#include <array>
#include <set>

#include "formats/heifboxes.h"
#include "formats/heifmetaedit.h"
#include "formats/textorientation.h"
#include "formats/tifforientation.h"

namespace Vorel {

namespace {

using namespace Heif;

// EXIF orientation -> irot/imir (display from coded pixels), rotation applied first, as HEIF
// readers apply the properties in the order of the item's associations:
//   1 as coded          -           5 transpose           irot 3 (90° clockwise), imir 1
//   2 flip left-right   imir 1      6 90° clockwise       irot 3
//   3 rotate 180°       irot 2      7 transverse          irot 3, imir 0
//   4 flip top-bottom   imir 0      8 90° anticlockwise   irot 1
constexpr std::array<HeifTransform, 8> transforms = {{{0, -1}, {0, 1}, {2, -1}, {0, 0}, {3, 1}, {3, -1}, {3, 0}, {1, -1}}};

const QByteArray xmpContentType("application/rdf+xml");

void require(bool condition)
{
    if (!condition)
        throw MalformedBoxes {};
}

struct ByteRange {
    qsizetype start;
    qsizetype length;
};

// Where a single-extent item's data lies in the file; none for items split over several
// extents or stored elsewhere.
std::optional<ByteRange> itemRange(const ItemLocation &item, qsizetype fileSize, const BoxSpan *idat)
{
    if (item.extents.size() != 1 || item.dataReference != 0 || item.constructionMethod > 1)
        return std::nullopt;
    if (item.constructionMethod == 1 && !idat)
        return std::nullopt;
    const qsizetype origin = item.constructionMethod == 0 ? 0 : idat->payload;
    const auto room = quint64((item.constructionMethod == 0 ? fileSize : idat->end) - origin);
    const ItemExtent &extent = item.extents.front();
    require(item.baseOffset <= room && extent.offset <= room - item.baseOffset);
    const quint64 start = item.baseOffset + extent.offset;
    const quint64 length = extent.length == 0 ? room - start : extent.length;
    require(length <= room - start);
    return ByteRange {origin + qsizetype(start), qsizetype(length)};
}

// An Exif item is a u32 offset to the TIFF header, then the Exif data. The tag is changed in
// place; an item without the tag is left alone, as adding one would have to grow it.
QByteArray exifItemWithOrientation(const QByteArray &item, int orientation)
{
    Cursor cursor(item, 0, item.size());
    const quint64 offset = cursor.read(4);
    require(offset <= quint64(item.size() - 4));
    const qsizetype tiffStart = 4 + qsizetype(offset);
    const std::optional<QByteArray> tiff = tiffWithOrientation(item.mid(tiffStart), orientation);
    require(tiff.has_value());
    return tiff->size() == item.size() - tiffStart ? item.left(tiffStart) + *tiff : item;
}

// The primary image and the thumbnails of it: the items whose orientation is set.
std::set<quint32> orientedItems(quint32 primary, const std::vector<ItemReference> &references)
{
    std::set<quint32> items {primary};
    for (const ItemReference &r : references)
        if (r.type == "thmb" && std::find(r.to.begin(), r.to.end(), primary) != r.to.end())
            items.insert(r.from);
    return items;
}

// True when a metadata item describes one of `items`, or the whole file (no cdsc reference).
bool describes(quint32 item, const std::set<quint32> &items, const std::vector<ItemReference> &references)
{
    bool referencesAny = false;
    for (const ItemReference &r : references) {
        if (r.type != "cdsc" || r.from != item)
            continue;
        referencesAny = true;
        for (const quint32 to : r.to)
            if (items.count(to))
                return true;
    }
    return !referencesAny;
}

// Updates the Exif and XMP items of the oriented images in place (same length).
void editMetadataItems(QByteArray &bytes, const std::vector<BoxSpan> &metaChildren, const ItemLocations &locations,
    const std::set<quint32> &items, const std::vector<ItemReference> &references, int orientation)
{
    const std::map<quint32, ItemInfo> infos = readItemInfos(bytes, requireBox(metaChildren, "iinf"));
    const BoxSpan *idat = findBox(metaChildren, "idat");
    for (const ItemLocation &location : locations.items) {
        const auto info = infos.find(location.itemId);
        if (info == infos.end() || !describes(location.itemId, items, references))
            continue;
        const bool exif = info->second.type == "Exif";
        if (!exif && !(info->second.type == "mime" && info->second.contentType == xmpContentType))
            continue;
        const std::optional<ByteRange> range = itemRange(location, bytes.size(), idat);
        if (!range)
            continue;
        const QByteArray data = bytes.mid(range->start, range->length);
        bytes.replace(range->start, range->length,
            exif ? exifItemWithOrientation(data, orientation) : xmpWithOrientation(data, orientation));
    }
}

// The new iprp box: ipco gains the irot/imir boxes it lacks, and the oriented items' transform
// associations are replaced by the ones for `orientation` (essential, as HEIF requires).
QByteArray iprpWithOrientation(
    const QByteArray &bytes, const BoxSpan &iprp, const std::set<quint32> &items, int orientation)
{
    const std::vector<BoxSpan> children = readBoxes(bytes, iprp.payload, iprp.end);
    const BoxSpan &ipco = requireBox(children, "ipco");
    const std::vector<BoxSpan> properties = readBoxes(bytes, ipco.payload, ipco.end);
    QByteArray ipcoPayload = bytes.mid(ipco.payload, ipco.end - ipco.payload);
    qsizetype propertyCount = qsizetype(properties.size());

    // Reuses an identical property, so rewriting twice with one value changes nothing more.
    const auto propertyIndex = [&](const char *type, int value) {
        const QByteArray box = makeBox(type, QByteArray(1, char(value)));
        for (std::size_t i = 0; i < properties.size(); ++i)
            if (bytes.mid(properties[i].start, properties[i].end - properties[i].start) == box)
                return quint16(i + 1);
        ipcoPayload += box;
        require(propertyCount < 0x7FFF);
        return quint16(++propertyCount);
    };
    const HeifTransform transform = heifTransformForOrientation(orientation);
    std::vector<PropertyAssociation> added;
    if (transform.anticlockwiseQuarterTurns != 0)
        added.push_back({true, propertyIndex("irot", transform.anticlockwiseQuarterTurns)});
    if (transform.mirrorAxis >= 0)
        added.push_back({true, propertyIndex("imir", transform.mirrorAxis)});
    const auto isTransform = [&](const PropertyAssociation &a) {
        return a.index >= 1 && a.index <= properties.size()
            && (properties[a.index - 1].type == "irot" || properties[a.index - 1].type == "imir");
    };

    QByteArray payload;
    std::set<quint32> updated;
    for (const BoxSpan &child : children) {
        if (child.type == "ipco") {
            payload += makeBox("ipco", ipcoPayload);
        } else if (child.type == "ipma") {
            PropertyAssociations associations = readPropertyAssociations(bytes, child);
            for (auto &[id, list] : associations.entries) {
                // An index past the last property would silently come to mean an appended one.
                for (const PropertyAssociation &a : list)
                    require(a.index <= properties.size());
                if (!items.count(id))
                    continue;
                list.erase(std::remove_if(list.begin(), list.end(), isTransform), list.end());
                list.insert(list.end(), added.begin(), added.end());
                require(list.size() <= 255);
                updated.insert(id);
            }
            payload += writePropertyAssociations(associations);
        } else {
            payload += bytes.mid(child.start, child.end - child.start);
        }
    }
    require(updated == items); // every image has its ispe association, so an entry exists
    return makeBox("iprp", payload);
}

QByteArray rewritten(const QByteArray &file, int orientation)
{
    QByteArray bytes = file;
    const std::vector<BoxSpan> top = readBoxes(bytes, 0, bytes.size());
    const BoxSpan &meta = requireBox(top, "meta");
    const std::vector<BoxSpan> children = readBoxes(bytes, meta.payload + 4, meta.end);

    Cursor pitm(bytes, requireBox(children, "pitm").payload, requireBox(children, "pitm").end);
    const quint32 primary = quint32(pitm.read(pitm.read(4) >> 24 == 0 ? 2 : 4));
    const BoxSpan *iref = findBox(children, "iref");
    const std::vector<ItemReference> references
        = iref ? readItemReferences(bytes, *iref) : std::vector<ItemReference> {};
    const std::set<quint32> items = orientedItems(primary, references);
    const ItemLocations locations = readItemLocations(bytes, requireBox(children, "iloc"));

    editMetadataItems(bytes, children, locations, items, references, orientation);
    const BoxSpan &iprp = requireBox(children, "iprp");
    return replaceMetaChild(bytes, iprp, iprpWithOrientation(bytes, iprp, items, orientation));
}

} // namespace

HeifTransform heifTransformForOrientation(int orientation)
{
    return transforms.at(std::size_t(orientation - 1));
}

std::optional<QByteArray> heifWithOrientation(const QByteArray &file, int orientation)
{
    try {
        return rewritten(file, orientation);
    } catch (const MalformedBoxes &) {
        return std::nullopt;
    }
}

} // namespace Vorel
