// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// MPO extraction over real camera files and broken ones.
#include <gtest/gtest.h>

#include "formats/mpindex.h"
#include "formats/mpo.h"
#include "tests/testsupport.h"

using namespace Vorel;
using namespace Vorel::TestSupport;

namespace {

struct MpoCase {
    const char *file;
    int errorCode; // -1: extracts
    QSize left, right;
};

TEST(Mpo, ExtractsOrFailsWithTheRightCode)
{
    const MpoCase cases[] = {
        {"mpo/sugarshack.mpo", -1, {640, 480}, {640, 480}},
        {"mpo/frozenpond.mpo", -1, {640, 480}, {640, 480}},
        {"mpo/Panasonic-DMC-GX8.mpo", -1, {1824, 1368}, {1824, 1368}},
        {"mpo/ignore_frame_size.mpo", -1, {64, 64}, {64, 64}}, // size from the frames, not EXIF
        {"mpo/sugarshack_ifd_offset.mpo", -1, {640, 480}, {640, 480}},
        {"mpo/frame_size.mpo", -1, {56, 70}, {349, 434}},
        {"mpo/sugarshack_no_data.mpo", 1, {}, {}},        // second picture past the end
        {"mpo/ultrahdr.jpg", 1, {}, {}},                  // second picture truncated
        {"mpo/sugarshack_bad_mpo_header.jpg", 0, {}, {}}, // no index: one picture
        {"orientation/hopper.jpg", 0, {}, {}},
        {"heic/rainbow-451x461.heic", 0, {}, {}},
        {"does-not-exist.mpo", 0, {}, {}},
    };
    for (const MpoCase &c : cases) {
        try {
            const auto [left, right] = extractMPO(testData(QLatin1String(c.file)));
            EXPECT_EQ(c.errorCode, -1) << c.file;
            EXPECT_EQ(left.size(), c.left) << c.file;
            EXPECT_EQ(right.size(), c.right) << c.file;
        } catch (const MpoError &error) {
            EXPECT_EQ(int(error.code()), c.errorCode) << c.file;
            EXPECT_EQ(error.description(), c.errorCode == 0 ? QStringLiteral("Invalid MPO file")
                                                            : QStringLiteral("Failed to extract MPO images"));
        }
    }
}

TEST(Mpo, IndexOfBothByteOrdersAndCutFiles)
{
    const QByteArray bytes = readAll(testData(QStringLiteral("mpo/Panasonic-DMC-GX8.mpo")));
    const std::vector<MpPicture> pictures = readMpIndex(bytes);
    ASSERT_EQ(pictures.size(), 2u);
    EXPECT_EQ(pictures[0].offset, 0);
    EXPECT_EQ(bytes.mid(pictures[1].offset, 2), QByteArray("\xFF\xD8"));
    // Cut anywhere inside the index, the parser gives up cleanly.
    for (qsizetype cut = 0; cut < 600; cut += 3)
        EXPECT_LE(readMpIndex(bytes.left(cut)).size(), 2u);
}

} // namespace
