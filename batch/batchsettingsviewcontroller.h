// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The batch settings dialog: shows the stored recipe (with the viewer's last crop and resize),
// lets the user edit it, validates it and hands the whole record back on "Start Batch Processing".
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <utility>

#include <QDialog>

#include "batch/batchsettings.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace Vorel {

class Preferences;

class BatchSettingsViewController : public QDialog {
    Q_OBJECT
public:
    // The controls start from `preferences`; the viewer's last interactive crop and resize,
    // when given, take the place of the stored ones. Confirmation stores every field.
    BatchSettingsViewController(Preferences &preferences, const std::optional<BatchCropSettings> &lastCropSettings,
                                const std::optional<BatchResizeSettings> &lastResizeSettings,
                                QWidget *parent = nullptr);

    // The record the controls describe now; a number that does not parse gives the field's default.
    BatchSettings settings() const;
    // Width / height kept by the fixed-aspect-ratio option.
    double resizeAspectRatio() const { return aspectRatio; }

    // Shows a validation message; replaceable so tests can read alerts.
    std::function<void(const QString &)> alert;

    // Folder labels: the chosen path, or "(Not selected)". Each also takes a dropped folder.
    QLabel *inputFolderLabel;
    QLabel *outputFolderLabel;
    QPushButton *inputBrowseButton;
    QPushButton *outputBrowseButton;
    QComboBox *inputFormatPopUp;  // BatchInputFormat order
    QComboBox *outputFormatPopUp; // BatchOutputFormat order
    QComboBox *fileFormatPopUp;   // BatchFileFormat order
    QCheckBox *pairByNameCheck;   // enabled for separate input only
    QCheckBox *swapCheck;
    QCheckBox *autoAdjCheck;
    QCheckBox *autoAdjColCheck;
    QComboBox *referencePopUp; // 0 "Right Reference", 1 "Left Reference"
    QCheckBox *manualAdjCheck;
    std::array<QLineEdit *, 4> manualFields; // H, V, rotation, scale
    QCheckBox *cropCheck;
    std::array<QLineEdit *, 4> cropFields; // X, Y, W, H
    QCheckBox *resizeCheck;
    QLineEdit *resizeWField;
    QLineEdit *resizeHField;
    QCheckBox *fixedAspectCheck;
    std::array<QRadioButton *, 3> resizeModeRadios; // ResizeMode order: stretch, crop-fit, letterbox
    QLineEdit *fovField;
    QLineEdit *adjField;
    QLineEdit *stbField;
    QPushButton *resetSpatialButton;
    QPushButton *startButton;
    QPushButton *cancelButton;

public slots:
    // "Start Batch Processing": validate (an alert keeps the dialog open), store, hand over, close.
    void accept() override;

signals:
    void settingsConfirmed(const Vorel::BatchSettings &settings);

private:
    QWidget *makeFolderRow(QLabel *&label, QPushButton *&browse, const QString &title);
    QWidget *makeInputGroup();
    QWidget *makeOutputGroup();
    QWidget *makeAdjustmentGroup();
    QWidget *makeCropGroup();
    QWidget *makeResizeGroup();
    QWidget *makeSpatialGroup();
    void fill(const BatchSettings &settings);
    void fillSpatial(double fov, int adj, double stb);
    void keepAspect(QLineEdit *edited);
    void takeAspectRatio();
    // The number fields with the record field each one shows, in one table for filling and reading.
    std::array<std::pair<QLineEdit *, double BatchSettings::*>, 6> decimalFields() const;
    std::array<std::pair<QLineEdit *, int BatchSettings::*>, 6> integerFields() const;

    Preferences &preferences;
    double aspectRatio = 0;
    bool isUpdating = false; // the aspect lock is writing the other field
};

} // namespace Vorel
