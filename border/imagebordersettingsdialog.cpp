// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/imagebordersettingsdialog.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "border/coloreyedroppersheet.h"
#include "border/colorwellwidget.h"
#include "core/preferences.h"

namespace Vorel {

namespace {

constexpr double dimmedOpacity = 0.4;

QString oneDecimal(double value) { return QString::asprintf("%.1f", value); }

double parsedOr(const QLineEdit *field, double fallback)
{
    bool ok = false;
    const double value = field->text().toDouble(&ok);
    return ok ? value : fallback;
}

QLineEdit *numberField(const QString &name, double value, QWidget *parent)
{
    auto *field = new QLineEdit(oneDecimal(value), parent);
    field->setObjectName(name);
    field->setMaximumWidth(80);
    return field;
}

// A group below its check box: fully shown and enabled when checked, dimmed and disabled not.
QWidget *followingGroup(QCheckBox *check, QLayout *contents, QWidget *parent)
{
    auto *group = new QWidget(parent);
    group->setLayout(contents);
    auto *opacity = new QGraphicsOpacityEffect(group);
    group->setGraphicsEffect(opacity);
    const auto follow = [group, opacity](bool on) {
        group->setEnabled(on);
        opacity->setOpacity(on ? 1.0 : dimmedOpacity);
    };
    follow(check->isChecked());
    QObject::connect(check, &QCheckBox::toggled, group, follow);
    return group;
}

} // namespace

ImageBorderSettingsDialog::ImageBorderSettingsDialog(const ImageBorderSettings &settings,
                                                     std::optional<QImage> reference, Preferences &preferences,
                                                     QWidget *parent)
    : QDialog(parent)
    , reference(std::move(reference))
    , preferences(preferences)
    , layoutPopup(new QComboBox(this))
    , useBorder(new QCheckBox(tr("Add Border"), this))
    , borderWidth(numberField(QStringLiteral("borderWidth"), settings.borderWidthPercent, this))
    , borderColor(new ColorWellWidget(this))
    , cornerRadius(numberField(QStringLiteral("cornerRadius"), settings.cornerRadiusPercent, this))
    , blur(numberField(QStringLiteral("blur"), settings.borderBlur, this))
    , useFusionDots(new QCheckBox(tr("Use fusion dots"), this))
    , dotColor(new ColorWellWidget(this))
    , dotSize(numberField(QStringLiteral("dotSize"), settings.fusionDotSizePercent, this))
{
    setWindowTitle(tr("Image with border settings"));
    setWindowModality(Qt::WindowModal);

    for (const BorderLayoutInfo &info : borderLayouts)
        layoutPopup->addItem(tr(info.uiText));
    layoutPopup->setCurrentIndex(static_cast<int>(settings.layoutKind));
    layoutPopup->setObjectName(QStringLiteral("layout"));
    useBorder->setChecked(settings.useBorder);
    useBorder->setObjectName(QStringLiteral("useBorder"));
    useFusionDots->setChecked(settings.useFusionDots);
    useFusionDots->setObjectName(QStringLiteral("useFusionDots"));
    borderColor->setColor(settings.borderColor);
    borderColor->setObjectName(QStringLiteral("borderColor"));
    dotColor->setColor(settings.fusionDotColor);
    dotColor->setObjectName(QStringLiteral("dotColor"));
    blur->hide();

    auto *layoutRow = new QFormLayout;
    layoutRow->addRow(tr("Image layout"), layoutPopup);

    auto *borderRows = new QFormLayout;
    borderRows->addRow(tr("Widht (%):"), borderWidth);
    borderRows->addRow(tr("Color:"), makeColorRow(borderColor));
    borderRows->addRow(tr("Round Corners (%):"), cornerRadius);

    auto *dotRows = new QFormLayout;
    dotRows->addRow(tr("Color:"), makeColorRow(dotColor));
    dotRows->addRow(tr("Size (%):"), dotSize);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &ImageBorderSettingsDialog::confirm);
    connect(buttons, &QDialogButtonBox::rejected, this, [this] {
        closePalette();
        reject();
    });

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(layoutRow);
    layout->addWidget(useBorder);
    layout->addWidget(followingGroup(useBorder, borderRows, this));
    layout->addWidget(useFusionDots);
    layout->addWidget(followingGroup(useFusionDots, dotRows, this));
    layout->addWidget(buttons);
}

QWidget *ImageBorderSettingsDialog::makeColorRow(ColorWellWidget *well)
{
    auto *row = new QWidget(this);
    auto *eyedropper = new QToolButton(row);
    eyedropper->setIcon(QIcon::fromTheme(QStringLiteral("color-picker")));
    eyedropper->setText(tr("Pick"));
    eyedropper->setToolTip(tr("Extract colors from an image"));
    auto *paletteButton = new QToolButton(row);
    paletteButton->setIcon(QIcon::fromTheme(QStringLiteral("color-management")));
    paletteButton->setText(tr("Palette"));
    paletteButton->setToolTip(tr("Open the color palette"));
    connect(eyedropper, &QToolButton::clicked, this, [this, well] { pickFromImage(well); });
    connect(paletteButton, &QToolButton::clicked, this, [this, well] { openPalette(well, well->color()); });

    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(well);
    layout->addWidget(eyedropper);
    layout->addWidget(paletteButton);
    layout->addStretch();
    return row;
}

// One palette for both wells; every change in it goes straight into the well that opened it.
void ImageBorderSettingsDialog::openPalette(ColorWellWidget *well, const SrgbColor &start)
{
    if (!palette) {
        palette = new QColorDialog(this);
        palette->setOptions(QColorDialog::ShowAlphaChannel | QColorDialog::NoButtons);
        palette->setWindowTitle(tr("Colors"));
    }
    palette->disconnect(this);
    palette->setCurrentColor(start.toQColor());
    connect(palette, &QColorDialog::currentColorChanged, this,
            [well](const QColor &color) { well->setColor(SrgbColor::fromQColor(color)); });
    palette->show();
    palette->raise();
}

void ImageBorderSettingsDialog::pickFromImage(ColorWellWidget *well)
{
    if (!reference || reference->isNull()) {
        openPalette(well, SrgbColor{1, 1, 1, 1});
        return;
    }
    auto *sheet = new ColorEyedropperSheet(*reference, this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &ColorEyedropperSheet::colorPicked, well, &ColorWellWidget::setColor);
    sheet->open();
}

ImageBorderSettings ImageBorderSettingsDialog::settings() const
{
    ImageBorderSettings s;
    switch (layoutPopup->currentIndex()) {
    case 1:
        s.layoutKind = BorderLayoutKind::lrl;
        break;
    case 2:
        s.layoutKind = BorderLayoutKind::lrrl;
        break;
    default:
        s.layoutKind = BorderLayoutKind::sbs;
    }
    s.useBorder = useBorder->isChecked();
    s.borderWidthPercent = parsedOr(borderWidth, 3.0);
    s.borderColor = borderColor->color();
    s.cornerRadiusPercent = parsedOr(cornerRadius, 0.0);
    s.borderBlur = parsedOr(blur, 0.0);
    s.useFusionDots = useFusionDots->isChecked();
    s.fusionDotColor = dotColor->color();
    s.fusionDotSizePercent = parsedOr(dotSize, 3.0);
    return s;
}

void ImageBorderSettingsDialog::confirm()
{
    const ImageBorderSettings confirmed = settings();
    closePalette();
    confirmed.save(preferences);
    accept();
    emit settingsConfirmed(confirmed);
}

void ImageBorderSettingsDialog::closePalette()
{
    if (palette)
        palette->hide();
}

} // namespace Vorel
