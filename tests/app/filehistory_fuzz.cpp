// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: the recent-files list stored as any bytes loads (empty when undecodable), gives
// every entry a title, and once an entry is added stores a list that loads back equal.
#include "app/filehistory.h"
#include "core/preferences.h"
#include "fuzz/fuzzinput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace Vorel;
    // The store caches files by name for the whole process: every run takes a new name.
    static int run = 0;
    const QString path = Fuzz::folder() + QStringLiteral("/history-%1.ini").arg(++run);
    {
        Preferences preferences(path);
        preferences.setData(QStringLiteral("fileOpenHistory"), Fuzz::bytes(data, size));
        FileHistory history(preferences);
        for (const HistoryEntry &entry : history.entries())
            FileHistory::title(entry);
        history.add(FileHistory::forFiles({QStringLiteral("/photos/left.jpg"), QStringLiteral("/photos/right.jpg")}));
        preferences.sync();
        Preferences reread(path);
        Fuzz::check(FileHistory(reread).entries() == history.entries());
    }
    QFile::remove(path);
    return 0;
}
