// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The photo library's values: albums (folders) and the pictures in them, each with the kind
// of stereo source it is, as the picker shows them and `vorel-cli library` prints them.
#pragma once

#include <optional>

#include <QList>
#include <QMetaType>
#include <QSize>
#include <QString>

namespace Vorel {

enum class PhotoKind {
    single,     // a plain picture
    mpo,        // a multi-picture JPEG with two or more pictures
    spatial,    // a HEIF file with a stereo pair group
    sideBySide, // probably both eyes side by side: at least twice as wide as high
    left,       // the left file of a name pair (a_L.jpg, a-left.jpg)
    right,      // the right file of a name pair
};

// One table for the kind's machine name (JSON, CLI) and its short badge on a thumbnail.
struct PhotoKindText {
    PhotoKind kind;
    const char *name;
    const char *badge; // empty: no badge
};
inline constexpr PhotoKindText photoKindTexts[] = {
    {PhotoKind::single, "single", ""},    {PhotoKind::mpo, "mpo", "MPO"}, {PhotoKind::spatial, "spatial", "3D"},
    {PhotoKind::sideBySide, "sbs", "SBS"}, {PhotoKind::left, "left", "L"}, {PhotoKind::right, "right", "R"},
};

QString photoKindName(PhotoKind kind);
QString photoKindBadge(PhotoKind kind);
std::optional<PhotoKind> photoKindFromName(const QString &name);

struct PhotoAsset {
    QString path;    // absolute file path; also the asset's local identifier
    QString album;   // the id of the album it was listed in
    PhotoKind kind = PhotoKind::single;
    QSize size;      // upright pixel size from the header; invalid when the header is unreadable
    QString partner; // for left and right: the path of the other file of the pair
};

struct PhotoAlbum {
    QString id;    // absolute folder path; also the album's identifier
    QString title; // "All Photos" for the Pictures folder itself, else the folder name
    int count = 0; // pictures in the folder and all its sub-folders
    QString cover; // the first of them in natural order; empty for an empty album
};

} // namespace Vorel

Q_DECLARE_METATYPE(Vorel::PhotoAsset)
Q_DECLARE_METATYPE(Vorel::PhotoAlbum)
