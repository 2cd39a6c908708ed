// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The HEIF box layer: growing meta in the item location layouts real files use (absolute base
// offsets, absolute extent offsets with tiles, idat grids) keeps every image decodable and
// identical; entity groups and property associations in their edge layouts.
#include <gtest/gtest.h>

#include "formats/heifboxes.h"
#include "formats/heifimage.h"
#include "formats/heifmetaedit.h"
#include "tests/testsupport.h"

using namespace Vorel;
using namespace Vorel::Heif;
using namespace Vorel::TestSupport;

namespace {

std::optional<QImage> decodePrimary(const QByteArray &bytes)
{
    const Context context = openContext(bytes);
    heif_image_handle *raw = nullptr;
    if (!context || heif_context_get_primary_image_handle(context.get(), &raw).code != heif_error_Ok)
        return std::nullopt;
    return decodeHandle(Handle(raw).get());
}

std::vector<BoxSpan> metaChildren(const QByteArray &bytes)
{
    const BoxSpan meta = requireBox(readBoxes(bytes, 0, bytes.size()), "meta");
    return readBoxes(bytes, meta.payload + 4, meta.end);
}

} // namespace

TEST(HeifMetaEdit, GrowingMetaKeepsImagesIdentical)
{
    // vision-pro: tiles at absolute extent offsets, grids in idat; example: libheif's base offsets;
    // rainbow: an odd-sized grid.
    for (const char *name : {"vision-pro.HEIC", "example.heic", "rainbow-451x461.heic"}) {
        const QByteArray original = readAll(testData(QStringLiteral("heic/") + QLatin1String(name)));
        const BoxSpan iprp = requireBox(metaChildren(original), "iprp");
        const QByteArray padding = makeBox("free", QByteArray(1000, '\x55'));
        const QByteArray grown =
            replaceMetaChild(original, iprp, original.mid(iprp.start, iprp.end - iprp.start) + padding);
        ASSERT_EQ(grown.size(), original.size() + padding.size()) << name;
        const std::optional<QImage> before = decodePrimary(original), after = decodePrimary(grown);
        ASSERT_TRUE(before && after) << name;
        EXPECT_TRUE(*before == *after) << name;
    }
}

TEST(HeifMetaEdit, RefusesDataInsideMeta)
{
    // iloc pointing into meta itself: moving it would corrupt the item.
    QByteArray iloc = QByteArray::fromHex("00000000" "4400" "0001" "0001" "0000" "0001" "00000010" "00000004");
    const QByteArray meta = makeFullBox("meta", 0, 0, makeBox("iloc", iloc) + makeBox("free", {}));
    const QByteArray file = makeBox("ftyp", "heic") + meta;
    const BoxSpan freeBox = requireBox(metaChildren(file), "free");
    EXPECT_THROW(replaceMetaChild(file, freeBox, makeBox("free", QByteArray(4, '\0'))), MalformedBoxes);
}

TEST(HeifBoxes, EntityGroups)
{
    const auto group = [](const char *type, const char *hexFields) {
        return makeFullBox(type, 0, 0, QByteArray::fromHex(hexFields));
    };
    const QByteArray grpl = makeBox("grpl", group("altr", "0000000700000001" "00000003") +
                                                group("ster", "0000003500000002" "0000001A00000034"));
    const std::vector<EntityGroup> groups = readEntityGroups(grpl, readBoxes(grpl, 0, grpl.size()).front());
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(groups[1].type, "ster");
    EXPECT_EQ(groups[1].id, 53u);
    EXPECT_EQ(groups[1].entities, (std::vector<quint32>{26, 52}));

    // A count that claims more entities than the box holds.
    const QByteArray lying = makeBox("grpl", group("ster", "0000003500000003" "0000001A00000034"));
    EXPECT_THROW(readEntityGroups(lying, readBoxes(lying, 0, lying.size()).front()), MalformedBoxes);
}

TEST(HeifBoxes, PropertyAssociationWidths)
{
    struct Case {
        quint8 version;
        quint32 itemId;
        quint16 index;
        bool wide;
    };
    for (const Case &c : {Case{0, 1, 127, false}, Case{0, 1, 128, true}, Case{1, 70000, 5, false},
                          Case{1, 70000, 32767, true}}) {
        const PropertyAssociations written{c.version, 0, {{c.itemId, {{true, 1}, {false, c.index}}}}};
        const QByteArray box = writePropertyAssociations(written);
        const PropertyAssociations back = readPropertyAssociations(box, readBoxes(box, 0, box.size()).front());
        EXPECT_EQ(back.flags & 1, quint32(c.wide)) << c.index;
        ASSERT_EQ(back.entries.size(), 1u);
        EXPECT_EQ(back.entries[0].first, c.itemId);
        ASSERT_EQ(back.entries[0].second.size(), 2u);
        EXPECT_TRUE(back.entries[0].second[0].essential);
        EXPECT_FALSE(back.entries[0].second[1].essential);
        EXPECT_EQ(back.entries[0].second[1].index, c.index);
    }
}

TEST(HeifBoxes, RefusesOverrunningSizes)
{
    const QByteArray cases[] = {
        QByteArray::fromHex("0000002066747970"), // claims 32 bytes, has 8
        QByteArray::fromHex("0000000466747970"), // smaller than its own header
        QByteArray::fromHex("000000016d6574610000000000000100"), // 64-bit size past the end
        QByteArray::fromHex("0000001875756964"), // uuid box cut inside its user type
    };
    for (const QByteArray &bytes : cases)
        EXPECT_THROW(readBoxes(bytes, 0, bytes.size()), MalformedBoxes) << bytes.toHex().constData();
    // Size 0 runs to the end of the file.
    const QByteArray last = QByteArray::fromHex("000000006d646174") + QByteArray(5, '\0');
    EXPECT_EQ(readBoxes(last, 0, last.size()).front().end, last.size());
}
