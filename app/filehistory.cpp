// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/filehistory.h"

#include <algorithm>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QFileInfo>
#include <QUrl>

#include "core/preferences.h"

namespace Vorel {

namespace {

const QString key = QStringLiteral("fileOpenHistory");

QStringList strings(const QJsonValue &value)
{
    QStringList list;
    for (const QJsonValue &item : value.toArray())
        list << item.toString();
    return list;
}

QJsonObject toJson(const HistoryEntry &entry)
{
    QJsonObject object{{QStringLiteral("urls"), QJsonArray::fromStringList(entry.urls)}};
    if (entry.photoLocalIDs)
        object.insert(QStringLiteral("photoLocalIDs"), QJsonArray::fromStringList(*entry.photoLocalIDs));
    if (entry.photoAlbumID)
        object.insert(QStringLiteral("photoAlbumID"), *entry.photoAlbumID);
    if (entry.photoIndexInAlbum)
        object.insert(QStringLiteral("photoIndexInAlbum"), *entry.photoIndexInAlbum);
    return object;
}

// None when the object is not an entry (a member of the wrong type).
std::optional<HistoryEntry> fromJson(const QJsonValue &value)
{
    const QJsonObject object = value.toObject();
    const QJsonValue urls = object.value(QStringLiteral("urls")), ids = object.value(QStringLiteral("photoLocalIDs")),
                     album = object.value(QStringLiteral("photoAlbumID")),
                     index = object.value(QStringLiteral("photoIndexInAlbum"));
    if (!value.isObject() || !urls.isArray() || !(ids.isUndefined() || ids.isArray()) ||
        !(album.isUndefined() || album.isString()) || !(index.isUndefined() || index.isDouble()))
        return std::nullopt;
    HistoryEntry entry{strings(urls), {}, {}, {}};
    if (ids.isArray())
        entry.photoLocalIDs = strings(ids);
    if (album.isString())
        entry.photoAlbumID = album.toString();
    if (index.isDouble())
        entry.photoIndexInAlbum = index.toInt();
    return entry;
}

QString lastComponent(const QString &url) { return QUrl(url).fileName(); }

} // namespace

FileHistory::FileHistory(Preferences &store) : preferences(store)
{
    const QJsonDocument document = QJsonDocument::fromJson(preferences.data(key));
    std::vector<HistoryEntry> loaded;
    for (const QJsonValue &value : document.array()) {
        const std::optional<HistoryEntry> entry = fromJson(value);
        if (!entry)
            return; // undecodable: the history starts empty
        loaded.push_back(*entry);
    }
    list = std::move(loaded);
}

void FileHistory::add(const HistoryEntry &entry)
{
    list.erase(std::remove(list.begin(), list.end(), entry), list.end());
    list.insert(list.begin(), entry);
    if (list.size() > maxCount)
        list.resize(maxCount);
    QJsonArray array;
    for (const HistoryEntry &e : list)
        array.append(toJson(e));
    preferences.setData(key, QJsonDocument(array).toJson(QJsonDocument::Compact));
}

QString FileHistory::title(const HistoryEntry &entry)
{
    if (entry.photoLocalIDs && !entry.photoLocalIDs->isEmpty()) {
        const QStringList &ids = *entry.photoLocalIDs;
        QString text = QStringLiteral("📷 ") + ids[0].left(8);
        if (ids.size() == 2)
            text += QStringLiteral("… / ") + ids[1].left(8);
        return text + QStringLiteral("…");
    }
    if (entry.urls.isEmpty())
        return {};
    if (entry.urls.size() == 2)
        return lastComponent(entry.urls[0]) + QStringLiteral("  /  ") + lastComponent(entry.urls[1]);
    return lastComponent(entry.urls[0]);
}

HistoryEntry FileHistory::forFiles(const QStringList &paths)
{
    HistoryEntry entry;
    // Absolute and percent-encoded, so an entry reopens from any working directory and
    // spaces or accents survive the round trip through the stored JSON.
    for (const QString &path : paths)
        entry.urls << QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()).toString(QUrl::FullyEncoded);
    return entry;
}

} // namespace Vorel
