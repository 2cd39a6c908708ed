// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "photos/photopickerwindow.h"

#include <algorithm>

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

#include "photos/libraryscan.h"
#include "photos/photoalbumlistmodel.h"
#include "photos/photogridmodel.h"
#include "photos/photosettings.h"
#include "photos/phototiledelegate.h"
#include "photos/thumbnailloader.h"

namespace Vorel
{

namespace
{

constexpr int smallestSide = 64;
constexpr int largestSide = 256;
constexpr int initialSide = 128;

// The first row for which `below` holds, in rows laid out in reading order.
int firstRowWhere(int count, const std::function<bool(int)> &below)
{
    int low = 0, high = count;
    while (low < high) {
        const int middle = (low + high) / 2;
        if (below(middle))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

} // namespace

PhotoPickerWindow::PhotoPickerWindow(const Preferences &preferences, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , albums(new QListView)
    , grid(new QListView)
    , sizeSlider(new QSlider(Qt::Horizontal))
    , openPair(new QPushButton(tr("Open as left/right pair")))
    , pairAction(new QAction(tr("Open as left/right pair"), this))
    , status(new QLabel)
    , albumList(new PhotoAlbumListModel(this))
    , gridPhotos(new PhotoGridModel(this))
    , tiles(new PhotoTileDelegate(this))
    , thumbnails(new ThumbnailLoader(ThumbnailCache(), this))
    , thumbnailRequest(new QTimer(this))
{
    setWindowTitle(tr("Photos Library"));
    resize(1000, 680);

    albums->setModel(albumList);
    albums->setIconSize(QSize(64, 64));
    albums->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(albums->selectionModel(), &QItemSelectionModel::currentChanged, this, &PhotoPickerWindow::showAlbum);

    grid->setModel(gridPhotos);
    grid->setItemDelegate(tiles);
    grid->setViewMode(QListView::IconMode);
    grid->setResizeMode(QListView::Adjust);
    grid->setMovement(QListView::Static);
    grid->setUniformItemSizes(true);
    grid->setSpacing(4);
    grid->setSelectionMode(QAbstractItemView::ExtendedSelection);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(grid, &QListView::doubleClicked, this, &PhotoPickerWindow::openPicture);
    connect(grid->selectionModel(), &QItemSelectionModel::selectionChanged, this, &PhotoPickerWindow::updateCommands);
    connect(openPair, &QPushButton::clicked, this, &PhotoPickerWindow::openSelectedPair);
    grid->addAction(pairAction);
    grid->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(pairAction, &QAction::triggered, this, &PhotoPickerWindow::openSelectedPair);

    thumbnailRequest->setSingleShot(true);
    thumbnailRequest->setInterval(0);
    connect(thumbnailRequest, &QTimer::timeout, this, &PhotoPickerWindow::requestThumbnails);
    const auto scheduleThumbnails = [this] { thumbnailRequest->start(); };
    connect(grid->verticalScrollBar(), &QScrollBar::valueChanged, this, scheduleThumbnails);
    connect(grid->verticalScrollBar(), &QScrollBar::rangeChanged, this, scheduleThumbnails);
    connect(gridPhotos, &QAbstractItemModel::rowsInserted, this, scheduleThumbnails);
    connect(albumList, &QAbstractItemModel::modelReset, this, scheduleThumbnails);
    connect(thumbnails, &ThumbnailLoader::thumbnailReady, this, [this](const QString &path, const QImage &image) {
        gridPhotos->setThumbnail(path, image);
        albumList->setCover(path, image);
    });
    connect(thumbnails, &ThumbnailLoader::thumbnailBroken, gridPhotos, &PhotoGridModel::setBroken);

    sizeSlider->setRange(smallestSide, largestSide);
    sizeSlider->setValue(initialSide);
    connect(sizeSlider, &QSlider::valueChanged, this, &PhotoPickerWindow::setThumbnailSide);
    setThumbnailSide(initialSide);

    auto *splitter = new QSplitter;
    splitter->addWidget(albums);
    splitter->addWidget(grid);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({ 240, 760 });
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(status, 1);
    bottom->addWidget(new QLabel(tr("Size:")));
    bottom->addWidget(sizeSlider);
    bottom->addWidget(openPair);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addLayout(bottom);

    updateCommands();
    startScans(PhotoSettings::load(preferences).folders);
}

PhotoPickerWindow::~PhotoPickerWindow() = default;

void PhotoPickerWindow::reload(const PhotoSettings &settings)
{
    startScans(settings.folders);
}

void PhotoPickerWindow::startScans(const QStringList &extraFolders)
{
    delete albumScan;
    delete photoScan;
    const PhotoLibrary library(defaultPicturesFolder(), extraFolders);
    albumScan = new LibraryScan(library, this);
    photoScan = new LibraryScan(library, this);
    connect(albumScan, &LibraryScan::albumsListed, this, &PhotoPickerWindow::showAlbums);
    connect(photoScan, &LibraryScan::photosFound, this, [this](const QString &album, const QList<PhotoAsset> &batch) {
        if (album == currentAlbum())
            gridPhotos->append(batch);
    });
    connect(photoScan, &LibraryScan::albumScanned, this, [this] { status->clear(); });
    status->setText(tr("Looking for albums…"));
    albumScan->scanAlbums();
}

void PhotoPickerWindow::showAlbums(const QList<PhotoAlbum> &listed)
{
    const QString previous = currentAlbum();
    albumList->setAlbums(listed);
    if (listed.isEmpty()) {
        gridPhotos->clear();
        status->setText(tr("No pictures found in %1").arg(defaultPicturesFolder()));
        return;
    }
    const auto kept = std::find_if(listed.begin(), listed.end(), [&](const PhotoAlbum &a) { return a.id == previous; });
    albums->setCurrentIndex(albumList->index(kept == listed.end() ? 0 : int(kept - listed.begin())));
}

QString PhotoPickerWindow::currentAlbum() const
{
    return albums->currentIndex().data(PhotoAlbumListModel::idRole).toString();
}

void PhotoPickerWindow::showAlbum(const QModelIndex &album)
{
    gridPhotos->clear();
    thumbnails->cancel();
    if (!album.isValid())
        return;
    status->setText(tr("Reading the album…"));
    photoScan->scanAlbum(album.data(PhotoAlbumListModel::idRole).toString());
}

void PhotoPickerWindow::setThumbnailSide(int side)
{
    tiles->setThumbnailSide(side);
    // The view caches item sizes: a new delegate size takes effect with a fresh layout.
    grid->setGridSize(QSize());
    grid->doItemsLayout();
    thumbnailRequest->start();
}

// The visible tiles first, in reading order, then the album covers, then a screenful on either
// side so that scrolling finds them made.
void PhotoPickerWindow::requestThumbnails()
{
    const int count = gridPhotos->rowCount();
    const int height = grid->viewport()->height();
    const int first
        = firstRowWhere(count, [&](int row) { return grid->visualRect(gridPhotos->index(row)).bottom() >= 0; });
    const int end
        = firstRowWhere(count, [&](int row) { return grid->visualRect(gridPhotos->index(row)).top() >= height; });
    const int visible = std::max(end - first, 1);
    const int side = tiles->side();
    QStringList paths;
    const auto add = [&](int row) {
        if (row >= 0 && row < count && gridPhotos->needsThumbnail(row, side))
            paths << gridPhotos->assets()[size_t(row)].path;
    };
    for (int row = first; row < end; ++row)
        add(row);
    paths << albumList->missingCovers();
    for (int offset = 0; offset < visible; ++offset) {
        add(end + offset);
        add(first - 1 - offset);
    }
    thumbnails->request(paths, side <= int(ThumbnailSize::normal) ? ThumbnailSize::normal : ThumbnailSize::large);
}

void PhotoPickerWindow::updateCommands()
{
    const bool twoSelected = grid->selectionModel()->selectedIndexes().size() == 2;
    openPair->setEnabled(twoSelected);
    pairAction->setEnabled(twoSelected);
}

// A file of a name pair opens with its partner; any other picture opens alone.
void PhotoPickerWindow::openPicture(const QModelIndex &picture)
{
    const std::vector<PhotoAsset> &assets = gridPhotos->assets();
    const PhotoAsset &asset = assets[size_t(picture.row())];
    const auto partner = std::find_if(assets.begin(), assets.end(),
        [&](const PhotoAsset &a) { return !asset.partner.isEmpty() && a.path == asset.partner; });
    if (partner == assets.end())
        choose(picture.row(), -1);
    else if (asset.kind == PhotoKind::right)
        choose(int(partner - assets.begin()), picture.row());
    else
        choose(picture.row(), int(partner - assets.begin()));
}

void PhotoPickerWindow::openSelectedPair()
{
    QModelIndexList selected = grid->selectionModel()->selectedIndexes();
    if (selected.size() != 2)
        return;
    std::sort(
        selected.begin(), selected.end(), [](const QModelIndex &a, const QModelIndex &b) { return a.row() < b.row(); });
    // Natural order puts the left file first, unless the names say otherwise.
    const bool reversed = gridPhotos->assets()[size_t(selected[0].row())].kind == PhotoKind::right
        && gridPhotos->assets()[size_t(selected[1].row())].kind == PhotoKind::left;
    choose(selected[reversed ? 1 : 0].row(), selected[reversed ? 0 : 1].row());
}

void PhotoPickerWindow::choose(int left, int right)
{
    const QModelIndex album = albums->currentIndex();
    emit photosChosen(PhotoChoice { albumList->albums()[album.row()], gridPhotos->assets(), left, right });
}

} // namespace Vorel
