// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// One borderless, always-on-top window covering one screen, showing either both pictures or one.
#pragma once

#include <memory>

#include <QImage>
#include <QRect>

class QScreen;
class QWidget;

namespace Vorel {

class FitImageView;
class SBSProjectorView;

// A screen to project on: its frame, and the platform screen when there is one (tests use none).
struct ProjectorScreen {
    QRect geometry;
    QScreen *screen = nullptr;
};

// The full-size pictures a projection shows: the adjusted pair, and the window's displayed
// picture for single mode. An interlaced single picture is pixel-exact: its lines only work on
// the screen's own lines, so it is shown unscaled, centred and cropped, never fitted.
struct ProjectedPictures {
    QImage left, right, single;
    bool singlePixelExact = false;
};

class ProjectorWindowController {
public:
    enum class Content { both, left, right, single };

    ProjectorWindowController(const ProjectorScreen &screen, Content content);
    ~ProjectorWindowController();

    void setImages(const ProjectedPictures &pictures);
    void followView(double z, double u, double v);

    QWidget *window() const { return windowWidget.get(); }
    SBSProjectorView *sbsView = nullptr;
    FitImageView *singleView = nullptr;
    Content content;

private:
    std::unique_ptr<QWidget> windowWidget;
};

} // namespace Vorel
