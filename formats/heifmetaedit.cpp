// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/heifmetaedit.h"

namespace Vorel::Heif {

namespace {

void require(bool condition)
{
    if (!condition)
        throw MalformedBoxes {};
}

void patchField(QByteArray &bytes, qsizetype at, int width, qint64 value)
{
    require(value >= 0 && (width == 8 || value <= qint64(0xFFFFFFFF)));
    putBigEndian(bytes, at, width, quint64(value));
}

// Moves the file offsets of item data that lies after the meta box by `delta` bytes.
void relocateItems(QByteArray &bytes, const ItemLocations &locations, const BoxSpan &meta, qint64 delta)
{
    for (const ItemLocation &item : locations.items) {
        if (item.constructionMethod != 0 || item.dataReference != 0 || delta == 0)
            continue;
        bool allAfter = true, anyAfter = false;
        for (const ItemExtent &extent : item.extents) {
            const quint64 position = item.baseOffset + extent.offset;
            require(position < quint64(meta.start) || position >= quint64(meta.end)); // data inside meta cannot move
            allAfter = allAfter && position >= quint64(meta.end);
            anyAfter = anyAfter || position >= quint64(meta.end);
        }
        if (!anyAfter)
            continue;
        if (locations.baseOffsetSize > 0 && allAfter) {
            patchField(bytes, item.baseOffsetField, locations.baseOffsetSize, qint64(item.baseOffset) + delta);
            continue;
        }
        require(locations.offsetSize > 0);
        for (const ItemExtent &extent : item.extents)
            if (item.baseOffset + extent.offset >= quint64(meta.end))
                patchField(bytes, extent.offsetField, locations.offsetSize, qint64(extent.offset) + delta);
    }
}

} // namespace

QByteArray replaceMetaChild(const QByteArray &file, const BoxSpan &child, const QByteArray &replacement)
{
    QByteArray bytes = file;
    const std::vector<BoxSpan> top = readBoxes(bytes, 0, bytes.size());
    const BoxSpan &meta = requireBox(top, "meta");
    require(child.start >= meta.payload && child.end <= meta.end);
    const std::vector<BoxSpan> children = readBoxes(bytes, meta.payload + 4, meta.end);
    const qint64 delta = replacement.size() - (child.end - child.start);
    require(delta == 0 || !findBox(top, "moov"));
    relocateItems(bytes, readItemLocations(bytes, requireBox(children, "iloc")), meta, delta);

    QByteArray newMeta =
        bytes.mid(meta.start, child.start - meta.start) + replacement + bytes.mid(child.end, meta.end - child.end);
    const bool largeSize = meta.payload - meta.start == 16;
    if (largeSize)
        patchField(newMeta, 8, 8, newMeta.size());
    else if (Cursor(bytes, meta.start, meta.end).read(4) != 0) // size 0 runs to the end and stays so
        patchField(newMeta, 0, 4, newMeta.size());
    return bytes.left(meta.start) + newMeta + bytes.mid(meta.end);
}

} // namespace Vorel::Heif
