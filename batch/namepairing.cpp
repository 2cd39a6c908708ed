// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/namepairing.h"
#include "batch/batchtext.h"

#include <map>
#include <optional>

#include <QCoreApplication>
#include <QFileInfo>

namespace Vorel {

namespace {

// The two name endings of one convention, matched in any case.
struct Marker {
    QLatin1String left, right;
};
constexpr Marker markers[] = {{QLatin1String("_l"), QLatin1String("_r")},
                              {QLatin1String("-left"), QLatin1String("-right")}};

struct MarkedName {
    QString stem; // the name before the marker, in the folder of the file
    size_t marker;
    bool isLeft;
};

std::optional<MarkedName> markedName(const QString &path)
{
    const QFileInfo info(path);
    const QString base = info.completeBaseName();
    for (size_t m = 0; m < std::size(markers); ++m)
        for (const bool isLeft : {true, false}) {
            const QLatin1String ending = isLeft ? markers[m].left : markers[m].right;
            if (base.size() > ending.size() && base.endsWith(ending, Qt::CaseInsensitive))
                return MarkedName{info.path() + QLatin1Char('/') + base.left(base.size() - ending.size()), m, isLeft};
        }
    return std::nullopt;
}

NamePairing pairOf(const QString &left, const QString &right, const QString &name)
{
    return {left, right, name, {}, {}};
}

NamePairing unpairedFile(const QString &path, const QString &reason) { return {{}, {}, {}, path, reason}; }

// "No right image a_R for a_L.jpg": the partner's name in the case of the file's own marker.
QString missingPartner(const MarkedName &name, const QString &path)
{
    const QString base = QFileInfo(path).completeBaseName();
    const Marker &marker = markers[name.marker];
    QString ending = name.isLeft ? QString(marker.right) : QString(marker.left);
    if (base.right(1) == base.right(1).toUpper())
        ending = ending.toUpper();
    const QString partner = QFileInfo(name.stem).fileName() + ending;
    const QString file = QFileInfo(path).fileName();
    return name.isLeft ? BatchText::tr("No right image %1 for %2").arg(partner, file)
                       : BatchText::tr("No left image %1 for %2").arg(partner, file);
}

void pairFolders(const QStringList &leftFiles, const QStringList &rightFiles, std::vector<NamePairing> &out)
{
    std::map<QString, QString> rights;
    for (const QString &path : rightFiles)
        rights.emplace(QFileInfo(path).fileName(), path);
    for (const QString &left : leftFiles) {
        const auto right = rights.find(QFileInfo(left).fileName());
        if (right == rights.end()) {
            out.push_back(unpairedFile(left, BatchText::tr("No file of the same name in the r folder")));
            continue;
        }
        out.push_back(pairOf(left, right->second, QFileInfo(left).completeBaseName()));
        rights.erase(right);
    }
    for (const QString &right : rightFiles)
        if (rights.count(QFileInfo(right).fileName()))
            out.push_back(unpairedFile(right, BatchText::tr("No file of the same name in the l folder")));
}

} // namespace

std::vector<NamePairing> pairByName(const QStringList &files, const QStringList &leftFolderFiles,
                                    const QStringList &rightFolderFiles)
{
    // Each marked name keeps the first left and first right file; the pair takes the place of
    // whichever of the two comes first.
    struct Slot {
        qsizetype left = -1, right = -1;
    };
    std::map<std::pair<QString, size_t>, Slot> partners;
    std::vector<std::optional<MarkedName>> names;
    for (qsizetype i = 0; i < files.size(); ++i) {
        names.push_back(markedName(files[i]));
        if (const std::optional<MarkedName> &name = names.back()) {
            Slot &slot = partners[{name->stem, name->marker}];
            qsizetype &side = name->isLeft ? slot.left : slot.right;
            if (side < 0)
                side = i;
        }
    }
    std::vector<NamePairing> out;
    for (qsizetype i = 0; i < files.size(); ++i) {
        const std::optional<MarkedName> &name = names[size_t(i)];
        if (!name) {
            out.push_back(unpairedFile(files[i],
                                       BatchText::tr("The name of %1 does not end in _L, _R, -left or -right")
                                           .arg(QFileInfo(files[i]).fileName())));
            continue;
        }
        const Slot &slot = partners[{name->stem, name->marker}];
        const qsizetype own = name->isLeft ? slot.left : slot.right;
        const qsizetype partner = name->isLeft ? slot.right : slot.left;
        if (own != i)
            out.push_back(
                unpairedFile(files[i], BatchText::tr("%1 is paired instead").arg(QFileInfo(files[own]).fileName())));
        else if (partner < 0)
            out.push_back(unpairedFile(files[i], missingPartner(*name, files[i])));
        else if (i < partner)
            out.push_back(pairOf(files[slot.left], files[slot.right], QFileInfo(name->stem).fileName()));
    }
    pairFolders(leftFolderFiles, rightFolderFiles, out);
    return out;
}

} // namespace Vorel
