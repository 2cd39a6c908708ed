// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What ties the projection to a main window: the "Projector Output" panel, starting and
// stopping, and keeping the projected pictures and view in step with the window's.
#pragma once

#include <functional>
#include <optional>

#include <QObject>
#include <QPointer>
#include <QTimer>

#include "projector/projectormanager.h"
#include "projector/projectorselectionpanel.h"

class QWidget;

namespace Vorel {

class ProjectorLink : public QObject {
    Q_OBJECT
public:
    using PictureSource = std::function<std::optional<ProjectedPictures>()>;

    // `pictures` is asked whenever a projection starts or needs fresh pictures;
    // `screens` lists the screens to offer (every platform screen by default).
    ProjectorLink(QWidget *window, PictureSource pictures, ProjectorSelectionPanel::ScreenSource screens = {});

    void showPanel();
    ProjectorSelectionPanel *panel() const { return selectionPanel; }

    void start(const std::vector<ProjectorScreen> &screens, ProjectionMode mode);
    // Stops the projection and refreshes the panel's buttons when it is open.
    void stop();
    // The window shows something else: the projection follows once the changes settle, so a
    // slider being dragged does not render the full-size pair for every step.
    void picturesChanged();
    void viewChanged(double z, double u, double v);

    // Shows a message; replaceable so tests can read alerts.
    std::function<void(const QString &)> alert;

    ProjectorManager manager;

private:
    void refreshPictures();

    QWidget *owner;
    PictureSource pictureSource;
    ProjectorSelectionPanel::ScreenSource screenSource;
    QPointer<ProjectorSelectionPanel> selectionPanel;
    QTimer refreshTimer;
};

} // namespace Vorel
