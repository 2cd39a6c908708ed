// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "projector/projectorselectionpanel.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QVBoxLayout>

namespace Vorel {

std::vector<ProjectorScreen> platformScreens()
{
    std::vector<ProjectorScreen> screens;
    for (QScreen *screen : QGuiApplication::screens())
        screens.push_back({screen->geometry(), screen});
    return screens;
}

ProjectorSelectionPanel::ProjectorSelectionPanel(ScreenSource screens, QWidget *parent)
    : QDialog(parent), screenSource(screens ? std::move(screens) : ScreenSource(platformScreens))
{
    setWindowTitle(tr("Projector Output"));
    alert = [this](const QString &text) { QMessageBox::warning(this, tr("Projector Output"), text); };
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Projection Mode:")));
    modeSegment = new QButtonGroup(this);
    auto *segments = new QHBoxLayout;
    // The third segment reaches single mode: the displayed picture (an anaglyph in the anaglyph
    // modes) on every chosen screen.
    const std::pair<QString, ProjectionMode> modes[] = {
        {tr("SBS (1 projector)"), ProjectionMode::sbs},
        {tr("L/R Split (2 projectors)"), ProjectionMode::splitLR},
        {tr("Single picture"), ProjectionMode::single},
    };
    for (const auto &[text, value] : modes) {
        auto *button = new QRadioButton(text);
        modeSegment->addButton(button, int(value));
        segments->addWidget(button);
    }
    modeSegment->button(int(ProjectionMode::sbs))->setChecked(true);
    layout->addLayout(segments);
    stackView = new QVBoxLayout;
    layout->addLayout(stackView);
    auto *hint = new QLabel(tr("You can also stop it with the Esc key."));
    hint->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(hint);
    auto *buttons = new QHBoxLayout;
    startButton = new QPushButton(tr("Start Projection"));
    stopButton = new QPushButton(tr("Stop Projection"));
    buttons->addWidget(startButton);
    buttons->addWidget(stopButton);
    layout->addLayout(buttons);
    connect(startButton, &QPushButton::clicked, this, &ProjectorSelectionPanel::onStart);
    connect(stopButton, &QPushButton::clicked, this, &ProjectorSelectionPanel::stopRequested);
    connect(qApp, &QGuiApplication::screenAdded, this, &ProjectorSelectionPanel::rebuildScreenList);
    connect(qApp, &QGuiApplication::screenRemoved, this, &ProjectorSelectionPanel::rebuildScreenList,
            Qt::QueuedConnection); // after the screen has left the platform's list
    rebuildScreenList();
    setProjecting(false);
}

void ProjectorSelectionPanel::rebuildScreenList()
{
    while (QLayoutItem *item = stackView->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    checkboxes.clear();
    externalScreens = screenSource();
    if (externalScreens.empty()) {
        auto *none = new QLabel(tr("No external screens detected."));
        none->setForegroundRole(QPalette::PlaceholderText);
        stackView->addWidget(none);
        return;
    }
    for (size_t i = 0; i < externalScreens.size(); ++i) {
        const QRect frame = externalScreens[i].geometry;
        auto *box = new QCheckBox(
            tr("Screen %1  (%2 × %3)").arg(int(i) + 1).arg(frame.width()).arg(frame.height()));
        checkboxes.push_back(box);
        stackView->addWidget(box);
    }
}

void ProjectorSelectionPanel::setProjecting(bool projecting)
{
    startButton->setEnabled(!projecting);
    stopButton->setEnabled(projecting);
}

ProjectionMode ProjectorSelectionPanel::mode() const { return ProjectionMode(modeSegment->checkedId()); }

void ProjectorSelectionPanel::onStart()
{
    std::vector<ProjectorScreen> chosen;
    for (size_t i = 0; i < checkboxes.size(); ++i)
        if (checkboxes[i]->isChecked())
            chosen.push_back(externalScreens[i]);
    if (chosen.empty()) {
        alert(tr("Please select at least one screen."));
        return;
    }
    emit startRequested(chosen, mode());
}

} // namespace Vorel
