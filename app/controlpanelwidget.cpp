// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/controlpanelwidget.h"

#include <cmath>
#include <span>

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStandardItemModel>
#include <QVBoxLayout>

namespace Vorel {

namespace {

// Sliders move in tenths, so arrow-key steps of 0.5 show exactly.
constexpr int sliderSteps = 10;

struct SliderSpec {
    const char *caption;
    double StereoAdjustment::*field;
    int minimum, maximum;
};
constexpr SliderSpec sliderSpecs[] = {
    {QT_TRANSLATE_NOOP("Vorel::ControlPanelWidget", "X"), &StereoAdjustment::horizontalOffset, -20, 20},
    {QT_TRANSLATE_NOOP("Vorel::ControlPanelWidget", "Y"), &StereoAdjustment::verticalOffset, -20, 20},
    {QT_TRANSLATE_NOOP("Vorel::ControlPanelWidget", "Rot."), &StereoAdjustment::rotation, -45, 45},
    {QT_TRANSLATE_NOOP("Vorel::ControlPanelWidget", "Size"), &StereoAdjustment::scale, -100, 100},
};

} // namespace

ControlPanelWidget::ControlPanelWidget(QWidget *parent) : QTabWidget(parent)
{
    QWidget *file =
        makeButtonPage({tr("Open image files..."), tr("Open from Photos Library..."), tr("Save Display Image..."),
                        tr("Save as Spatial Photo..."), tr("Batch operation..."), tr("Orientation Tag Edit...")});
    auto *navigation = new QHBoxLayout;
    for (const QString &text : {tr("Prev."), tr("Next")}) {
        auto *b = new QPushButton(text);
        navigation->addWidget(b);
    }
    auto *fileLayout = static_cast<QVBoxLayout *>(file->layout());
    fileLayout->insertLayout(fileLayout->count() - 1, navigation);
    fileInformation = new QLabel;
    fileInformation->setWordWrap(true);
    fileInformation->setTextInteractionFlags(Qt::TextSelectableByMouse);
    fileLayout->insertWidget(fileLayout->count() - 1, fileInformation);
    recentFiles = new QComboBox;
    fileLayout->insertWidget(fileLayout->count() - 1, recentFiles);
    connect(recentFiles, &QComboBox::activated, this, [this](int item) {
        const int index = recentFiles->itemData(item).toInt(); // the title item has none: -1
        recentFiles->setCurrentIndex(0);
        if (index >= 0)
            emit recentChosen(index);
    });
    setRecentTitles({});
    addTab(file, tr("File"));
    addTab(makeEditPage(), tr("Edit"));
    addTab(makeViewPage(), tr("View"));
    addTab(makeAdjustmentPage(), tr("Adjust"));
    setMinimumWidth(220);
}

void ControlPanelWidget::setRecentTitles(const QStringList &titles)
{
    recentFiles->clear();
    recentFiles->addItem(tr("Recent Files"), -1);
    if (titles.isEmpty()) {
        recentFiles->addItem(tr("(No history)"), -1);
        if (auto *model = qobject_cast<QStandardItemModel *>(recentFiles->model()))
            model->item(1)->setEnabled(false);
    }
    for (int i = 0; i < titles.size(); ++i)
        recentFiles->addItem(titles[i], i);
}

QWidget *ControlPanelWidget::makeButtonPage(const QStringList &texts)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    for (const QString &text : texts)
        layout->addWidget(new QPushButton(text));
    layout->addStretch();
    return page;
}

QWidget *ControlPanelWidget::makeEditPage()
{
    QWidget *page = makeButtonPage({tr("Undo"), tr("Redo")});
    auto *layout = static_cast<QVBoxLayout *>(page->layout());
    auto *colours = new QGroupBox(tr("Auto Color Matching"));
    auto *references = new QHBoxLayout(colours);
    for (const QString &text : {tr("Left ref"), tr("Right ref")})
        references->addWidget(new QPushButton(text));
    layout->insertWidget(layout->count() - 1, colours);
    for (const QString &text : {tr("Auto align"), tr("Crop"), tr("Resize")})
        layout->insertWidget(layout->count() - 1, new QPushButton(text));
    return page;
}

