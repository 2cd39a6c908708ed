// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "projector/projectorwindowcontroller.h"

#include <QScreen>
#include <QVBoxLayout>
#include <QWidget>

#include "projector/fitimageview.h"
#include "projector/sbsprojectorview.h"

namespace Vorel {

ProjectorWindowController::ProjectorWindowController(const ProjectorScreen &screen, Content shown)
    : content(shown), windowWidget(std::make_unique<QWidget>())
{
    QWidget *w = windowWidget.get();
    w->setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                      Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    w->setAttribute(Qt::WA_ShowWithoutActivating);
    w->setAutoFillBackground(true);
    w->setPalette(QPalette(Qt::black));
    w->setCursor(Qt::BlankCursor);
    auto *layout = new QVBoxLayout(w);
    layout->setContentsMargins(0, 0, 0, 0);
    if (content == Content::both) {
        sbsView = new SBSProjectorView;
        layout->addWidget(sbsView);
    } else {
        singleView = new FitImageView;
        layout->addWidget(singleView);
    }
    if (screen.screen)
        w->setScreen(screen.screen);
    w->setGeometry(screen.geometry);
    if (screen.screen)
        w->setWindowState(Qt::WindowFullScreen);
    w->show(); // not showFullScreen(), which would take the focus from the main window
}

ProjectorWindowController::~ProjectorWindowController() = default;

void ProjectorWindowController::setImages(const ProjectedPictures &pictures)
{
    switch (content) {
    case Content::both:
        sbsView->leftView->setImage(pictures.left);
        sbsView->rightView->setImage(pictures.right);
        break;
    case Content::left:
        singleView->setImage(pictures.left);
        break;
    case Content::right:
        singleView->setImage(pictures.right);
        break;
    case Content::single:
        singleView->setImage(pictures.single, pictures.singlePixelExact);
        break;
    }
}

void ProjectorWindowController::followView(double z, double u, double v)
{
    for (FitImageView *view : {singleView, sbsView ? sbsView->leftView : nullptr, sbsView ? sbsView->rightView : nullptr})
        if (view)
            view->followView(z, u, v);
}

} // namespace Vorel
