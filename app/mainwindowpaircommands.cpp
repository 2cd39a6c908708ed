// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's commands that change the pair: undo and redo, automatic alignment, colour
// matching, crop and resize. Each successful change becomes one history state.
#include "app/mainwindow.h"

#include <QFutureWatcher>
#include <QProgressDialog>
#include <QPushButton>
#include <QtConcurrent/QtConcurrentRun>

#include "align/autoalign.h"
#include "align/colormatching.h"
#include "app/controlpanelwidget.h"
#include "app/cropoverlayview.h"
#include "app/pairview.h"
#include "app/resizedialog.h"

namespace Vorel {

namespace {

// A drawn rectangle cuts the pair only where the picture it is drawn on has one view's frame:
// not on the squeezed half-width views, the stacked over/under views or the bordered layout.
bool cropsOnOneView(DisplayMode mode)
{
    return mode != DisplayMode::hsbs && mode != DisplayMode::imageBorder && mode != DisplayMode::overUnder &&
           mode != DisplayMode::halfOverUnder;
}

} // namespace

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
    const bool cuts = cropsOnOneView(mode) && !drawn.isNull();
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
        // As a batch reads the stored numbers: their integer parts.
        lastCropSettings = BatchCropSettings{int(batchCrop[0].second), int(batchCrop[1].second),
                                             int(batchCrop[2].second), int(batchCrop[3].second)};
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
    lastResizeSettings = BatchResizeSettings{width, height, mode};
    if (!proc.resizePair(width, height, mode))
        return;
    panel->showAdjustment(proc.adjustment);
    redisplayNewPair();
    view->fitToView();
    pushRenderedPair();
}

} // namespace Vorel
