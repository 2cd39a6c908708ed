// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// A folder label that is also the drop area for its folder: dropping one local folder on it
// shows that folder's path. Other drops are refused.
#pragma once

#include <QLabel>

namespace Vorel {

class FolderDropWidget : public QLabel {
    Q_OBJECT
public:
    explicit FolderDropWidget(QWidget *parent = nullptr);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
};

} // namespace Vorel
