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

// Moves the file offsets of item data that lies after the meta box by `delta` bytes. The
// location fields are found at their positions in the original file; `edited` is the file
// after the meta child [childStart, childEnd) was replaced, so later fields sit `delta` further.
void relocateItems(QByteArray &edited, const ItemLocations &locations, const BoxSpan &meta, const BoxSpan &child,
                   qint64 delta)
{
    const auto patch = [&](qsizetype field, int width, qint64 value) {
        require(field < child.start || field >= child.end);
        patchField(edited, field < child.start ? field : field + delta, width, value);
    };
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
            patch(item.baseOffsetField, locations.baseOffsetSize, qint64(item.baseOffset) + delta);
            continue;
        }
        require(locations.offsetSize > 0);
        for (const ItemExtent &extent : item.extents)
            if (item.baseOffset + extent.offset >= quint64(meta.end))
                patch(extent.offsetField, locations.offsetSize, qint64(extent.offset) + delta);
    }
}

} // namespace

QByteArray replaceMetaChild(const QByteArray &file, const BoxSpan &child, const QByteArray &replacement)
{
    const std::vector<BoxSpan> top = readBoxes(file, 0, file.size());
    const BoxSpan &meta = requireBox(top, "meta");
    require(child.start >= meta.payload && child.end <= meta.end);
    const std::vector<BoxSpan> children = readBoxes(file, meta.payload + 4, meta.end);
    const qint64 delta = replacement.size() - (child.end - child.start);
    require(delta == 0 || !findBox(top, "moov"));
    const ItemLocations locations = readItemLocations(file, requireBox(children, "iloc"));

    // The only copy of the file's bytes.
    QByteArray edited;
    edited.reserve(file.size() + delta);
    edited.append(file.constData(), child.start).append(replacement).append(file.constData() + child.end,
                                                                           file.size() - child.end);
    relocateItems(edited, locations, meta, child, delta);
    const qint64 metaSize = meta.end - meta.start + delta;
    const bool largeSize = meta.payload - meta.start == 16;
    if (largeSize)
        patchField(edited, meta.start + 8, 8, metaSize);
    else if (Cursor(file, meta.start, meta.end).read(4) != 0) // size 0 runs to the end and stays so
        patchField(edited, meta.start, 4, metaSize);
    return edited;
}

} // namespace Vorel::Heif
