// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "photos/photoalbumlistmodel.h"

namespace Vorel
{

namespace
{

constexpr int coverSize = 64;

QString pictureCount(int count)
{
    return count == 1 ? PhotoAlbumListModel::tr("1 picture") : PhotoAlbumListModel::tr("%1 pictures").arg(count);
}

} // namespace

void PhotoAlbumListModel::setAlbums(const QList<PhotoAlbum> &albums)
{
    beginResetModel();
    list = albums;
    endResetModel();
}

QStringList PhotoAlbumListModel::missingCovers() const
{
    QStringList missing;
    for (const PhotoAlbum &album : list)
        if (!album.cover.isEmpty() && !covers.contains(album.cover) && !missing.contains(album.cover))
            missing << album.cover;
    return missing;
}

void PhotoAlbumListModel::setCover(const QString &path, const QImage &image)
{
    if (!missingCovers().contains(path))
        return;
    covers.insert(path, image.scaled(coverSize, coverSize, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    for (int row = 0; row < list.size(); ++row)
        if (list[row].cover == path)
            emit dataChanged(index(row), index(row), { Qt::DecorationRole });
}

int PhotoAlbumListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(list.size());
}

QVariant PhotoAlbumListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= list.size())
        return {};
    const PhotoAlbum &album = list[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return album.title + QLatin1Char('\n') + pictureCount(album.count);
    case Qt::DecorationRole:
        return covers.value(album.cover);
    case Qt::ToolTipRole:
    case idRole:
        return album.id;
    default:
        return {};
    }
}

} // namespace Vorel
