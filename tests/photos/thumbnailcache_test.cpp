// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The shared thumbnail cache by the rules other desktop programs read it with: names, keys,
// sizes, permissions, stale and corrupt entries, fail entries, a read-only cache.
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <utime.h>

#include "photos/thumbnailcache.h"
#include "tests/testsupport.h"

namespace Vorel {
namespace {

using TestSupport::readAll;
using TestSupport::testData;
using TestSupport::writeAll;

int modeOf(const QString &path)
{
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? int(status.st_mode & 0777) : -1;
}

void setMtime(const QString &path, time_t mtime)
{
    const utimbuf times{mtime, mtime};
    ::utime(QFile::encodeName(path).constData(), &times);
}

// A temporary cache and a picture folder holding copies of test files.
struct Fixture {
    QTemporaryDir root;
    ThumbnailCache cache{root.path() + QStringLiteral("/cache/thumbnails")};
    QString copy(const char *source, const QString &name)
    {
        const QString path = root.path() + QStringLiteral("/photos/") + name;
        QDir().mkpath(QFileInfo(path).path());
        QFile::copy(testData(QLatin1String(source)), path);
        return path;
    }
};

TEST(ThumbnailCache, NamesFollowTheStandardsWorkedExample)
{
    EXPECT_EQ(thumbnailFileName("file:///home/jens/photos/me.png"), QStringLiteral("c6ee772d9e49320e97ec29a7eb5b1697.png"));
    const struct {
        const char *path, *uri;
    } rows[] = {{"/no/such dir/a b.jpg", "file:///no/such%20dir/a%20b.jpg"},
                {"/no/x/../y/#1;[2]&(3)~.jpg", "file:///no/y/%231%3B%5B2%5D&(3)~.jpg"},
                {"/no/été.jpg", "file:///no/%C3%A9t%C3%A9.jpg"}};
    for (const auto &row : rows)
        EXPECT_EQ(thumbnailUri(QString::fromUtf8(row.path)), QByteArray(row.uri));
}

TEST(ThumbnailCache, WritesEntriesOtherProgramsAccept)
{
    Fixture f;
    const QString photo = f.copy("stereo/stereograph.left-right.jpg", QStringLiteral("sbs.jpg"));
    ASSERT_TRUE(f.cache.fill(photo, {ThumbnailSize::normal, ThumbnailSize::large}));
    for (const auto &[size, box] : {std::pair{ThumbnailSize::normal, QSize(128, 55)}, {ThumbnailSize::large, QSize(256, 110)}}) {
        const QString entry = f.cache.thumbnailPath(photo, size);
        QImageReader reader(entry);
        const QImage image = reader.read();
        EXPECT_EQ(image.size(), box);
        EXPECT_EQ(image.text(QStringLiteral("Thumb::URI")), QString::fromLatin1(thumbnailUri(photo)));
        EXPECT_EQ(image.text(QStringLiteral("Thumb::MTime")), QString::number(QFileInfo(photo).lastModified().toSecsSinceEpoch()));
        EXPECT_EQ(image.text(QStringLiteral("Thumb::Size")), QString::number(QFileInfo(photo).size()));
        EXPECT_EQ(modeOf(entry), 0600);
        EXPECT_EQ(modeOf(QFileInfo(entry).path()), 0700);
    }
    EXPECT_EQ(modeOf(f.cache.folder()), 0700);
    EXPECT_EQ(QDir(f.cache.folder() + QStringLiteral("/normal")).entryList(QDir::Files | QDir::Hidden).size(), 1);
    // The large entry serves a normal request too.
    QFile::remove(f.cache.thumbnailPath(photo, ThumbnailSize::normal));
    EXPECT_EQ(f.cache.find(photo, ThumbnailSize::normal)->size(), QSize(128, 55));
}

TEST(ThumbnailCache, StaleAndCorruptEntriesAreReplaced)
{
    Fixture f;
    const QString photo = f.copy("mpo/sugarshack.mpo", QStringLiteral("a.mpo"));
    const QString entry = f.cache.thumbnailPath(photo, ThumbnailSize::normal);
    ASSERT_TRUE(f.cache.thumbnail(photo, ThumbnailSize::normal));
    setMtime(photo, 1000000000); // the entry's Thumb::MTime is now wrong
    EXPECT_FALSE(f.cache.find(photo, ThumbnailSize::normal));
    ASSERT_TRUE(f.cache.thumbnail(photo, ThumbnailSize::normal));
    EXPECT_EQ(QImageReader(entry).read().text(QStringLiteral("Thumb::MTime")), QStringLiteral("1000000000"));

    const QByteArray whole = readAll(entry);
    ASSERT_TRUE(writeAll(entry, whole.left(whole.size() / 2)));
    EXPECT_FALSE(f.cache.find(photo, ThumbnailSize::normal));
    EXPECT_EQ(f.cache.thumbnail(photo, ThumbnailSize::normal)->size(), QSize(128, 96));
    EXPECT_FALSE(QImageReader(entry).read().isNull());
}

TEST(ThumbnailCache, BrokenFilesAreNotRetriedUntilTheyChange)
{
    Fixture f;
    const QString photo = f.copy("mpo/sugarshack.mpo", QStringLiteral("broken.jpg"));
    ASSERT_TRUE(writeAll(photo, "not a picture"));
    setMtime(photo, 1000000000);
    EXPECT_FALSE(f.cache.thumbnail(photo, ThumbnailSize::normal));
    EXPECT_TRUE(f.cache.hasFailed(photo));
    EXPECT_TRUE(f.cache.failPath(photo).contains(QStringLiteral("/fail/vorel-")));
    EXPECT_EQ(QImageReader(f.cache.failPath(photo)).read().text(QStringLiteral("Thumb::MTime")), QStringLiteral("1000000000"));

    QFile::remove(photo);
    QFile::copy(testData(QStringLiteral("mpo/sugarshack.mpo")), photo);
    EXPECT_FALSE(f.cache.hasFailed(photo));
    EXPECT_TRUE(f.cache.thumbnail(photo, ThumbnailSize::normal));
}

TEST(ThumbnailCache, AReadOnlyCacheStillGivesThumbnails)
{
    Fixture f;
    const QString photo = f.copy("heic/vision-pro.HEIC", QStringLiteral("v.heic"));
    QDir().mkpath(f.cache.folder());
    QFile::setPermissions(f.cache.folder(), QFile::ReadOwner | QFile::ExeOwner);
    const std::optional<QImage> thumbnail = f.cache.thumbnail(photo, ThumbnailSize::large);
    QFile::setPermissions(f.cache.folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_TRUE(thumbnail);
    EXPECT_EQ(thumbnail->size(), QSize(256, 256));
    EXPECT_TRUE(QDir(f.cache.folder()).isEmpty());
}

TEST(ThumbnailCache, FilesInsideTheCacheAreNotStored)
{
    Fixture f;
    const QString inside = f.cache.folder() + QStringLiteral("/normal/x.png");
    QDir().mkpath(QFileInfo(inside).path());
    QFile::copy(testData(QStringLiteral("stereo/motorcycle_left.png")), inside);
    EXPECT_TRUE(f.cache.thumbnail(inside, ThumbnailSize::normal));
    EXPECT_EQ(QDir(QFileInfo(inside).path()).entryList(QDir::Files), QStringList{QStringLiteral("x.png")});
}

} // namespace
} // namespace Vorel
