// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/mainwindow.h"

#include <cstdio>

#include <QApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressDialog>
#include <QPushButton>
#include <QSplitter>
#include <QUrl>
#include <QStatusBar>
#include <QtConcurrent/QtConcurrentRun>

#include "app/controlpanelwidget.h"
#include "app/cropoverlayview.h"
#include "align/autoalign.h"
#include "align/colormatching.h"
#include "app/pairview.h"
#include "app/resizedialog.h"
#include "app/spatialphotosavepanel.h"
#include "border/bordercomposer.h"
#include "border/borderedpair.h"
#include "border/imageborderprocessor.h"
#include "border/imagebordersettingsdialog.h"
#include "core/displaycomposition.h"
#include "formats/exiforientationpanel.h"
#include "formats/imagewriter.h"
#include "formats/spatialphotoerror.h"
#include "projector/projectorlink.h"

namespace Vorel {

namespace {

constexpr double arrowStep = 0.5;

const char *const openFilter = "Images (*.jpg *.jpeg *.png *.tiff *.tif *.heic *.mpo *.bmp "
                               "*.JPG *.JPEG *.PNG *.TIFF *.TIF *.HEIC *.MPO *.BMP)";

// A menu item (a null title is a separator). Keys that work alone (no modifier) are handled by the window's key handling,
// so that they also reach it from the picture; the menu only shows them.
struct MenuItem {
    const char *title;
    QKeySequence key;
    bool bareKey;
    std::function<void(MainWindow &)> run;
};

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
    qApp->installEventFilter(this);
    updateControls();
}

MainWindow::~MainWindow() { qApp->removeEventFilter(this); }

void MainWindow::buildMenus()
{
    const auto modeItem = [](const char *title, DisplayMode m, QKeySequence key) {
        return MenuItem{title, key, false, [m](MainWindow &w) { w.setDisplayMode(m); }};
    };
    const MenuItem separator{nullptr, QKeySequence(), false, {}};
    const std::pair<const char *, std::vector<MenuItem>> menus[] = {
        {"File",
         {{"Open image files...", QKeySequence(Qt::CTRL | Qt::Key_O), false, &MainWindow::chooseFilesToOpen},
          {"Save Display Image...", QKeySequence(Qt::CTRL | Qt::Key_S), false, &MainWindow::chooseFileToSave},
          {"Save as Spatial Photo...", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), false,
           &MainWindow::cpSaveSpatialPhoto},
          {"Next image files", QKeySequence(Qt::Key_Space), true, &MainWindow::cpNext},
          {"Prev. image files", QKeySequence(Qt::Key_Backspace), true, &MainWindow::cpPrev},
          separator,
          {"Orientation Tag Edit...", QKeySequence(), false, [](MainWindow &w) { ExifOrientationPanel::show(&w); }}}},
        {"Edit",
         {{"Undo", QKeySequence(Qt::CTRL | Qt::Key_Z), false, &MainWindow::cpUndo},
          {"Redo", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), false, &MainWindow::cpRedo},
          {"Auto align", QKeySequence(Qt::CTRL | Qt::Key_A), false, &MainWindow::cpAutoadj},
          {"Auto Color Matching(Left ref.)", QKeySequence(), false, [](MainWindow &w) { w.cpColorMatch(false); }},
          {"Auto Color Matching(Right ref.)", QKeySequence(), false, [](MainWindow &w) { w.cpColorMatch(true); }},
          {"Crop", QKeySequence(), false, &MainWindow::cpCrop},
          {"Resize", QKeySequence(), false, &MainWindow::cpResize}}},
        {"View",
         {{"Swap", QKeySequence(Qt::Key_X), true, &MainWindow::cpSwap},
          modeItem("Side by Side", DisplayMode::sbs, QKeySequence(Qt::CTRL | Qt::Key_1)),
          modeItem("Gray Anaglyph", DisplayMode::anaglyph, QKeySequence(Qt::CTRL | Qt::Key_2)),
          modeItem("Color Anaglyph", DisplayMode::anaglyphc, QKeySequence(Qt::CTRL | Qt::Key_3)),
          modeItem("Dubois Anaglyph", DisplayMode::anaglyphd, QKeySequence(Qt::CTRL | Qt::Key_4)),
          modeItem("Half SBS", DisplayMode::hsbs, QKeySequence(Qt::CTRL | Qt::Key_5)),
          modeItem("Image with Border", DisplayMode::imageBorder, QKeySequence(Qt::CTRL | Qt::Key_6)),
          {"Image with border settings", QKeySequence(), false, &MainWindow::cpBorderSettings},
          {"Fit to screen", QKeySequence(Qt::Key_F), true, &MainWindow::cpFit},
          {"Actual image size", QKeySequence(Qt::Key_J), true, &MainWindow::cpActualSize},
          {"Control Panel Display/Hide", QKeySequence(Qt::CTRL | Qt::Key_Backslash), false,
           [](MainWindow &w) { w.panel->setVisible(!w.panel->isVisible()); }},
          {"Full screen", QKeySequence(Qt::Key_Return), true, &MainWindow::cpToggleFullScreen},
          {"External monitor", QKeySequence(), false, &MainWindow::cpExternalMonitor}}},
    };
    for (const auto &[title, items] : menus) {
        QMenu *menu = menuBar()->addMenu(tr(title));
        for (const MenuItem &item : items) {
            if (!item.title) {
                menu->addSeparator();
                continue;
            }
            QString text = tr(item.title);
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
        {tr("Save Display Image..."), [this] { chooseFileToSave(); }},
        {tr("Save as Spatial Photo..."), [this] { cpSaveSpatialPhoto(); }},
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

// Keys pressed anywhere in this window (not in its dialogs) are the window's commands, so
// a focused slider or button cannot swallow Space or the arrows. Dispatch is by Qt key.
bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    auto *widget = qobject_cast<QWidget *>(watched);
    if (!widget || widget->window() != this)
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

bool MainWindow::requirePair()
{
    if (proc.hasPair())
        return true;
    alert(tr("Image not loaded"));
    return false;
}

bool MainWindow::openPaths(QStringList paths)
{
    if (paths.isEmpty() || paths.size() > 2)
        return false;
    sortNaturally(paths);
    const bool pair = paths.size() == 2;
    const StereoEntry entry{paths[0], pair ? paths[1] : QString()};
    if (!openEntryAndShow(entry))
        return false;
    folder.rebuild(paths[0], pair ? FolderNavigator::filePair : FolderNavigator::singleFile);
    fileHistory->add(FileHistory::forFiles(paths));
    updateControls();
    return true;
}

void MainWindow::openRecent(int index)
{
    if (index < 0 || index >= int(fileHistory->entries().size()))
        return;
    const HistoryEntry entry = fileHistory->entries()[size_t(index)];
    if (entry.urls.isEmpty()) {
        alert(tr("Photo library items cannot be opened here."));
        return;
    }
    QStringList paths;
    for (const QString &url : entry.urls)
        paths << QUrl(url).toLocalFile();
    if (!openPaths(paths))
        alert(tr("Cannot open %1").arg(FileHistory::title(entry)));
}

void MainWindow::setCropMode(bool on)
{
    isCropMode = on;
    view->setCropMode(on);
    cropButton->setText(on ? tr("Apply Crop") : tr("Crop"));
}

void MainWindow::cpCrop()
{
    if (!requirePair())
        return;
    if (!isCropMode) {
        setCropMode(true);
        return;
    }
    const CropOverlayView *overlay = view->cropOverlay();
    const QRectF drawn = overlay->cropRect();
    const bool cuts = mode != DisplayMode::hsbs && mode != DisplayMode::imageBorder && !drawn.isNull();
    if (cuts) {
        // Fractions of the picture the overlay spans, origin top-left.
        const QSizeF spanned = overlay->size();
        const QRectF normalised(drawn.x() / spanned.width(), drawn.y() / spanned.height(),
                                drawn.width() / spanned.width(), drawn.height() / spanned.height());
        const QSizeF shown = view->shownPictureSize();
        const std::pair<const char *, double> batchCrop[] = {{"batch.cropX", normalised.x() * shown.width()},
                                                             {"batch.cropY", normalised.y() * shown.height()},
                                                             {"batch.cropW", normalised.width() * shown.width()},
                                                             {"batch.cropH", normalised.height() * shown.height()}};
        for (const auto &[key, value] : batchCrop)
            prefs->setNumber(QString::fromLatin1(key), value);
        if (proc.cropPair(normalised)) {
            panel->showAdjustment(proc.adjustment);
            pushRenderedPair();
        }
    }
    setCropMode(false);
    redisplayNewPair();
    view->fitToView();
}

void MainWindow::cpResize()
{
    if (!requirePair())
        return;
    const std::optional<ImagePair> pair = proc.renderFullWidth(false);
    if (!pair)
        return;
    auto *sheet = new ResizeDialog(pair->left.size(), *prefs, this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &ResizeDialog::resizeConfirmed, this, &MainWindow::resizePair);
    sheet->open();
}

void MainWindow::resizePair(int width, int height, ResizeMode mode)
{
    if (!proc.resizePair(width, height, mode))
        return;
    panel->showAdjustment(proc.adjustment);
    redisplayNewPair();
    view->fitToView();
    pushRenderedPair();
}

bool MainWindow::openEntryAndShow(const StereoEntry &entry)
{
    if (!openEntry(proc, entry)) {
        statusBar()->showMessage(tr("Cannot open %1").arg(QFileInfo(entry.left).fileName()), 8000);
        return false;
    }
    lastOpenedURL = entry.left;
    openedDescription = entry.isSeparatePair() && entry.right != entry.left
                            ? QFileInfo(entry.left).fileName() + QStringLiteral(" + ") + QFileInfo(entry.right).fileName()
                            : QFileInfo(entry.left).fileName();
    setWindowTitle(openedDescription + QStringLiteral(" — Vorel"));
    statusBar()->clearMessage();
    panel->showAdjustment(proc.adjustment);
    redisplayNewPair();
    view->fitToView();
    return true;
}

void MainWindow::stepEntry(int direction)
{
    if (const std::optional<StereoEntry> entry = folder.step(direction))
        openEntryAndShow(*entry);
    updateControls();
}

void MainWindow::cpSwap()
{
    if (!requirePair())
        return;
    proc.isSwap = !proc.isSwap;
    panel->setSwapped(proc.isSwap);
    redisplay();
}

void MainWindow::applyHistoryState(const std::optional<ImagePair> &state)
{
    if (!state)
        return;
    proc.loadPair(state->left, state->right, false);
    panel->showAdjustment(proc.adjustment);
    redisplayNewPair();
    updateControls();
}

void MainWindow::cpUndo() { applyHistoryState(proc.history.undo()); }
void MainWindow::cpRedo() { applyHistoryState(proc.history.redo()); }

void MainWindow::pushRenderedPair()
{
    if (const std::optional<ImagePair> pair = proc.render(false))
        proc.history.push(pair->left, pair->right);
    updateControls();
}

void MainWindow::cpAutoadj()
{
    if (aligning || !requirePair())
        return;
    aligning = true;
    alignedSourceKey = proc.leftOriginal->cacheKey();
    auto *busy = new QProgressDialog(tr("Aligning the pair..."), QString(), 0, 0, this);
    busy->setWindowModality(Qt::WindowModal);
    busy->setMinimumDuration(0);
    busy->show();
    auto *watcher = new QFutureWatcher<std::optional<QImage>>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, busy] {
        busy->deleteLater();
        watcher->deleteLater();
        aligning = false;
        applyAlignment(watcher->result());
    });
    watcher->setFuture(QtConcurrent::run(autoAlign, *proc.leftOriginal, *proc.rightOriginal));
}

