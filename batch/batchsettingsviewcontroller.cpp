// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/batchsettingsviewcontroller.h"

#include <cmath>

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "batch/folderdropwidget.h"
#include "core/decimaltext.h"
#include "core/preferences.h"
#include "formats/spatialphotosettings.h"

namespace Vorel {

namespace {

// The same wording as the window's resize sheet, in ResizeMode order.
const char *const resizeModeTexts[] = {
    QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController",
                      "Resize to specified size without maintaining aspect ratio"),
    QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController", "Maintain aspect ratio - Crop the inside"),
    QT_TRANSLATE_NOOP("Vorel::BatchSettingsViewController",
                      "Maintain aspect ratio - Fill in the missing parts with black")};

QString numberText(double value) { return QString::number(value, 'g', QLocale::FloatingPointShortest); }

QLineEdit *numberField()
{
    auto *field = new QLineEdit;
    field->setMinimumWidth(64);
    field->setMaximumWidth(90);
    return field;
}

// Each check box switches the controls that only matter while it is on.
void enableWith(QCheckBox *check, const QList<QWidget *> &controls)
{
    const auto apply = [controls](bool on) {
        for (QWidget *control : controls)
            control->setEnabled(on);
    };
    QObject::connect(check, &QCheckBox::toggled, check, apply);
    apply(check->isChecked());
}

template <typename Enum, size_t N>
QComboBox *popUp(const std::array<BatchChoice<Enum>, N> &choices)
{
    auto *box = new QComboBox;
    for (const BatchChoice<Enum> &choice : choices)
        box->addItem(BatchSettingsViewController::tr(choice.uiText));
    return box;
}

} // namespace

BatchSettingsViewController::BatchSettingsViewController(Preferences &store,
                                                         const std::optional<BatchCropSettings> &lastCropSettings,
                                                         const std::optional<BatchResizeSettings> &lastResizeSettings,
                                                         QWidget *parent)
    : QDialog(parent), preferences(store)
{
    setWindowTitle(tr("Batch operation"));
    alert = [this](const QString &text) { QMessageBox::warning(this, tr("Batch operation"), text); };

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(makeInputGroup());
    layout->addWidget(makeOutputGroup());
    layout->addWidget(makeAdjustmentGroup());
    auto *sizes = new QHBoxLayout;
    sizes->addWidget(makeCropGroup());
    sizes->addWidget(makeResizeGroup(), 1);
    layout->addLayout(sizes);
    layout->addWidget(makeSpatialGroup());

    auto *buttons = new QDialogButtonBox;
    startButton = buttons->addButton(tr("Start Batch Processing"), QDialogButtonBox::AcceptRole);
    cancelButton = buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    startButton->setDefault(true);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &BatchSettingsViewController::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &BatchSettingsViewController::reject);

    fill(BatchSettings::load(preferences, lastCropSettings, lastResizeSettings));
}

QWidget *BatchSettingsViewController::makeFolderRow(QLabel *&label, QPushButton *&browse, const QString &title)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    label = new FolderDropWidget;
    browse = new QPushButton(tr("Browse…"));
    layout->addWidget(label, 1);
    layout->addWidget(browse);
    connect(browse, &QPushButton::clicked, this, [this, label, title] {
        const QString current = label->text();
        const QString chosen =
            QFileDialog::getExistingDirectory(this, title, QFileInfo(current).isDir() ? current : QDir::homePath());
        if (!chosen.isEmpty())
            label->setText(QDir::cleanPath(chosen));
    });
    return row;
}

QWidget *BatchSettingsViewController::makeInputGroup()
{
    auto *group = new QGroupBox(tr("Input"));
    auto *form = new QFormLayout(group);
    form->addRow(tr("Folder:"), makeFolderRow(inputFolderLabel, inputBrowseButton, tr("Choose the input folder")));
    inputFormatPopUp = popUp(batchInputFormats);
    form->addRow(tr("Format:"), inputFormatPopUp);
    pairByNameCheck = new QCheckBox(tr("Pair by name (_L/_R, -left/-right, l/ and r/ folders)"));
    form->addRow(QString(), pairByNameCheck);
    // Only separate left and right files are paired at all.
    const auto pairsFiles = [this] {
        pairByNameCheck->setEnabled(inputFormatPopUp->currentIndex() == int(BatchInputFormat::separate));
    };
    connect(inputFormatPopUp, &QComboBox::currentIndexChanged, this, pairsFiles);
    pairsFiles();
    return group;
}

