// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "projector/projectorlink.h"

#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QWidget>

namespace Vorel {

namespace {
constexpr int settleMilliseconds = 150;
}

ProjectorLink::ProjectorLink(QWidget *window, PictureSource pictures, ProjectorSelectionPanel::ScreenSource screens)
    : QObject(window), owner(window), pictureSource(std::move(pictures)), screenSource(std::move(screens))
{
    alert = [this](const QString &text) { QMessageBox::warning(owner, tr("Projector Output"), text); };
    refreshTimer.setSingleShot(true);
    refreshTimer.setInterval(settleMilliseconds);
    connect(&refreshTimer, &QTimer::timeout, this, &ProjectorLink::refreshPictures);
    // Directly, while the screen still exists: a window left on it would be moved onto another.
    connect(qApp, &QGuiApplication::screenRemoved, this, [this](QScreen *screen) {
        manager.screenRemoved(screen);
        if (!manager.isProjecting)
            stop(); // the last projected screen is gone: the panel shows the stopped state
    });
}

void ProjectorLink::showPanel()
{
    if (!selectionPanel) {
        selectionPanel = new ProjectorSelectionPanel(screenSource, owner);
        selectionPanel->setAttribute(Qt::WA_DeleteOnClose);
        selectionPanel->alert = alert;
        connect(selectionPanel, &ProjectorSelectionPanel::startRequested, this, &ProjectorLink::start);
        connect(selectionPanel, &ProjectorSelectionPanel::stopRequested, this, &ProjectorLink::stop);
    }
    selectionPanel->setProjecting(manager.isProjecting);
    selectionPanel->show();
    selectionPanel->raise();
}

void ProjectorLink::start(const std::vector<ProjectorScreen> &screens, ProjectionMode mode)
{
    const std::optional<ProjectedPictures> pictures = pictureSource();
    if (!pictures) {
        alert(tr("Image not loaded"));
        return;
    }
    manager.start(screens, mode, *pictures);
    if (selectionPanel)
        selectionPanel->setProjecting(true);
}

void ProjectorLink::stop()
{
    refreshTimer.stop();
    manager.stop();
    if (selectionPanel)
        selectionPanel->setProjecting(false);
}

void ProjectorLink::picturesChanged()
{
    if (manager.isProjecting)
        refreshTimer.start();
}

void ProjectorLink::refreshPictures()
{
    if (!manager.isProjecting)
        return;
    if (const std::optional<ProjectedPictures> pictures = pictureSource())
        manager.updateImages(*pictures);
}

void ProjectorLink::viewChanged(double z, double u, double v) { manager.syncTransform(z, u, v); }

} // namespace Vorel
