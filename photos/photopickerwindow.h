// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The album window of "Open from Photos Library...": albums with their cover and count on the
// left, the chosen album's pictures as a thumbnail grid on the right. Albums and pictures are
// scanned, and thumbnails made, on worker threads; the window fills in as they arrive.
#pragma once

#include <QWidget>

#include "photos/photochoice.h"

class QAction;
class QLabel;
class QListView;
class QPushButton;
class QSlider;
class QTimer;

namespace Vorel
{

class LibraryScan;
class PhotoAlbumListModel;
class PhotoGridModel;
class PhotoTileDelegate;
class Preferences;
class ThumbnailLoader;
struct PhotoSettings;

class PhotoPickerWindow : public QWidget
{
    Q_OBJECT
public:
    explicit PhotoPickerWindow(const Preferences &preferences, QWidget *parent = nullptr);
    ~PhotoPickerWindow() override;

    QListView *albumView() const { return albums; }
    QListView *gridView() const { return grid; }
    const PhotoGridModel &gridModel() const { return *gridPhotos; }
    // Opens the two selected pictures as a left/right pair.
    void openSelectedPair();

public slots:
    // Lists the albums again, of the folders in `settings`.
    void reload(const Vorel::PhotoSettings &settings);

signals:
    void photosChosen(const Vorel::PhotoChoice &choice);

private:
    void startScans(const QStringList &extraFolders);
    void showAlbums(const QList<PhotoAlbum> &listed);
    void showAlbum(const QModelIndex &album);
    void openPicture(const QModelIndex &picture);
    void choose(int left, int right);
    void setThumbnailSide(int side);
    void requestThumbnails();
    void updateCommands();
    QString currentAlbum() const;

    QListView *albums;
    QListView *grid;
    QSlider *sizeSlider;
    QPushButton *openPair;
    QAction *pairAction;
    QLabel *status;
    PhotoAlbumListModel *albumList;
    PhotoGridModel *gridPhotos;
    PhotoTileDelegate *tiles;
    LibraryScan *albumScan = nullptr;
    LibraryScan *photoScan = nullptr;
    ThumbnailLoader *thumbnails;
    QTimer *thumbnailRequest; // gathers scrolling, resizing and arriving pictures into one request
};

} // namespace Vorel