void MainWindow::applyAlignment(const std::optional<QImage> &picture)
{
    if (!proc.hasPair() || proc.leftOriginal->cacheKey() != alignedSourceKey)
        return; // another pair was opened meanwhile
    if (!picture) {
        alert(tr("Auto align found nothing to match between the two images; the pair is unchanged."));
        return;
    }
    proc.loadSideBySide(*picture, false);
    panel->showAdjustment(proc.adjustment);
    redisplayNewPair();
    pushRenderedPair();
}

void MainWindow::cpColorMatch(bool rightReference)
{
    if (!requirePair())
        return;
    matchColours(proc, rightReference);
    redisplayNewPair();
    pushRenderedPair();
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

void MainWindow::cpSaveSpatialPhoto()
{
    if (!requirePair())
        return;
    delete spatialSavePanel;
    spatialSavePanel = new SpatialPhotoSavePanel(*prefs, this);
    spatialSavePanel->setAttribute(Qt::WA_DeleteOnClose);
    spatialSavePanel->completion = [this](const QString &path, double fov, int adj, double stb) {
        QApplication::setOverrideCursor(Qt::WaitCursor); // encoding takes seconds for large pictures
        std::optional<QString> failure;
        try {
            proc.saveAsSpatialPhoto(path, adj, fov, stb);
        } catch (const SpatialPhotoError &error) {
            failure = error.description();
        }
        QApplication::restoreOverrideCursor();
        if (failure) {
            std::fprintf(stderr, "save erroe\n");
            alert(*failure);
        }
    };
    spatialSavePanel->show();
}

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
    return ProjectedPictures{pair->left, pair->right, displayImage().value_or(QImage())};
}

