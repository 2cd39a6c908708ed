// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/foldernavigator.h"

#include <algorithm>

#include <QDir>
#include <QFileInfo>

namespace Vorel {

namespace {

const QStringList listedSuffixes{QStringLiteral("jpg"), QStringLiteral("jpeg"), QStringLiteral("png"),
                                 QStringLiteral("tiff"), QStringLiteral("tif"),  QStringLiteral("heic"),
                                 QStringLiteral("mpo")};

// Digit runs compare by value ("a2" < "a10"), everything else case-insensitively; the same
// in every locale (the system collator ignores numeric mode in the C locale).
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

} // namespace

void sortNaturally(QStringList &paths)
{
    std::stable_sort(paths.begin(), paths.end(), [](const QString &a, const QString &b) {
        return naturalCompare(QFileInfo(a).fileName(), QFileInfo(b).fileName()) < 0;
    });
}

QStringList navigableFiles(const QString &folder)
{
    const QDir dir(folder);
    QStringList files;
    for (const QFileInfo &info : dir.entryInfoList(QDir::Files | QDir::NoDotAndDotDot))
        if (listedSuffixes.contains(info.suffix().toLower()))
            files << info.absoluteFilePath();
    sortNaturally(files);
    return files;
}

void FolderNavigator::rebuild(const QString &openedFile, LoadMode loadMode)
{
    mode = loadMode;
    const QFileInfo opened(openedFile);
    files = opened.dir().exists() ? navigableFiles(opened.absolutePath()) : QStringList();
    index = static_cast<int>(files.indexOf(opened.absoluteFilePath()));
    if (index < 0) {
        // Not listable, or a file that is never listed (BMP): the opened file alone.
        files = QStringList{opened.absoluteFilePath()};
        index = 0;
    } else if (mode == filePair && index % 2 == 1) {
        --index; // an entry always starts on a left file
    }
}

bool FolderNavigator::canStep(int direction) const
{
    const int next = index + direction * stepSize();
    return !files.isEmpty() && next >= 0 && next < files.size();
}

std::optional<StereoEntry> FolderNavigator::step(int direction)
{
    if (!canStep(direction))
        return std::nullopt;
    index += direction * stepSize();
    if (mode == singleFile)
        return StereoEntry{files[index], {}};
    // On the last position the same file is both views, deliberately.
    const int right = index + 1 < files.size() ? index + 1 : index;
    return StereoEntry{files[index], files[right]};
}

} // namespace Vorel