QWidget *BatchSettingsViewController::makeOutputGroup()
{
    auto *group = new QGroupBox(tr("Output"));
    auto *form = new QFormLayout(group);
    form->addRow(tr("Folder:"), makeFolderRow(outputFolderLabel, outputBrowseButton, tr("Choose the output folder")));
    outputFormatPopUp = popUp(batchOutputFormats);
    form->addRow(tr("Format:"), outputFormatPopUp);
    fileFormatPopUp = popUp(batchFileFormats);
    form->addRow(tr("File format:"), fileFormatPopUp);
    return group;
}

QWidget *BatchSettingsViewController::makeAdjustmentGroup()
{
    auto *group = new QGroupBox(tr("Processing"));
    auto *grid = new QGridLayout(group);
    swapCheck = new QCheckBox(tr("Swap L/R"));
    autoAdjCheck = new QCheckBox(tr("Auto alignment"));
    autoAdjColCheck = new QCheckBox(tr("Auto color matching"));
    referencePopUp = new QComboBox;
    referencePopUp->addItems({tr("Right Reference"), tr("Left Reference")});
    grid->addWidget(swapCheck, 0, 0);
    grid->addWidget(autoAdjCheck, 1, 0);
    grid->addWidget(autoAdjColCheck, 2, 0);
    grid->addWidget(referencePopUp, 2, 1, 1, 2);
    enableWith(autoAdjColCheck, {referencePopUp});

    manualAdjCheck = new QCheckBox(tr("Manual adjustment"));
    grid->addWidget(manualAdjCheck, 3, 0);
    const char *const captions[] = {QT_TR_NOOP("H (%)"), QT_TR_NOOP("V (%)"), QT_TR_NOOP("Rotation (°)"),
                                    QT_TR_NOOP("Scale (%)")};
    QList<QWidget *> manualControls;
    // Two rows of two: caption, field, caption, field.
    for (size_t i = 0; i < manualFields.size(); ++i) {
        manualFields[i] = numberField();
        auto *caption = new QLabel(tr(captions[i]));
        const int row = 4 + int(i) / 2, column = 1 + 2 * (int(i) % 2);
        grid->addWidget(caption, row, column, Qt::AlignRight);
        grid->addWidget(manualFields[i], row, column + 1);
        manualControls << caption << manualFields[i];
    }
    enableWith(manualAdjCheck, manualControls);
    grid->setColumnStretch(5, 1);
    return group;
}

QWidget *BatchSettingsViewController::makeCropGroup()
{
    auto *group = new QGroupBox(tr("Crop"));
    auto *grid = new QGridLayout(group);
    cropCheck = new QCheckBox(tr("Crop (pixels)"));
    grid->addWidget(cropCheck, 0, 0, 1, 4);
    const char *const captions[] = {QT_TR_NOOP("X"), QT_TR_NOOP("Y"), QT_TR_NOOP("W"), QT_TR_NOOP("H")};
    QList<QWidget *> controls;
    for (size_t i = 0; i < cropFields.size(); ++i) {
        cropFields[i] = numberField();
        auto *caption = new QLabel(tr(captions[i]));
        const int row = 1 + int(i) / 2, column = 2 * (int(i) % 2);
        grid->addWidget(caption, row, column, Qt::AlignRight);
        grid->addWidget(cropFields[i], row, column + 1);
        controls << caption << cropFields[i];
    }
    grid->setRowStretch(3, 1);
    enableWith(cropCheck, controls);
    return group;
}