void MainWindow::setDisplayMode(DisplayMode newMode)
{
    mode = newMode;
    if (const int kind = displayModeInfo(mode).anaglyphKind; kind >= 0)
        nAnamode = kind;
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
    } else if (displayModeInfo(mode).anaglyphKind >= 0) {
        if (const std::optional<QImage> anaglyph = proc.renderAnaglyph(nAnamode, true))
            view->showSingle(*anaglyph);
    } else if (const std::optional<ImagePair> pair = proc.render(true)) {
        view->showPair(pair->left, pair->right);
    }
    projection->picturesChanged();
}

void MainWindow::updateControls()
{
    QStringList titles;
    for (const HistoryEntry &entry : fileHistory->entries())
        titles << FileHistory::title(entry);
    panel->setRecentTitles(titles);
    panel->setNavigationEnabled(folder.canStep(-1), folder.canStep(+1));
    panel->setUndoEnabled(proc.history.undoCount() >= 2, proc.history.redoCount() > 0);
    QString info;
    if (proc.hasPair())
        info = tr("%1\n%2 × %3 pixels per view\n%4 of %5 in the folder")
                   .arg(openedDescription)
                   .arg(proc.leftOriginal->width())
                   .arg(proc.leftOriginal->height())
                   .arg(folder.currentIndex() + 1)
                   .arg(folder.imageList().size());
    panel->setFileInformation(info);
}

