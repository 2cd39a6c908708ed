// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The sheet "Image with border settings": edits a copy of the border settings; OK stores them
// and hands them back, Cancel changes nothing.
#pragma once

#include <optional>

#include <QDialog>
#include <QImage>

#include "border/imagebordersettings.h"

class QCheckBox;
class QColorDialog;
class QComboBox;
class QLineEdit;

namespace Vorel {

class ColorWellWidget;
class Preferences;

class ImageBorderSettingsDialog : public QDialog {
    Q_OBJECT
public:
    // `reference` is the image the eyedropper picks from (the current left image), if any.
    ImageBorderSettingsDialog(const ImageBorderSettings &settings, std::optional<QImage> reference,
                              Preferences &preferences, QWidget *parent = nullptr);

    // The settings as the controls show them now.
    ImageBorderSettings settings() const;

signals:
    void settingsConfirmed(const Vorel::ImageBorderSettings &settings);

private:
    QWidget *makeColorRow(ColorWellWidget *well);
    void openPalette(ColorWellWidget *well, const SrgbColor &start);
    void pickFromImage(ColorWellWidget *well);
    void confirm();
    void closePalette();

    std::optional<QImage> reference;
    Preferences &preferences;
    QComboBox *layoutPopup;
    QCheckBox *useBorder;
    QLineEdit *borderWidth;
    ColorWellWidget *borderColor;
    QLineEdit *cornerRadius;
    QLineEdit *blur; // edited through the sheet's values but not shown
    QCheckBox *useFusionDots;
    ColorWellWidget *dotColor;
    QLineEdit *dotSize;
    QColorDialog *palette = nullptr; // shared by both wells
};

} // namespace Vorel
