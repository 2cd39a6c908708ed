// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stereofilelist.h"

#include <algorithm>

#include <QDir>
#include <QFileInfo>

namespace Vorel {

namespace {

// The system collator ignores numeric mode in the C locale, so the comparison is our own.
int naturalCompare(const QString &a, const QString &b)
{
    qsizetype i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        if (a[i].isDigit() && b[j].isDigit()) {
            const qsizetype si = i, sj = j;
            while (i < a.size() && a[i].isDigit())
                ++i;
            while (j < b.size() && b[j].isDigit())
                ++j;
            QStringView x = QStringView(a).mid(si, i - si), y = QStringView(b).mid(sj, j - sj);
            while (x.size() > 1 && x.front() == u'0')
                x = x.mid(1);
            while (y.size() > 1 && y.front() == u'0')
                y = y.mid(1);
            if (x.size() != y.size())
                return x.size() < y.size() ? -1 : 1;
            if (const int c = x.compare(y); c != 0)
                return c;
            continue;
        }
        const QChar p = a[i].toCaseFolded(), q = b[j].toCaseFolded();
        if (p != q)
            return p < q ? -1 : 1;
        ++i, ++j;
    }
    if (a.size() - i != b.size() - j)
        return (a.size() - i) < (b.size() - j) ? -1 : 1;
    return a.compare(b);
}

bool hasStereoExtension(const QFileInfo &info)
{
    const QString suffix = info.suffix().toLower();
    return std::any_of(std::begin(stereoFileExtensions), std::end(stereoFileExtensions),
                       [&](const char *accepted) { return suffix == QLatin1String(accepted); });
}

bool fileNameLess(const QString &a, const QString &b)
{
    return naturalCompare(QFileInfo(a).fileName(), QFileInfo(b).fileName()) < 0;
}

} // namespace

void sortNaturally(QStringList &paths) { std::stable_sort(paths.begin(), paths.end(), fileNameLess); }

qsizetype naturalSortPosition(const QStringList &sortedPaths, const QString &path)
{
    return std::upper_bound(sortedPaths.begin(), sortedPaths.end(), path, fileNameLess) - sortedPaths.begin();
}

QStringList listStereoFiles(const QString &folder)
{
    QStringList files;
    // Without QDir::Hidden the listing leaves hidden entries out.
    for (const QFileInfo &info : QDir(folder).entryInfoList(QDir::Files | QDir::NoDotAndDotDot))
        if (hasStereoExtension(info))
            files << info.absoluteFilePath();
    sortNaturally(files);
    return files;
}

} // namespace Vorel