std::optional<QImage> MainWindow::displayImage() const
{
    if (mode == DisplayMode::imageBorder)
        return composeBorderedPair(proc, ibSettings, false);
    if (displayModeInfo(mode).anaglyphKind >= 0)
        return proc.renderAnaglyph(nAnamode, false);
    const std::optional<ImagePair> pair = proc.render(false);
    if (!pair)
        return std::nullopt;
    return composeSideBySide(pair->left, pair->right);
}

bool MainWindow::saveDisplayImage(const QString &path)
{
    const std::optional<QImage> picture = displayImage();
    return picture && writeImage(*picture, path);
}

void MainWindow::chooseFilesToOpen()
{
    const QStringList paths =
        QFileDialog::getOpenFileNames(this, tr("Open image files..."), QFileInfo(lastOpenedURL).path(), tr(openFilter));
    if (paths.size() > 2)
        alert(tr("Choose one side-by-side file, or two files (left and right)."));
    else if (!paths.isEmpty())
        openPaths(paths);
}

void MainWindow::chooseFileToSave()
{
    if (!requirePair())
        return;
    const QString path = QFileDialog::getSaveFileName(this, tr("Save Display Image..."), QFileInfo(lastOpenedURL).path(),
                                                      tr("Images (*.jpg *.png *.tif *.heic *.bmp)"));
    if (!path.isEmpty() && !saveDisplayImage(path))
        alert(tr("Could not save %1").arg(QFileInfo(path).fileName()));
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (!urls.isEmpty() && urls.size() <= 2)
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    QStringList paths;
    for (const QUrl &url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths << url.toLocalFile();
    openPaths(paths);
}

} // namespace Vorel
