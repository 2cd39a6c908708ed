// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Draws one tile of the picker's grid: the thumbnail fitted into a square, the stereo badge in
// its corner, the file name under it; a picture that cannot be decoded gets a "broken" tile.
#pragma once

#include <QStyledItemDelegate>

namespace Vorel
{

class PhotoTileDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // The side of the square the thumbnail fits in, in pixels.
    void setThumbnailSide(int side) { thumbnailSide = side; }
    int side() const { return thumbnailSide; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    int thumbnailSide = 128;
};

} // namespace Vorel
