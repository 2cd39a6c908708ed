// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "app/foldernavigator.h"

using namespace Vorel;

namespace {

QString touch(const QTemporaryDir &dir, const char *name)
{
    const QString path = dir.filePath(QString::fromLatin1(name));
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    return path;
}

QStringList names(const QStringList &paths)
{
    QStringList out;
    for (const QString &p : paths)
        out << QFileInfo(p).fileName();
    return out;
}

TEST(FolderNavigator, ListsStereoFilesInNaturalOrder)
{
    QTemporaryDir dir;
    for (const char *name : {"b.jpg", "a10.jpg", "a2.JPG", ".hidden.jpg", "c.bmp", "d.txt", "e.heic", "f.MPO"})
        touch(dir, name);
    EXPECT_EQ(names(listStereoFiles(dir.path())),
              (QStringList{"a2.JPG", "a10.jpg", "b.jpg", "e.heic", "f.MPO"}));
}

TEST(FolderNavigator, StepsInBothLoadModes)
{
    QTemporaryDir dir;
    for (const char *name : {"1.jpg", "2.jpg", "3.jpg", "4.jpg", "5.jpg"})
        touch(dir, name);
    FolderNavigator pairs;
    pairs.rebuild(dir.filePath(QStringLiteral("2.jpg")), FolderNavigator::filePair); // odd position
    EXPECT_EQ(pairs.currentIndex(), 0);
    EXPECT_FALSE(pairs.canStep(-1));
    const struct {
        int index;
        const char *left, *right;
    } expected[] = {{2, "3.jpg", "4.jpg"}, {4, "5.jpg", "5.jpg"}}; // the last file is both views
    for (const auto &e : expected) {
        const std::optional<StereoEntry> entry = pairs.step(+1);
        ASSERT_TRUE(entry);
        EXPECT_EQ(pairs.currentIndex(), e.index);
        EXPECT_EQ(QFileInfo(entry->left).fileName(), QLatin1String(e.left));
        EXPECT_EQ(QFileInfo(entry->right).fileName(), QLatin1String(e.right));
    }
    EXPECT_FALSE(pairs.step(+1)); // 6 is past the end
    EXPECT_EQ(pairs.currentIndex(), 4);

    FolderNavigator singles;
    singles.rebuild(dir.filePath(QStringLiteral("5.jpg")), FolderNavigator::singleFile);
    EXPECT_FALSE(singles.step(+1));
    EXPECT_EQ(QFileInfo(singles.step(-1)->left).fileName(), QStringLiteral("4.jpg"));
    EXPECT_TRUE(singles.step(-1)->right.isEmpty());
}

// A BMP opens but is never listed: it stands where it would sort, and stepping goes to its
// neighbours in the folder.
TEST(FolderNavigator, StepsFromAnUnlistedFileToItsNeighbours)
{
    QTemporaryDir dir;
    for (const char *name : {"1.jpg", "2.jpg", "3.jpg", "4.jpg", "5.jpg"})
        touch(dir, name);
    const struct {
        const char *opened;
        FolderNavigator::LoadMode mode;
        int position, direction;
        const char *reached; // null: no step
    } rows[] = {
        {"3a.bmp", FolderNavigator::singleFile, 3, +1, "4.jpg"},
        {"3a.bmp", FolderNavigator::singleFile, 3, -1, "3.jpg"},
        {"3a.bmp", FolderNavigator::filePair, 3, +1, "5.jpg"},
        {"3a.bmp", FolderNavigator::filePair, 3, -1, "3.jpg"},
        {"0.bmp", FolderNavigator::filePair, 0, +1, "1.jpg"},
        {"0.bmp", FolderNavigator::singleFile, 0, -1, nullptr},
        {"9.bmp", FolderNavigator::singleFile, 5, +1, nullptr},
        {"9.bmp", FolderNavigator::singleFile, 5, -1, "5.jpg"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(std::string(row.opened) + (row.direction > 0 ? " next" : " prev"));
        FolderNavigator navigator;
        navigator.rebuild(touch(dir, row.opened), row.mode);
        EXPECT_EQ(navigator.imageList().size(), 5);
        EXPECT_EQ(navigator.currentIndex(), row.position);
        const std::optional<StereoEntry> entry = navigator.step(row.direction);
        EXPECT_EQ(entry.has_value(), row.reached != nullptr);
        if (entry)
            EXPECT_EQ(QFileInfo(entry->left).fileName(), QLatin1String(row.reached));
    }
}

} // namespace
