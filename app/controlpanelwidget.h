// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The tabbed control panel beside the picture: file, edit, view and adjustment pages.
// It only reports what the user did; the main window turns that into processor calls.
#pragma once

#include <array>

#include <QTabWidget>

#include "core/stereotypes.h"

class QAbstractButton;
class QButtonGroup;
class QComboBox;
class QLabel;
class QPushButton;
class QSlider;

namespace Vorel {

// The display modes the application has always had, first in displayModes: radio buttons on
// the panel and the keys Ctrl+1 to Ctrl+6 in the menu. The later ones are chosen from a list.
inline constexpr size_t classicDisplayModeCount = 6;

class ControlPanelWidget : public QTabWidget {
    Q_OBJECT
public:
    enum Page { filePage = 0, editPage = 1, viewPage = 2, adjustmentPage = 3 };

    explicit ControlPanelWidget(QWidget *parent = nullptr);

    // Sets sliders and labels from an adjustment without echoing adjustmentChanged.
    void showAdjustment(const StereoAdjustment &adjustment);
    StereoAdjustment currentAdj() const { return current; }
    // Marks the mode's radio button, or shows it in the "More:" list with no button marked.
    void setMode(DisplayMode mode);
    void setSwapped(bool swapped);
    void setFileInformation(const QString &text);
    void setNavigationEnabled(bool previous, bool next);
    void setUndoEnabled(bool undo, bool redo);
    // The recent-files pop-up: "Recent Files", then these titles (newest first) or "(No history)".
    void setRecentTitles(const QStringList &titles);

    // "%.0f" for whole values, "%.1f" otherwise.
    static QString formatValue(double value);

    // Buttons by their visible text, so the window can connect them in one place.
    QPushButton *button(const QString &text) const;

signals:
    void adjustmentChanged(const StereoAdjustment &adjustment);
    void modeChosen(DisplayMode mode);
    void swapClicked();
    void recentChosen(int index); // index into the titles last set

private:
    struct SliderRow {
        QSlider *slider = nullptr;
        QLabel *value = nullptr;
    };

    QWidget *makeButtonPage(const QStringList &texts);
    QWidget *makeEditPage();
    QWidget *makeViewPage();
    QWidget *makeAdjustmentPage();
    void onSliderMoved();

    std::array<SliderRow, 4> sliders;
    QButtonGroup *modeButtons = nullptr; // button ids are the modes
    QComboBox *moreModes = nullptr;
    QAbstractButton *swapButton = nullptr;
    QLabel *fileInformation = nullptr;
    QComboBox *recentFiles = nullptr;
    StereoAdjustment current;
    bool updating = false;
};

} // namespace Vorel
