// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The recently opened stereo sources, newest first, kept across runs in the preferences.
#pragma once

#include <optional>
#include <vector>

#include <QString>
#include <QStringList>

namespace Vorel {

class Preferences;

// Files opened together, or photo library items; equal when every field is.
struct HistoryEntry {
    QStringList urls; // absolute file URLs, in the order opened
    std::optional<QStringList> photoLocalIDs;
    std::optional<QString> photoAlbumID;
    std::optional<int> photoIndexInAlbum;

    bool operator==(const HistoryEntry &) const = default;
};

class FileHistory {
public:
    static constexpr int maxCount = 10;

    // Loads the stored list; unreadable data gives an empty one, silently.
    explicit FileHistory(Preferences &preferences);

    // Moves an equal entry to the top, or adds the new one there; keeps the newest ten and
    // stores the list at once.
    void add(const HistoryEntry &entry);
    const std::vector<HistoryEntry> &entries() const { return list; }

    static QString title(const HistoryEntry &entry);
    // An entry for files opened from the file system.
    static HistoryEntry forFiles(const QStringList &paths);

private:
    Preferences &preferences;
    std::vector<HistoryEntry> list;
};

} // namespace Vorel
