// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Left and right files found by their names rather than their order: "<name>_L" with
// "<name>_R", "<name>-left" with "<name>-right" (any case), and a file of an l/ sub-folder
// with the same-named file of the r/ sub-folder.
#pragma once

#include <vector>

#include <QString>
#include <QStringList>

namespace Vorel {

struct NamePairing {
    QString left, right; // both set for a pair
    QString name;        // and what both names share, which the outputs take ("a" of "a_L.jpg")
    QString unpaired;    // else the file that found no partner
    QString reason;      // and why
};

// Pairs `files` (absolute paths, in natural order) by their names; `leftFolderFiles` and
// `rightFolderFiles` are the contents of the l/ and r/ sub-folders, paired by equal file
// names. Pairs come in the order of their left file, the l/ r/ pairs after the others, and
// each unpaired file where it stands.
std::vector<NamePairing> pairByName(const QStringList &files, const QStringList &leftFolderFiles,
                                    const QStringList &rightFolderFiles);

} // namespace Vorel
