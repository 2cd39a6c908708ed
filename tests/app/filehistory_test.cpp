// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The recent-files list: ordering, limit, titles and what survives a restart.
#include <QDir>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

#include "app/filehistory.h"
#include "core/preferences.h"

using namespace Vorel;

namespace {

HistoryEntry files(const QStringList &names)
{
    QStringList paths;
    for (const QString &name : names)
        paths << QStringLiteral("/photos/") + name;
    return FileHistory::forFiles(paths);
}

} // namespace

TEST(FileHistory, NewestFirstWithoutDuplicatesAndAtMostTen)
{
    QTemporaryDir dir;
    Preferences store(dir.filePath(QStringLiteral("p.ini")));
    FileHistory history(store);
    const HistoryEntry pair = files({QStringLiteral("a_L.jpg"), QStringLiteral("a_R.jpg")});
    const HistoryEntry reversed = files({QStringLiteral("a_R.jpg"), QStringLiteral("a_L.jpg")});
    history.add(pair);
    history.add(files({QStringLiteral("b.mpo")}));
    history.add(pair); // moves to the top
    history.add(reversed); // the order of the files makes another entry
    ASSERT_EQ(history.entries().size(), 3u);
    EXPECT_EQ(history.entries()[0], reversed);
    EXPECT_EQ(history.entries()[1], pair);
    for (int i = 0; i < 8; ++i) // eleven distinct openings in all
        history.add(files({QStringLiteral("%1.jpg").arg(i)}));
    EXPECT_EQ(history.entries().size(), 10u);
    EXPECT_EQ(history.entries().back(), pair); // the eleventh distinct opening dropped b.mpo

    FileHistory restarted(store);
    EXPECT_EQ(restarted.entries(), history.entries());
}

TEST(FileHistory, Titles)
{
    HistoryEntry two = files({QStringLiteral("a_L.jpg"), QStringLiteral("a_R.jpg")});
    EXPECT_EQ(FileHistory::title(two), QStringLiteral("a_L.jpg  /  a_R.jpg"));
    EXPECT_EQ(FileHistory::title(files({QStringLiteral("x y.mpo")})), QStringLiteral("x y.mpo"));
    EXPECT_EQ(FileHistory::title(HistoryEntry{}), QString());
    HistoryEntry photos{{}, QStringList{QStringLiteral("0123456789AB"), QStringLiteral("ABCDEFGHIJ")}, {}, {}};
    EXPECT_EQ(FileHistory::title(photos), QStringLiteral("📷 01234567… / ABCDEFGH…"));
    photos.photoLocalIDs->append(QStringLiteral("third"));
    EXPECT_EQ(FileHistory::title(photos), QStringLiteral("📷 01234567…"));
}

// Relative paths from the command line are stored absolute; spaces and accents encoded.
TEST(FileHistory, StoresAbsoluteEncodedUrls)
{
    const HistoryEntry entry = FileHistory::forFiles({QStringLiteral("shots/été 1.jpg")});
    const QString absolute = QDir::current().absoluteFilePath(QStringLiteral("shots/été 1.jpg"));
    ASSERT_EQ(entry.urls.size(), 1);
    EXPECT_TRUE(entry.urls[0].endsWith(QStringLiteral("/shots/%C3%A9t%C3%A9%201.jpg"))) << entry.urls[0].toStdString();
    EXPECT_EQ(QUrl(entry.urls[0]).toLocalFile(), absolute);
}

TEST(FileHistory, BadStoredDataGivesAnEmptyHistory)
{
    QTemporaryDir dir;
    for (const char *stored : {"not json", "{\"urls\": []}", "[{\"urls\": 5}]", "[{\"urls\": [], \"photoIndexInAlbum\": \"x\"}]"}) {
        Preferences store(dir.filePath(QStringLiteral("p.ini")));
        store.setData(QStringLiteral("fileOpenHistory"), QByteArray(stored));
        EXPECT_TRUE(FileHistory(store).entries().empty()) << stored;
    }
    Preferences store(dir.filePath(QStringLiteral("q.ini")));
    store.setData(QStringLiteral("fileOpenHistory"),
                  QByteArray(R"([{"urls": [], "photoLocalIDs": ["id1"], "photoAlbumID": "al", "photoIndexInAlbum": 4}])"));
    const HistoryEntry expected{{}, QStringList{QStringLiteral("id1")}, QStringLiteral("al"), 4};
    EXPECT_EQ(FileHistory(store).entries(), std::vector<HistoryEntry>{expected});
}
