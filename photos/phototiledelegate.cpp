// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "photos/phototiledelegate.h"

#include <QApplication>
#include <QPainter>

#include "photos/photogridmodel.h"

namespace Vorel
{

namespace
{

constexpr int margin = 4;

void drawBadge(QPainter *painter, const QRect &picture, const QString &badge, const QFont &font)
{
    QFont bold = font;
    bold.setBold(true);
    painter->setFont(bold);
    const QRect text = painter->fontMetrics().boundingRect(badge).adjusted(-4, -1, 4, 1);
    const QRect box(picture.right() - text.width() - margin, picture.top() + margin, text.width(), text.height());
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(0, 90, 200, 220));
    painter->drawRoundedRect(box, 4, 4);
    painter->setPen(Qt::white);
    painter->drawText(box, Qt::AlignCenter, badge);
    painter->setFont(font);
}

void drawBrokenTile(QPainter *painter, const QRect &picture, const QPalette &palette)
{
    painter->setPen(QPen(palette.color(QPalette::Mid), 1, Qt::DashLine));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(picture.adjusted(0, 0, -1, -1));
    painter->drawLine(picture.topLeft(), picture.bottomRight());
    painter->drawLine(picture.topRight(), picture.bottomLeft());
    painter->setPen(palette.color(QPalette::Text));
    painter->drawText(picture, Qt::AlignCenter, QCoreApplication::translate("PhotoTileDelegate", "Cannot be read"));
}

} // namespace

QSize PhotoTileDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return { thumbnailSide + 2 * margin, thumbnailSide + 3 * margin + option.fontMetrics.height() };
}

void PhotoTileDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    painter->save();
    if (option.state & QStyle::State_Selected)
        painter->fillRect(option.rect, option.palette.highlight());
    const QRect picture(option.rect.left() + (option.rect.width() - thumbnailSide) / 2, option.rect.top() + margin,
        thumbnailSide, thumbnailSide);
    const QImage thumbnail = index.data(Qt::DecorationRole).value<QImage>();
    if (index.data(PhotoGridModel::brokenRole).toBool()) {
        drawBrokenTile(painter, picture, option.palette);
    } else if (!thumbnail.isNull()) {
        const QSize fitted = thumbnail.size().scaled(picture.size(), Qt::KeepAspectRatio);
        QRect target(QPoint(), fitted);
        target.moveCenter(picture.center());
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawImage(target, thumbnail);
    } else {
        painter->fillRect(picture, option.palette.alternateBase());
    }
    if (const QString badge = index.data(PhotoGridModel::badgeRole).toString(); !badge.isEmpty())
        drawBadge(painter, picture, badge, option.font);
    const QRect caption(option.rect.left() + margin, picture.bottom() + margin, option.rect.width() - 2 * margin,
        option.fontMetrics.height());
    painter->setPen(
        option.palette.color(option.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(caption, Qt::AlignHCenter | Qt::AlignVCenter,
        option.fontMetrics.elidedText(index.data().toString(), Qt::ElideMiddle, caption.width()));
    painter->restore();
}

} // namespace Vorel
