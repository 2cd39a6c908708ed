// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The "Projector Output" panel (ProjectorSelectionViewController): choose screens and a mode,
// start and stop. The screen list follows screens being plugged in and out.
#pragma once

#include <functional>
#include <vector>

#include <QDialog>

#include "projector/projectormanager.h"

class QButtonGroup;
class QCheckBox;
class QPushButton;
class QVBoxLayout;

namespace Vorel {

class ProjectorSelectionPanel : public QDialog {
    Q_OBJECT
public:
    using ScreenSource = std::function<std::vector<ProjectorScreen>()>;

    // `screens` lists the screens to offer; by default every screen of the platform.
    explicit ProjectorSelectionPanel(ScreenSource screens = {}, QWidget *parent = nullptr);

    void rebuildScreenList();
    void setProjecting(bool projecting);
    ProjectionMode mode() const;

    std::function<void(const QString &)> alert;
    std::vector<QCheckBox *> checkboxes;
    QPushButton *startButton;
    QPushButton *stopButton;

signals:
    void startRequested(const std::vector<ProjectorScreen> &screens, ProjectionMode mode);
    void stopRequested();

private:
    void onStart();

    ScreenSource screenSource;
    std::vector<ProjectorScreen> externalScreens;
    QButtonGroup *modeSegment;
    QVBoxLayout *stackView;
};

// Every screen the platform reports, in its order.
std::vector<ProjectorScreen> platformScreens();

} // namespace Vorel
