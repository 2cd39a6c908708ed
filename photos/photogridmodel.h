// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of one album for the picker's grid: they stream in as the scan finds them, and
// each gets its thumbnail, or the "broken" mark, when the loader has made it.
#pragma once

#include <vector>

#include <QAbstractListModel>
#include <QHash>
#include <QImage>

#include "photos/photoasset.h"

namespace Vorel
{

class PhotoGridModel : public QAbstractListModel
{
    Q_OBJECT
public:
    enum Role { badgeRole = Qt::UserRole, brokenRole, pathRole };

    using QAbstractListModel::QAbstractListModel;

    void clear();
    void append(const QList<PhotoAsset> &batch);
    void setThumbnail(const QString &path, const QImage &image);
    void setBroken(const QString &path);
    // Whether the loader still has to be asked for the picture's thumbnail to fill a square of
    // `side` pixels.
    bool needsThumbnail(int row, int side) const;

    const std::vector<PhotoAsset> &assets() const { return photos; }

    int rowCount(const QModelIndex &parent = {}) const override;
    // Display: the file name; decoration: the thumbnail; badgeRole: the stereo badge ("MPO", "L").
    QVariant data(const QModelIndex &index, int role) const override;

private:
    void changed(const QString &path);

    std::vector<PhotoAsset> photos;
    QHash<QString, int> rows; // path -> row
    QHash<QString, QImage> thumbnails;
    QSet<QString> broken;
};

} // namespace Vorel
