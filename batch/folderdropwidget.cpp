// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/folderdropwidget.h"

#include <optional>

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace Vorel {

namespace {

// The folder a drag carries: exactly one local directory.
std::optional<QString> droppedFolder(const QMimeData *mime)
{
    const QList<QUrl> urls = mime->urls();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return std::nullopt;
    const QFileInfo folder(urls.first().toLocalFile());
    if (!folder.isDir())
        return std::nullopt;
    return QDir::cleanPath(folder.absoluteFilePath());
}

} // namespace

FolderDropWidget::FolderDropWidget(QWidget *parent) : QLabel(parent)
{
    setAcceptDrops(true);
    setFrameShape(QFrame::StyledPanel);
    setMinimumWidth(360);
    setMinimumHeight(28);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // a long path must not widen the dialog
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setToolTip(tr("Drop a folder here"));
}

void FolderDropWidget::dragEnterEvent(QDragEnterEvent *event)
{
    if (droppedFolder(event->mimeData()))
        event->acceptProposedAction();
}

void FolderDropWidget::dropEvent(QDropEvent *event)
{
    if (const std::optional<QString> folder = droppedFolder(event->mimeData())) {
        setText(*folder);
        event->acceptProposedAction();
    }
}

} // namespace Vorel
