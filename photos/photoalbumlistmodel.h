// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The picker's album list: each album with its title, picture count and cover thumbnail.
#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QImage>

#include "photos/photoasset.h"

namespace Vorel
{

class PhotoAlbumListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    enum Role { idRole = Qt::UserRole };

    using QAbstractListModel::QAbstractListModel;

    void setAlbums(const QList<PhotoAlbum> &albums);
    // Shows `image` as the cover of every album whose cover is `path`.
    void setCover(const QString &path, const QImage &image);
    const QList<PhotoAlbum> &albums() const { return list; }
    // The cover pictures that have no thumbnail yet.
    QStringList missingCovers() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    // Display: the title and the count on a second line; decoration: the cover.
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QList<PhotoAlbum> list;
    QHash<QString, QImage> covers; // cover path -> thumbnail
};

} // namespace Vorel
