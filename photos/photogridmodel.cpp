// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "photos/photogridmodel.h"

#include <QFileInfo>

namespace Vorel
{

void PhotoGridModel::clear()
{
    beginResetModel();
    photos.clear();
    rows.clear();
    thumbnails.clear();
    broken.clear();
    endResetModel();
}

void PhotoGridModel::append(const QList<PhotoAsset> &batch)
{
    if (batch.isEmpty())
        return;
    const int first = int(photos.size());
    beginInsertRows({}, first, first + int(batch.size()) - 1);
    for (const PhotoAsset &asset : batch) {
        rows.insert(asset.path, int(photos.size()));
        photos.push_back(asset);
    }
    endInsertRows();
}

void PhotoGridModel::setThumbnail(const QString &path, const QImage &image)
{
    thumbnails.insert(path, image);
    changed(path);
}

void PhotoGridModel::setBroken(const QString &path)
{
    broken.insert(path);
    changed(path);
}

void PhotoGridModel::changed(const QString &path)
{
    const auto row = rows.constFind(path);
    if (row != rows.constEnd())
        emit dataChanged(index(*row), index(*row));
}

bool PhotoGridModel::needsThumbnail(int row, int side) const
{
    const QString &path = photos[size_t(row)].path;
    const QSize made = thumbnails.value(path).size();
    return !broken.contains(path) && std::max(made.width(), made.height()) < side;
}

int PhotoGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(photos.size());
}

QVariant PhotoGridModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= int(photos.size()))
        return {};
    const PhotoAsset &asset = photos[size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return QFileInfo(asset.path).fileName();
    case Qt::DecorationRole:
        return thumbnails.value(asset.path);
    case badgeRole:
        return photoKindBadge(asset.kind);
    case brokenRole:
        return broken.contains(asset.path);
    case pathRole:
        return asset.path;
    default:
        return {};
    }
}

} // namespace Vorel
