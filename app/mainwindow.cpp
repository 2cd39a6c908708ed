// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Construction of the main window, its view commands and the redisplay of the pair in the
// current mode. The menus and keys, the file commands and the commands that change the pair
// live in mainwindowmenus.cpp, mainwindowfilecommands.cpp and mainwindowpaircommands.cpp.
#include "app/mainwindow.h"

#include <QMessageBox>
#include <QSplitter>
#include <QWindow>

#include "app/controlpanelwidget.h"
#include "app/pairview.h"
#include "border/bordercomposer.h"
#include "border/borderedpair.h"
#include "border/imageborderprocessor.h"
#include "border/imagebordersettingsdialog.h"
#include "projector/projectorlink.h"

namespace Vorel {

namespace {

// The side-by-side modes show the two views in two scroll views that scroll and zoom together
// (each with its own crop rectangle), not as the one composed picture they save.
bool showsViewsApart(DisplayMode mode) { return mode == DisplayMode::sbs || mode == DisplayMode::hsbs; }

} // namespace

MainWindow::MainWindow(std::unique_ptr<Preferences> preferences, QWidget *parent)
    : QMainWindow(parent), prefs(std::move(preferences))
{
    alert = [this](const QString &message) { QMessageBox::warning(this, tr("Vorel"), message); };
    setWindowTitle(tr("Vorel"));
    setAcceptDrops(true);

    panel = new ControlPanelWidget;
    view = new PairView;
    auto *splitter = new QSplitter;
    splitter->addWidget(view);
    splitter->addWidget(panel);
    splitter->setStretchFactor(0, 1);
    setCentralWidget(splitter);
    resize(1280, 800);
    projection = new ProjectorLink(this, [this] { return projectedPictures(); });
    connect(view, &PairView::viewChanged, projection, &ProjectorLink::viewChanged);
    ibSettings = ImageBorderSettings::load(*prefs);
    fileHistory = std::make_unique<FileHistory>(*prefs);
    borderComposer = new BorderComposer(this);
    connect(borderComposer, &BorderComposer::composed, this, [this](const QImage &picture) {
        if (mode != DisplayMode::imageBorder)
            return; // the user has left the mode meanwhile
        view->showSingle(picture);
        view->fitToView();
    });
    connect(view, &PairView::cropConfirmed, this, &MainWindow::cpCrop);
    connect(view, &PairView::longPressed, this, [this] {
        if (mode == DisplayMode::imageBorder)
            cpBorderSettings();
    });

    buildMenus();
    connectPanel();
    // Keys are taken where they enter the window, once per press and before the focused
    // widget, so a focused slider or button cannot swallow Space or the arrows.
    create();
    windowHandle()->installEventFilter(this);
    updateControls();
}

MainWindow::~MainWindow() = default;

// The projector windows have no parent and would otherwise keep the application running,
// on screens the user may not be able to reach, after its only real window is gone.
void MainWindow::closeEvent(QCloseEvent *event)
{
    projection->stop();
    QMainWindow::closeEvent(event);
}

bool MainWindow::requirePair()
{
    if (proc.hasPair())
        return true;
    alert(tr("Image not loaded"));
    return false;
}

void MainWindow::cpSwap()
{
    if (requirePair()) {
        proc.isSwap = !proc.isSwap;
        redisplay();
    }
    // The check box has toggled itself when clicked: it shows the processor's state either way.
    panel->setSwapped(proc.isSwap);
}

void MainWindow::cpFit()
{
    if (requirePair())
        view->fitToView();
}

void MainWindow::cpActualSize()
{
    if (requirePair())
        view->showActualSize();
}

void MainWindow::cpToggleFullScreen() { isFullScreen() ? showNormal() : showFullScreen(); }

void MainWindow::cpExternalMonitor() { projection->showPanel(); }

void MainWindow::cpBorderSettings()
{
    const std::optional<ImagePair> pair = proc.render(true);
    auto *sheet = new ImageBorderSettingsDialog(ibSettings, pair ? std::optional(pair->left) : std::nullopt, *prefs,
                                                this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &ImageBorderSettingsDialog::settingsConfirmed, this, [this](const ImageBorderSettings &settings) {
        ibSettings = settings;
        redisplay();
    });
    sheet->open();
}

std::optional<ProjectedPictures> MainWindow::projectedPictures() const
{
    // Projectors get the pair at full width even while the window shows half side-by-side.
    const std::optional<ImagePair> pair = proc.renderFullWidth(false);
    if (!pair)
        return std::nullopt;
    return ProjectedPictures{pair->left, pair->right, displayImage().value_or(QImage()), isInterlaced(mode)};
}

void MainWindow::setDisplayMode(DisplayMode newMode)
{
    mode = newMode;
    proc.isHalf = mode == DisplayMode::hsbs;
    panel->setMode(mode);
    redisplay();
    view->fitToView();
}

// Arrow keys have no bounds of their own: the adjustment may go past the slider ranges.
void MainWindow::nudgeAdjustment(double horizontal, double vertical)
{
    StereoAdjustment adjustment = panel->currentAdj();
    adjustment.horizontalOffset += horizontal;
    adjustment.verticalOffset += vertical;
    proc.adjustment = adjustment;
    panel->showAdjustment(adjustment);
    redisplay();
}

void MainWindow::onPanelPageChanged(int page)
{
    proc.nTab = page;
    if (page == StereoImageProcessor::previewTab && proc.hasPair()) {
        const QSize area = view->pictureArea();
        proc.makePreviewCache(area.width(), area.height());
    }
    redisplay();
}

void MainWindow::redisplayNewPair()
{
    // Loading a pair drops the slider preview cache; on the adjustment page it is rebuilt first.
    if (proc.nTab == StereoImageProcessor::previewTab)
        onPanelPageChanged(proc.nTab);
    else
        redisplay();
}

void MainWindow::redisplay()
{
    if (!proc.hasPair()) {
        borderComposer->discardPending();
        view->clear();
        return;
    }
    if (mode == DisplayMode::imageBorder) {
        borderComposer->request([settings = ibSettings, pair = proc.render(true)]() -> std::optional<QImage> {
            if (!pair)
                return std::nullopt;
            return ImageBorderProcessor().compose(pair->left, pair->right, settings);
        });
    } else if (showsViewsApart(mode)) {
        if (const std::optional<ImagePair> pair = proc.render(true))
            view->showPair(pair->left, pair->right);
    } else if (const std::optional<QImage> picture = proc.renderDisplayPicture(mode, true)) {
        view->showSingle(*picture, isInterlaced(mode));
    }
    projection->picturesChanged();
}

void MainWindow::updateControls()
{
    QStringList titles;
    for (const HistoryEntry &entry : fileHistory->entries())
        titles << FileHistory::title(entry);
    panel->setRecentTitles(titles);
    if (isPhotoMode)
        panel->setNavigationEnabled(photos.canStep(-1), photos.canStep(+1));
    else
        panel->setNavigationEnabled(folder.canStep(-1), folder.canStep(+1));
    panel->setUndoEnabled(proc.history.undoCount() >= 2, proc.history.redoCount() > 0);
    QString info;
    if (proc.hasPair())
        info = tr("%1\n%2 × %3 pixels per view\n")
                   .arg(openedDescription)
                   .arg(proc.leftOriginal->width())
                   .arg(proc.leftOriginal->height()) +
               navigationInformation();
    panel->setFileInformation(info);
}

std::optional<QImage> MainWindow::displayImage() const
{
    if (mode == DisplayMode::imageBorder)
        return composeBorderedPair(proc, ibSettings, false);
    return proc.renderDisplayPicture(mode, false);
}

} // namespace Vorel
