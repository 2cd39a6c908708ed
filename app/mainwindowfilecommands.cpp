// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's file commands: opening files, stepping through the folder, recent files,
// saving the display image or a spatial photo, dropped files and the batch operation.
#include "app/mainwindow.h"

#include <cstdio>

#include <QApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>

#include "app/controlpanelwidget.h"
#include "app/pairview.h"
#include "app/spatialphotosavepanel.h"
#include "batch/batchrunwindow.h"
#include "batch/batchsettingsviewcontroller.h"
#include "formats/imagewriter.h"
#include "formats/spatialphotoerror.h"
#include "formats/stereofilewriter.h"

namespace Vorel {

namespace {

const char *const openFilter =
    QT_TRANSLATE_NOOP("Vorel::MainWindow",
                      "Images (*.jpg *.jpeg *.png *.tiff *.tif *.heic *.mpo *.jps *.pns *.bmp "
                      "*.JPG *.JPEG *.PNG *.TIFF *.TIF *.HEIC *.MPO *.JPS *.PNS *.BMP)");

} // namespace

bool MainWindow::openPaths(QStringList paths, StereoFileKind kind)
{
    if (paths.isEmpty() || paths.size() > 2)
        return false;
    sortNaturally(paths);
    const bool pair = paths.size() == 2;
    const StereoEntry entry{paths[0], pair ? paths[1] : QString()};
    if (!openEntryAndShow(entry, kind))
        return false;
    folder.rebuild(paths[0], pair ? FolderNavigator::filePair : FolderNavigator::singleFile);
    isPhotoMode = false;
    fileHistory->add(FileHistory::forFiles(paths));
    updateControls();
    return true;
}

void MainWindow::openRecent(int index)
{
    if (index < 0 || index >= int(fileHistory->entries().size()))
        return;
    const HistoryEntry entry = fileHistory->entries()[size_t(index)];
    if (entry.photoLocalIDs) {
        reopenPhotos(entry);
        return;
    }
    QStringList paths;
    for (const QString &url : entry.urls)
        paths << QUrl(url).toLocalFile();
    if (!openPaths(paths))
        alert(tr("Cannot open %1").arg(FileHistory::title(entry)));
}

bool MainWindow::openEntryAndShow(const StereoEntry &entry, StereoFileKind kind)
{
    if (!openEntry(proc, entry, kind)) {
        statusBar()->showMessage(tr("Cannot open %1").arg(QFileInfo(entry.left).fileName()), 8000);
        // Every open starts from a neutral adjustment, even a failed one that keeps the previous pair.
        proc.adjustment = {};
        panel->showAdjustment(proc.adjustment);
        redisplay();
        return false;
    }
    lastOpenedURL = entry.left;
    openedKind = kind;
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
    if (const std::optional<StereoEntry> entry = isPhotoMode ? photos.step(direction) : folder.step(direction))
        openEntryAndShow(*entry, openedKind);
    updateControls();
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

void MainWindow::chooseOverUnderFileToOpen()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Open as over/under..."),
                                                      QFileInfo(lastOpenedURL).path(), tr(openFilter));
    if (!path.isEmpty())
        openPaths({path}, StereoFileKind::overUnder);
}

void MainWindow::chooseFileToSave()
{
    if (!requirePair())
        return;
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Save Display Image..."), QFileInfo(lastOpenedURL).path(),
                                     tr("Images (*.jpg *.png *.tif *.heic *.bmp);;MPO (*.mpo);;JPS (*.jps)"));
    if (!path.isEmpty())
        saveDisplayImage(path);
}

bool MainWindow::saveDisplayImage(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const std::optional<StereoFileFormat> pairFormat =
        suffix == QLatin1String("mpo")   ? std::optional(StereoFileFormat::mpo)
        : suffix == QLatin1String("jps") ? std::optional(StereoFileFormat::jps)
                                         : std::nullopt;
    if (pairFormat) {
        // A pair format holds both views whatever the mode shows: the pair at full width.
        const std::optional<ImagePair> pair = proc.renderFullWidth(false);
        if (!pair)
            return false;
        try {
            writeStereoFile(pair->left, pair->right, path, *pairFormat, proc.cameraExif);
            return true;
        } catch (const StereoFileError &error) {
            alert(error.description());
            return false;
        }
    }
    const std::optional<QImage> picture = displayImage();
    if (picture && writeImage(*picture, path, proc.cameraExif))
        return true;
    alert(tr("Could not save %1").arg(QFileInfo(path).fileName()));
    return false;
}

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
            std::fprintf(stderr, "%s\n", qPrintable(tr("save erroe")));
            alert(*failure);
        }
    };
    spatialSavePanel->show();
}

void MainWindow::cpBatch()
{
    if (batchDialog) {
        batchDialog->raise();
        batchDialog->activateWindow();
        return;
    }
    batchDialog = new BatchSettingsViewController(*prefs, lastCropSettings, lastResizeSettings, this);
    batchDialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(batchDialog, &BatchSettingsViewController::settingsConfirmed, this, [this](const BatchSettings &settings) {
        runBatch(settings, *prefs, BatchRunPrompts{[this](const QString &text) { alert(text); }, {}}, this);
    });
    batchDialog->open();
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
