// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Encoding by extension, and never replacing a good file with a broken one.
#include <QDir>

#include <gtest/gtest.h>

#include "formats/imagereader.h"
#include "formats/imagewriter.h"
#include "tests/testsupport.h"

using namespace Vorel;
using namespace Vorel::TestSupport;

namespace {

QImage gradient(int w, int h)
{
    QImage image(w, h, QImage::Format_RGB32);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            image.setPixel(x, y, qRgb(x * 255 / w, y * 255 / h, 128));
    return image;
}

TEST(ImageWriter, EncodesByLowerCasedExtension)
{
    QTemporaryDir dir;
    const QImage image = gradient(64, 48);
    const struct {
        const char *name;
        QByteArray magic;
        qsizetype at;
    } rows[] = {
        {"a.jpg", "\xFF\xD8\xFF", 0}, {"a.JPG", "\xFF\xD8\xFF", 0}, {"a.jpeg", "\xFF\xD8\xFF", 0},
        {"a.png", "\x89PNG", 0},      {"a.xyz", "\x89PNG", 0},      {"noextension", "\x89PNG", 0},
        {"a.tif", "II*", 0},          {"a.TIFF", "II*", 0},         {"a.bmp", "BM", 0},
        {"a.heic", "ftyp", 4},
    };
    for (const auto &row : rows) {
        const QString path = dir.filePath(QString::fromLatin1(row.name));
        ASSERT_TRUE(writeImage(image, path)) << row.name;
        EXPECT_EQ(readAll(path).mid(row.at, row.magic.size()), row.magic) << row.name;
        const std::optional<QImage> back = loadCorrectImageOriented(path);
        ASSERT_TRUE(back) << row.name;
        EXPECT_EQ(back->size(), image.size()) << row.name;
    }
}

TEST(ImageWriter, FailedWriteLeavesTheOldFile)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("keep.jpg"));
    ASSERT_TRUE(writeAll(path, "good old bytes"));
    EXPECT_FALSE(writeImage(QImage(), path));
    EXPECT_FALSE(writeImage(gradient(8, 8), dir.filePath(QStringLiteral("missing-folder/x.png"))));
    EXPECT_EQ(readAll(path), QByteArray("good old bytes"));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files).size(), 1); // no temporary left behind
}

} // namespace