QWidget *BatchSettingsViewController::makeResizeGroup()
{
    auto *group = new QGroupBox(tr("Resize"));
    auto *layout = new QVBoxLayout(group);
    resizeCheck = new QCheckBox(tr("Resize (pixels)"));
    layout->addWidget(resizeCheck);
    auto *size = new QHBoxLayout;
    resizeWField = numberField();
    resizeHField = numberField();
    auto *wCaption = new QLabel(tr("W")), *hCaption = new QLabel(tr("H"));
    fixedAspectCheck = new QCheckBox(tr("Fixed aspect ratio"));
    QList<QWidget *> controls{wCaption, resizeWField, hCaption, resizeHField, fixedAspectCheck};
    for (QWidget *widget : controls)
        size->addWidget(widget);
    size->addStretch();
    layout->addLayout(size);
    auto *modes = new QButtonGroup(group);
    for (size_t i = 0; i < resizeModeRadios.size(); ++i) {
        resizeModeRadios[i] = new QRadioButton(tr(resizeModeTexts[i]));
        modes->addButton(resizeModeRadios[i], int(i));
        layout->addWidget(resizeModeRadios[i]);
        controls << resizeModeRadios[i];
    }
    enableWith(resizeCheck, controls);
    connect(resizeWField, &QLineEdit::textEdited, this, [this] { keepAspect(resizeWField); });
    connect(resizeHField, &QLineEdit::textEdited, this, [this] { keepAspect(resizeHField); });
    connect(fixedAspectCheck, &QCheckBox::toggled, this, [this](bool on) {
        if (on)
            takeAspectRatio();
    });
    return group;
}

QWidget *BatchSettingsViewController::makeSpatialGroup()
{
    auto *group = new QGroupBox(tr("Spatial Photo"));
    auto *grid = new QGridLayout(group);
    const std::pair<const char *, const char *> rows[] = {{QT_TR_NOOP("Horizontal FOV"), QT_TR_NOOP("degree")},
                                                          {QT_TR_NOOP("Disparity Adjustment"), ""},
                                                          {QT_TR_NOOP("StereoBase"), QT_TR_NOOP("m")}};
    QLineEdit **fields[] = {&fovField, &adjField, &stbField};
    for (int i = 0; i < 3; ++i) {
        *fields[i] = numberField();
        grid->addWidget(new QLabel(tr(rows[i].first)), i, 0);
        grid->addWidget(*fields[i], i, 1);
        if (*rows[i].second)
            grid->addWidget(new QLabel(tr(rows[i].second)), i, 2);
    }
    resetSpatialButton = new QPushButton(tr("Reset to Default"));
    grid->addWidget(resetSpatialButton, 2, 3);
    grid->setColumnStretch(3, 1);
    connect(resetSpatialButton, &QPushButton::clicked, this, [this] {
        const SpatialPhotoSettings defaults;
        fillSpatial(defaults.fov, defaults.adj, defaults.stb);
    });
    return group;
}

std::array<std::pair<QLineEdit *, double BatchSettings::*>, 6> BatchSettingsViewController::decimalFields() const
{
    return {{{manualFields[0], &BatchSettings::manualH},
             {manualFields[1], &BatchSettings::manualV},
             {manualFields[2], &BatchSettings::manualRot},
             {manualFields[3], &BatchSettings::manualScale},
             {fovField, &BatchSettings::spatialFov},
             {stbField, &BatchSettings::spatialStb}}};
}

std::array<std::pair<QLineEdit *, int BatchSettings::*>, 6> BatchSettingsViewController::integerFields() const
{
    return {{{cropFields[0], &BatchSettings::cropX},
             {cropFields[1], &BatchSettings::cropY},
             {cropFields[2], &BatchSettings::cropW},
             {cropFields[3], &BatchSettings::cropH},
             {resizeWField, &BatchSettings::resizeW},
             {resizeHField, &BatchSettings::resizeH}}};
}

void BatchSettingsViewController::fill(const BatchSettings &s)
{
    const QString notSelected = tr(BatchSettings::notSelected);
    inputFolderLabel->setText(s.inputFolder.isEmpty() ? notSelected : s.inputFolder);
    outputFolderLabel->setText(s.outputFolder.isEmpty() ? notSelected : s.outputFolder);
    inputFormatPopUp->setCurrentIndex(int(s.inputFormat));
    outputFormatPopUp->setCurrentIndex(int(s.outputFormat));
    fileFormatPopUp->setCurrentIndex(int(s.fileFormat));
    const std::pair<QCheckBox *, bool> checks[] = {
        {pairByNameCheck, s.pairByName}, {swapCheck, s.swapLR},         {autoAdjCheck, s.autoAdj},
        {autoAdjColCheck, s.autoAdjCol}, {manualAdjCheck, s.manualAdj}, {cropCheck, s.cropEnabled},
        {resizeCheck, s.resizeEnabled}};
    for (const auto &[check, on] : checks)
        check->setChecked(on);
    referencePopUp->setCurrentIndex(s.autoAdjColLeft ? 1 : 0);
    for (const auto &[field, value] : decimalFields())
        field->setText(numberText(s.*value));
    for (const auto &[field, value] : integerFields())
        field->setText(QString::number(s.*value));
    adjField->setText(QString::number(s.spatialAdj));
    resizeModeRadios[size_t(s.resizeMode)]->setChecked(true);
    takeAspectRatio();
}

