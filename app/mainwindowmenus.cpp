// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's menus, control-panel buttons and keys: the tables that turn what the user
// presses into commands.
#include "app/mainwindow.h"

#include <cstdio>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QWindow>

#include "app/controlpanelwidget.h"
#include "formats/exiforientationpanel.h"
#include "projector/projectorlink.h"

namespace Vorel {

namespace {

constexpr double arrowStep = 0.5;

// A menu item, its title translated (a null title is a separator). Keys that work alone (no modifier) are handled by
// the window's key handling, so that they also reach it from the picture; the menu only shows them.
struct MenuItem {
    QString title;
    QKeySequence key;
    bool bareKey;
    std::function<void(MainWindow &)> run;
};

} // namespace

void MainWindow::buildMenus()
{
    const MenuItem separator{QString(), QKeySequence(), false, {}};
    // Every display mode in the order of displayModes; the classic ones keep Ctrl+1 to Ctrl+6.
    std::vector<MenuItem> view{{tr("Swap"), QKeySequence(Qt::Key_X), true, &MainWindow::cpSwap}};
    for (size_t i = 0; i < displayModes.size(); ++i) {
        const DisplayMode m = displayModes[i].mode;
        const QKeySequence key = i < classicDisplayModeCount ? QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + int(i)))
                                                             : QKeySequence();
        view.push_back({QCoreApplication::translate("DisplayMode", displayModes[i].uiText), key, false,
                        [m](MainWindow &w) { w.setDisplayMode(m); }});
    }
    view.insert(view.end(),
                {{tr("Image with border settings"), QKeySequence(), false, &MainWindow::cpBorderSettings},
                 {tr("Fit to screen"), QKeySequence(Qt::Key_F), true, &MainWindow::cpFit},
                 {tr("Actual image size"), QKeySequence(Qt::Key_J), true, &MainWindow::cpActualSize},
                 {tr("Control Panel Display/Hide"), QKeySequence(Qt::CTRL | Qt::Key_Backslash), false,
                  [](MainWindow &w) { w.panel->setVisible(!w.panel->isVisible()); }},
                 {tr("Full screen"), QKeySequence(Qt::Key_Return), true, &MainWindow::cpToggleFullScreen},
                 {tr("External monitor"), QKeySequence(), false, &MainWindow::cpExternalMonitor}});
    const std::pair<QString, std::vector<MenuItem>> menus[] = {
        {tr("File"),
         {{tr("Open image files..."), QKeySequence(Qt::CTRL | Qt::Key_O), false, &MainWindow::chooseFilesToOpen},
          {tr("Open from Photos Library..."), QKeySequence(), false, &MainWindow::cpOpenFromPhotos},
          {tr("Open as over/under..."), QKeySequence(), false, &MainWindow::chooseOverUnderFileToOpen},
          {tr("Save Display Image..."), QKeySequence(Qt::CTRL | Qt::Key_S), false, &MainWindow::chooseFileToSave},
          {tr("Save as Spatial Photo..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), false,
           &MainWindow::cpSaveSpatialPhoto},
          {tr("Next image files"), QKeySequence(Qt::Key_Space), true, &MainWindow::cpNext},
          {tr("Prev. image files"), QKeySequence(Qt::Key_Backspace), true, &MainWindow::cpPrev},
          separator,
          {tr("Batch operation..."), QKeySequence(), false, &MainWindow::cpBatch},
          {tr("Orientation Tag Edit..."), QKeySequence(), false,
           [](MainWindow &w) { ExifOrientationPanel::show(&w); }}}},
        {tr("Edit"),
         {{tr("Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z), false, &MainWindow::cpUndo},
          {tr("Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), false, &MainWindow::cpRedo},
          {tr("Auto align"), QKeySequence(Qt::CTRL | Qt::Key_A), false, &MainWindow::cpAutoadj},
          {tr("Auto Color Matching(Left ref.)"), QKeySequence(), false, [](MainWindow &w) { w.cpColorMatch(false); }},
          {tr("Auto Color Matching(Right ref.)"), QKeySequence(), false, [](MainWindow &w) { w.cpColorMatch(true); }},
          {tr("Crop"), QKeySequence(), false, &MainWindow::cpCrop},
          {tr("Resize"), QKeySequence(), false, &MainWindow::cpResize},
          separator,
          {tr("Preferences..."), QKeySequence(QKeySequence::Preferences), false, &MainWindow::cpPreferences}}},
        {tr("View"), view},
    };
    for (const auto &[title, items] : menus) {
        QMenu *menu = menuBar()->addMenu(title);
        for (const MenuItem &item : items) {
            if (item.title.isNull()) {
                menu->addSeparator();
                continue;
            }
            QString text = item.title;
            if (item.bareKey)
                text += QLatin1Char('\t') + item.key.toString(QKeySequence::NativeText);
            QAction *action = menu->addAction(text);
            if (!item.bareKey)
                action->setShortcut(item.key);
            connect(action, &QAction::triggered, this, [this, run = item.run] { run(*this); });
        }
    }
}

void MainWindow::connectPanel()
{
    const std::pair<QString, std::function<void()>> buttons[] = {
        {tr("Open image files..."), [this] { chooseFilesToOpen(); }},
        {tr("Open from Photos Library..."), [this] { cpOpenFromPhotos(); }},
        {tr("Save Display Image..."), [this] { chooseFileToSave(); }},
        {tr("Save as Spatial Photo..."), [this] { cpSaveSpatialPhoto(); }},
        {tr("Batch operation..."), [this] { cpBatch(); }},
        {tr("Orientation Tag Edit..."), [this] { ExifOrientationPanel::show(this); }},
        {tr("Prev."), [this] { cpPrev(); }},
        {tr("Next"), [this] { cpNext(); }},
        {tr("Undo"), [this] { cpUndo(); }},
        {tr("Redo"), [this] { cpRedo(); }},
        {tr("Left ref"), [this] { cpColorMatch(false); }},
        {tr("Right ref"), [this] { cpColorMatch(true); }},
        {tr("Auto align"), [this] { cpAutoadj(); }},
        {tr("Crop"), [this] { cpCrop(); }},
        {tr("Resize"), [this] { cpResize(); }},
        {tr("Image with border settings"), [this] { cpBorderSettings(); }},
        {tr("Full screen"), [this] { cpToggleFullScreen(); }},
        {tr("External monitor"), [this] { cpExternalMonitor(); }},
        {tr("Fit to screen"), [this] { cpFit(); }},
        {tr("Actual image size"), [this] { cpActualSize(); }},
    };
    for (const auto &[text, run] : buttons)
        connect(panel->button(text), &QPushButton::clicked, this, run);
    cropButton = panel->button(tr("Crop"));
    connect(panel, &ControlPanelWidget::swapClicked, this, &MainWindow::cpSwap);
    connect(panel, &ControlPanelWidget::recentChosen, this, &MainWindow::openRecent);
    connect(panel, &ControlPanelWidget::modeChosen, this, &MainWindow::setDisplayMode);
    connect(panel, &ControlPanelWidget::adjustmentChanged, this, [this](const StereoAdjustment &adjustment) {
        proc.adjustment = adjustment;
        redisplay();
    });
    connect(panel, &QTabWidget::currentChanged, this, &MainWindow::onPanelPageChanged);
}

// Keys pressed anywhere in this window (not in its dialogs) are the window's commands. They
// are seen once, as they enter the window: keys it leaves to the focused widget then travel up
// through that widget's parents unseen here. Dispatch is by Qt key.
bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || watched != windowHandle())
        return false;
    auto *key = static_cast<QKeyEvent *>(event);
    std::fprintf(stderr, "keycode=%u\n", key->nativeScanCode());
    if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    return handleKey(key->key());
}

bool MainWindow::handleKey(int key)
{
    switch (key) {
    case Qt::Key_F:
        if (proc.hasPair())
            cpFit();
        return true;
    case Qt::Key_X:
        if (proc.hasPair())
            cpSwap();
        return true;
    case Qt::Key_J:
        if (proc.hasPair())
            cpActualSize();
        return true;
    case Qt::Key_B:
        proc.rememberAdjustment(*prefs);
        cpBatch();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        cpToggleFullScreen();
        return true;
    case Qt::Key_Escape:
        projection->stop();
        return true;
    case Qt::Key_Space:
        cpNext();
        return true;
    case Qt::Key_Backspace:
        cpPrev();
        return true;
    case Qt::Key_Left:
        nudgeAdjustment(-arrowStep, 0);
        return true;
    case Qt::Key_Right:
        nudgeAdjustment(arrowStep, 0);
        return true;
    case Qt::Key_Down:
        nudgeAdjustment(0, -arrowStep);
        return true;
    case Qt::Key_Up:
        nudgeAdjustment(0, arrowStep);
        return true;
    default:
        return false;
    }
}

} // namespace Vorel
