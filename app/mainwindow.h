// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The main window: one stereo pair, its views, the control panel and every command that acts
// on the pair. Each command is one processor call followed by a redisplay.
#pragma once

#include <functional>

#include <QMainWindow>
#include <QPointer>

#include "app/filehistory.h"
#include "app/foldernavigator.h"
#include "app/photoalbumnavigator.h"
#include "batch/batchsettings.h"
#include "border/imagebordersettings.h"
#include "core/preferences.h"
#include "core/stereoimageprocessor.h"

class QPushButton;

namespace Vorel {

class BatchSettingsViewController;
class BorderComposer;
class ControlPanelWidget;
class PairView;
class PhotoPickerWindow;
class ProjectorLink;
class SpatialPhotoSavePanel;
struct ProjectedPictures;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    // `preferences` is the store the window remembers choices in (the user's by default).
    explicit MainWindow(std::unique_ptr<Preferences> preferences = std::make_unique<Preferences>(),
                        QWidget *parent = nullptr);
    ~MainWindow() override;

    // Opens one file, read as `kind` says, or two as a left/right pair, and lists the folder for
    // stepping; stepping reads the folder's files as `kind` says too.
    bool openPaths(QStringList paths, StereoFileKind kind = StereoFileKind::byExtension);
    // Opens pictures chosen from the photo library, as a folder entry opens, and enters photo
    // mode: stepping then runs over the album's pictures. Records a recent entry.
    bool openPhotos(const PhotoChoice &choice);
    // Writes the display image, or with ".mpo" or ".jps" the full-width adjusted pair, with the
    // source's camera Exif. Failures are alerted.
    bool saveDisplayImage(const QString &path);

    // Shows a message to the user; replaceable so tests can read alerts.
    std::function<void(const QString &)> alert;

    // Commands, as the menus and keys trigger them.
    void cpNext() { stepEntry(+1); }
    void cpPrev() { stepEntry(-1); }
    void cpSwap();
    void cpUndo();
    void cpRedo();
    void cpFit();
    void cpActualSize();
    void cpToggleFullScreen();
    void cpExternalMonitor();
    // Opens "Image with border settings" on the current settings.
    void cpBorderSettings();
    // Asks for a file and the spatial photo parameters, then writes the full-width pair.
    void cpSaveSpatialPhoto();
    // Enters crop mode, or applies the drawn rectangle to both images and leaves it.
    void cpCrop();
    bool cropMode() const { return isCropMode; }
    PairView *pairView() const { return view; }
    // Opens the resize sheet on the current size; confirming resizes both images.
    void cpResize();
    void resizePair(int width, int height, ResizeMode mode);
    // Reopens entry `index` of the recent files, as the open command would; a photo library
    // entry reopens in photo mode over its album as it is now.
    void openRecent(int index);
    // "Open from Photos Library...": the album window, or the desktop's file chooser when the
    // preferences say "system".
    void cpOpenFromPhotos();
    // "Preferences...": the settings window.
    void cpPreferences();
    PhotoPickerWindow *photoPicker() const;
    // Opens the batch dialog on the stored settings and this session's last crop and resize;
    // confirming it starts the run.
    void cpBatch();
    const FileHistory &recentFiles() const { return *fileHistory; }
    // Aligns on a worker thread behind a window-modal busy dialog; the result is applied here.
    void cpAutoadj();
    void cpColorMatch(bool rightReference);
    bool isAligning() const { return aligning; }
    void setDisplayMode(DisplayMode mode);
    void nudgeAdjustment(double horizontal, double vertical);

    const StereoImageProcessor &processor() const { return proc; }
    const FolderNavigator &navigator() const { return folder; }
    const PhotoAlbumNavigator &photoNavigator() const { return photos; }
    bool photoMode() const { return isPhotoMode; }
    DisplayMode displayMode() const { return mode; }
    const ImageBorderSettings &borderSettings() const { return ibSettings; }
    ControlPanelWidget *controlPanel() const { return panel; }
    ProjectorLink *projector() const { return projection; }
    // The picture "Save Display Image..." writes and single-picture projection shows.
    std::optional<QImage> displayImage() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void buildMenus();
    void connectPanel();
    bool handleKey(int key);
    bool requirePair();
    bool openEntryAndShow(const StereoEntry &entry, StereoFileKind kind);
    void stepEntry(int direction);
    void applyHistoryState(const std::optional<ImagePair> &state);
    void applyAlignment(const std::optional<QImage> &picture);
    void pushRenderedPair();
    void setCropMode(bool on);
    void onPanelPageChanged(int page);
    void redisplay();
    void redisplayNewPair();
    void updateControls();
    void chooseFilesToOpen();
    void chooseOverUnderFileToOpen();
    void choosePhotosWithSystemPicker();
    void reopenPhotos(const HistoryEntry &entry);
    QString navigationInformation() const;
    void chooseFileToSave();
    std::optional<ProjectedPictures> projectedPictures() const;

    std::unique_ptr<Preferences> prefs;
    StereoImageProcessor proc;
    FolderNavigator folder;
    PhotoAlbumNavigator photos;
    bool isPhotoMode = false; // stepping runs over `photos` instead of `folder`
    QPointer<PhotoPickerWindow> picker; // one at a time
    DisplayMode mode = DisplayMode::sbs;
    StereoFileKind openedKind = StereoFileKind::byExtension; // how the shown single file was read
    QString lastOpenedURL;
    QString openedDescription;
    ControlPanelWidget *panel = nullptr;
    PairView *view = nullptr;
    ProjectorLink *projection = nullptr;
    ImageBorderSettings ibSettings;
    BorderComposer *borderComposer = nullptr;
    QPointer<SpatialPhotoSavePanel> spatialSavePanel; // one at a time
    QPointer<BatchSettingsViewController> batchDialog; // one at a time
    // This session's last interactive crop (the pixels stored for batches) and resize.
    std::optional<BatchCropSettings> lastCropSettings;
    std::optional<BatchResizeSettings> lastResizeSettings;
    std::unique_ptr<FileHistory> fileHistory;
    bool isCropMode = false;
    QPushButton *cropButton = nullptr; // its title follows crop mode
    bool aligning = false;
    qint64 alignedSourceKey = 0; // the left source an alignment started from
};

} // namespace Vorel