void BatchSettingsViewController::fillSpatial(double fov, int adj, double stb)
{
    fovField->setText(numberText(fov));
    adjField->setText(QString::number(adj));
    stbField->setText(numberText(stb));
}

void BatchSettingsViewController::takeAspectRatio()
{
    const std::optional<int> w = parseDecimalInteger(resizeWField->text().trimmed());
    const std::optional<int> h = parseDecimalInteger(resizeHField->text().trimmed());
    if (w && h && *w >= 1 && *h >= 1)
        aspectRatio = double(*w) / double(*h);
}

// With the ratio fixed, typing one side writes the other; isUpdating keeps that write from coming back.
void BatchSettingsViewController::keepAspect(QLineEdit *edited)
{
    if (!fixedAspectCheck->isChecked() || isUpdating || aspectRatio <= 0)
        return;
    const std::optional<int> value = parseDecimalInteger(edited->text().trimmed());
    if (!value || *value < 1)
        return;
    isUpdating = true;
    if (edited == resizeWField)
        resizeHField->setText(QString::number(std::lround(*value / aspectRatio)));
    else
        resizeWField->setText(QString::number(std::lround(*value * aspectRatio)));
    isUpdating = false;
}

BatchSettings BatchSettingsViewController::settings() const
{
    const BatchSettings defaults;
    BatchSettings s;
    // The label shows the translated "(Not selected)"; the record holds the text validation knows.
    const auto folderIn = [notSelected = tr(BatchSettings::notSelected)](const QLabel *label) {
        return label->text() == notSelected ? QString::fromLatin1(BatchSettings::notSelected) : label->text();
    };
    s.inputFolder = folderIn(inputFolderLabel);
    s.outputFolder = folderIn(outputFolderLabel);
    s.inputFormat = batchChoiceAt(batchInputFormats, inputFormatPopUp->currentIndex());
    s.outputFormat = batchChoiceAt(batchOutputFormats, outputFormatPopUp->currentIndex());
    s.fileFormat = batchChoiceAt(batchFileFormats, fileFormatPopUp->currentIndex());
    s.pairByName = pairByNameCheck->isChecked();
    s.swapLR = swapCheck->isChecked();
    s.autoAdj = autoAdjCheck->isChecked();
    s.autoAdjCol = autoAdjColCheck->isChecked();
    s.autoAdjColLeft = referencePopUp->currentIndex() == 1;
    s.manualAdj = manualAdjCheck->isChecked();
    s.cropEnabled = cropCheck->isChecked();
    s.resizeEnabled = resizeCheck->isChecked();
    for (const auto &[field, value] : decimalFields())
        s.*value = parseDecimalNumber(field->text().trimmed()).value_or(defaults.*value);
    for (const auto &[field, value] : integerFields())
        s.*value = parseDecimalInteger(field->text().trimmed()).value_or(defaults.*value);
    s.spatialAdj = truncatedDisparityAdjustment(adjField->text()).value_or(defaults.spatialAdj);
    s.resizeMode = resizeModeRadios[1]->isChecked()   ? ResizeMode::cropFit
                   : resizeModeRadios[2]->isChecked() ? ResizeMode::letterbox
                                                      : ResizeMode::stretch;
    return s;
}

void BatchSettingsViewController::accept()
{
    const BatchSettings chosen = settings();
    if (const std::optional<QString> failure = chosen.validate()) {
        alert(*failure);
        return;
    }
    chosen.save(preferences);
    QDialog::accept();
    emit settingsConfirmed(chosen);
}

} // namespace Vorel