QWidget *ControlPanelWidget::makeViewPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    swapButton = new QCheckBox(tr("Swap L/R"));
    layout->addWidget(swapButton);
    connect(swapButton, &QAbstractButton::clicked, this, &ControlPanelWidget::swapClicked);
    const std::span modes(displayModes);
    modeButtons = new QButtonGroup(page);
    for (const DisplayModeInfo &info : modes.first(classicDisplayModeCount)) {
        auto *button = new QRadioButton(QCoreApplication::translate("DisplayMode", info.uiText));
        modeButtons->addButton(button, int(info.mode));
        layout->addWidget(button);
    }
    connect(modeButtons, &QButtonGroup::idClicked, this, [this](int mode) { emit modeChosen(DisplayMode(mode)); });
    // Fifteen radio buttons would crowd the page: the later modes share one list.
    auto *more = new QHBoxLayout;
    more->addWidget(new QLabel(tr("More:")));
    moreModes = new QComboBox;
    for (const DisplayModeInfo &info : modes.subspan(classicDisplayModeCount))
        moreModes->addItem(QCoreApplication::translate("DisplayMode", info.uiText), int(info.mode));
    more->addWidget(moreModes, 1);
    layout->addLayout(more);
    connect(moreModes, &QComboBox::activated, this,
            [this](int item) { emit modeChosen(DisplayMode(moreModes->itemData(item).toInt())); });
    setMode(DisplayMode::sbs);
    for (const QString &text : {tr("Image with border settings"), tr("Full screen"), tr("External monitor"), tr("Fit to screen"), tr("Actual image size")})
        layout->addWidget(new QPushButton(text));
    layout->addStretch();
    return page;
}

QWidget *ControlPanelWidget::makeAdjustmentPage()
{
    auto *page = new QWidget;
    auto *grid = new QGridLayout(page);
    for (size_t i = 0; i < sliders.size(); ++i) {
        const SliderSpec &spec = sliderSpecs[i];
        auto *slider = new QSlider(Qt::Horizontal);
        slider->setRange(spec.minimum * sliderSteps, spec.maximum * sliderSteps);
        slider->setSingleStep(sliderSteps / 2);
        slider->setPageStep(sliderSteps);
        auto *value = new QLabel(formatValue(0));
        value->setMinimumWidth(40);
        grid->addWidget(new QLabel(tr(spec.caption)), int(i), 0);
        grid->addWidget(slider, int(i), 1);
        grid->addWidget(value, int(i), 2);
        sliders[i] = {slider, value};
        connect(slider, &QSlider::valueChanged, this, &ControlPanelWidget::onSliderMoved);
    }
    auto *reset = new QPushButton(tr("Reset"));
    grid->addWidget(reset, int(sliders.size()), 0, 1, 3);
    grid->setRowStretch(int(sliders.size()) + 1, 1);
    connect(reset, &QPushButton::clicked, this, [this] {
        showAdjustment({});
        emit adjustmentChanged(current);
    });
    return page;
}

void ControlPanelWidget::onSliderMoved()
{
    if (updating)
        return;
    // All four sliders are read at once, not only the moved one.
    for (size_t i = 0; i < sliders.size(); ++i) {
        const double value = double(sliders[i].slider->value()) / sliderSteps;
        current.*sliderSpecs[i].field = value;
        sliders[i].value->setText(formatValue(value));
    }
    emit adjustmentChanged(current);
}

void ControlPanelWidget::showAdjustment(const StereoAdjustment &adjustment)
{
    current = adjustment;
    updating = true;
    for (size_t i = 0; i < sliders.size(); ++i) {
        const double value = adjustment.*sliderSpecs[i].field;
        sliders[i].slider->setValue(int(std::lround(value * sliderSteps)));
        sliders[i].value->setText(formatValue(value));
    }
    updating = false;
}

QString ControlPanelWidget::formatValue(double value)
{
    return QString::asprintf(value == std::trunc(value) ? "%.0f" : "%.1f", value);
}

void ControlPanelWidget::setMode(DisplayMode mode)
{
    // An exclusive group keeps one button checked: it lets go while the marks are set.
    modeButtons->setExclusive(false);
    for (QAbstractButton *button : modeButtons->buttons())
        button->setChecked(modeButtons->id(button) == int(mode));
    modeButtons->setExclusive(true);
    moreModes->setCurrentIndex(moreModes->findData(int(mode)));
}

void ControlPanelWidget::setSwapped(bool swapped) { swapButton->setChecked(swapped); }
void ControlPanelWidget::setFileInformation(const QString &text) { fileInformation->setText(text); }

void ControlPanelWidget::setNavigationEnabled(bool previous, bool next)
{
    button(tr("Prev."))->setEnabled(previous);
    button(tr("Next"))->setEnabled(next);
}

void ControlPanelWidget::setUndoEnabled(bool undo, bool redo)
{
    button(tr("Undo"))->setEnabled(undo);
    button(tr("Redo"))->setEnabled(redo);
}

QPushButton *ControlPanelWidget::button(const QString &text) const
{
    for (QPushButton *b : findChildren<QPushButton *>())
        if (b->text() == text)
            return b;
    return nullptr;
}

} // namespace Vorel
