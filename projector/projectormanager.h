// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Full-screen output of the current pair on chosen screens: both pictures on every screen,
// left and right alternating over the screens, or one picture per screen.
#pragma once

#include <memory>
#include <vector>

#include <QImage>

#include "projector/projectorwindowcontroller.h"

namespace Vorel {

enum class ProjectionMode { sbs, splitLR, single };

class ProjectorManager {
public:
    ~ProjectorManager();

    // Stops a running projection first. Single mode shows `pictures.single` on every screen.
    void start(const std::vector<ProjectorScreen> &screens, ProjectionMode mode, const ProjectedPictures &pictures);
    void stop();
    void updateImages(const ProjectedPictures &pictures);
    void syncTransform(double z, double u, double v);
    // Closes the windows on a screen that went away; the others go on.
    void screenRemoved(QScreen *screen);

    bool isProjecting = false;
    ProjectionMode currentMode = ProjectionMode::sbs;
    std::vector<ProjectorScreen> currentScreens;
    std::vector<std::unique_ptr<ProjectorWindowController>> projectorWindows;

private:
    double zoom = 1, centreU = 0.5, centreV = 0.5;
    bool following = false;
};

} // namespace Vorel
