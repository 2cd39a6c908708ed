// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: the HEIF box layer must survive any bytes. It walks every meta structure the
// spatial photo and orientation code read, decodes the camera properties, re-writes ipma, and
// grows meta, checking that item data after meta moves by exactly the growth.
#include "formats/cameraproperties.h"
#include "formats/heifboxes.h"
#include "formats/heifmetaedit.h"
#include "fuzz/fuzzinput.h"

namespace {

using namespace Vorel::Heif;
using Vorel::Fuzz::check;

void readProperties(const QByteArray &bytes, const BoxSpan &iprp)
{
    const std::vector<BoxSpan> children = readBoxes(bytes, iprp.payload, iprp.end);
    if (const BoxSpan *ipco = findBox(children, "ipco"))
        for (const BoxSpan &property : readBoxes(bytes, ipco->payload, ipco->end)) {
            const QByteArray box = bytes.mid(property.start, property.end - property.start);
            readIntrinsics(box, 4000, 3000);
            readPositionX(box);
            readDisparity(box);
        }
    for (const BoxSpan &child : children) {
        if (child.type != "ipma")
            continue;
        const PropertyAssociations associations = readPropertyAssociations(bytes, child);
        const QByteArray written = writePropertyAssociations(associations);
        const std::vector<BoxSpan> again = readBoxes(written, 0, written.size());
        check(again.size() == 1);
        check(readPropertyAssociations(written, again.front()).entries.size() == associations.entries.size());
    }
}

// Item data that lay after meta must lie `growth` bytes further on once meta has grown.
void growMeta(const QByteArray &bytes, const BoxSpan &meta, const BoxSpan &iprp, const BoxSpan &iloc)
{
    const ItemLocations before = readItemLocations(bytes, iloc);
    const QByteArray padding = makeBox("free", QByteArray(8, '\0'));
    const QByteArray grown = replaceMetaChild(bytes, iprp, bytes.mid(iprp.start, iprp.end - iprp.start) + padding);
    const BoxSpan newMeta = requireBox(readBoxes(grown, 0, grown.size()), "meta");
    const ItemLocations after = readItemLocations(grown, requireBox(readBoxes(grown, newMeta.payload + 4, newMeta.end), "iloc"));
    check(after.items.size() == before.items.size());
    for (size_t i = 0; i < before.items.size(); ++i) {
        const ItemLocation &old = before.items[i], &moved = after.items[i];
        check(old.extents.size() == moved.extents.size());
        for (size_t e = 0; e < old.extents.size(); ++e) {
            const quint64 from = old.baseOffset + old.extents[e].offset, to = moved.baseOffset + moved.extents[e].offset;
            const bool shifts = old.constructionMethod == 0 && old.dataReference == 0 && from >= quint64(meta.end);
            check(to == from + (shifts ? quint64(padding.size()) : 0));
        }
    }
}

void walk(const QByteArray &bytes)
{
    const std::vector<BoxSpan> top = readBoxes(bytes, 0, bytes.size());
    const BoxSpan &meta = requireBox(top, "meta");
    const std::vector<BoxSpan> children = readBoxes(bytes, meta.payload + 4, meta.end);
    if (const BoxSpan *iinf = findBox(children, "iinf"))
        readItemInfos(bytes, *iinf);
    if (const BoxSpan *iref = findBox(children, "iref"))
        readItemReferences(bytes, *iref);
    if (const BoxSpan *grpl = findBox(children, "grpl"))
        for (const EntityGroup &group : readEntityGroups(bytes, *grpl))
            check(group.entities.size() * 4 <= size_t(grpl->end - grpl->payload));
    const BoxSpan *iprp = findBox(children, "iprp");
    if (iprp)
        readProperties(bytes, *iprp);
    const BoxSpan *iloc = findBox(children, "iloc");
    if (iprp && iloc)
        growMeta(bytes, meta, *iprp, *iloc);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes = Vorel::Fuzz::bytes(data, size);
    try {
        walk(bytes);
    } catch (const MalformedBoxes &) {
    }
    return 0;
}
