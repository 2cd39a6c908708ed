// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "projector/projectormanager.h"

#include <QWidget>

namespace Vorel {

ProjectorManager::~ProjectorManager() { stop(); }

void ProjectorManager::start(const std::vector<ProjectorScreen> &screens, ProjectionMode mode,
                             const ProjectedPictures &pictures)
{
    stop();
    using Content = ProjectorWindowController::Content;
    for (size_t i = 0; i < screens.size(); ++i) {
        Content content = Content::both;
        if (mode == ProjectionMode::splitLR)
            content = i % 2 == 0 ? Content::left : Content::right; // first, third, ... show the left picture
        else if (mode == ProjectionMode::single)
            content = Content::single;
        projectorWindows.push_back(std::make_unique<ProjectorWindowController>(screens[i], content));
        projectorWindows.back()->setImages(pictures);
    }
    currentMode = mode;
    currentScreens = screens;
    isProjecting = true;
    following = false;
}

void ProjectorManager::stop()
{
    projectorWindows.clear();
    currentScreens.clear();
    isProjecting = false;
}

void ProjectorManager::updateImages(const ProjectedPictures &pictures)
{
    for (auto &window : projectorWindows) {
        window->setImages(pictures);
        if (following)
            window->followView(zoom, centreU, centreV);
    }
}

void ProjectorManager::syncTransform(double z, double u, double v)
{
    if (!isProjecting)
        return;
    zoom = z, centreU = u, centreV = v, following = true;
    for (auto &window : projectorWindows)
        window->followView(z, u, v);
}

void ProjectorManager::screenRemoved(QScreen *screen)
{
    for (size_t i = projectorWindows.size(); i-- > 0;)
        if (currentScreens[i].screen == screen) {
            projectorWindows.erase(projectorWindows.begin() + static_cast<std::ptrdiff_t>(i));
            currentScreens.erase(currentScreens.begin() + static_cast<std::ptrdiff_t>(i));
        }
    if (projectorWindows.empty())
        stop();
}

} // namespace Vorel
