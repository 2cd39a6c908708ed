// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/resizedialog.h"

#include <cmath>

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/decimaltext.h"
#include "core/preferences.h"

namespace Vorel {

namespace {

const char *const modeTexts[] = {
    QT_TRANSLATE_NOOP("Vorel::ResizeDialog", "Resize to specified size without maintaining aspect ratio"),
    QT_TRANSLATE_NOOP("Vorel::ResizeDialog", "Maintain aspect ratio - Crop the inside"),
    QT_TRANSLATE_NOOP("Vorel::ResizeDialog", "Maintain aspect ratio - Fill in the missing parts with black")};

std::optional<int> positive(const QLineEdit *field)
{
    const std::optional<int> value = parseDecimalInteger(field->text());
    return value && *value >= 1 ? value : std::nullopt;
}

QString sizeText(double w, double h) { return QStringLiteral("%1 × %2").arg(qint64(w)).arg(qint64(h)); }

} // namespace

ResizeDialog::ResizeDialog(const QSizeF &original, Preferences &store, QWidget *parent)
    : QDialog(parent), originalSize(original), aspectRatio(original.width() / original.height()), preferences(store)
{
    setWindowTitle(tr("Resize"));
    alert = [this](const QString &text) { QMessageBox::warning(this, tr("Resize"), text); };
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Current size: %1 px").arg(sizeText(original.width(), original.height()))));
    auto *form = new QFormLayout;
    widthField = new QLineEdit(QString::number(qint64(original.width())));
    heightField = new QLineEdit(QString::number(qint64(original.height())));
    form->addRow(tr("Width:"), widthField);
    form->addRow(tr("Height:"), heightField);
    layout->addLayout(form);
    lockAspectCheck = new QCheckBox(tr("Fixed aspect ratio"));
    lockAspectCheck->setChecked(true);
    layout->addWidget(lockAspectCheck);
    auto *modes = new QButtonGroup(this);
    for (int i = 0; i < 3; ++i) {
        modeRadios[i] = new QRadioButton(tr(modeTexts[i]));
        modes->addButton(modeRadios[i], i);
        layout->addWidget(modeRadios[i]);
    }
    modeRadios[0]->setChecked(true);
    previewLabel = new QLabel;
    layout->addWidget(previewLabel);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    layout->addWidget(buttons);

    connect(widthField, &QLineEdit::textChanged, this, &ResizeDialog::widthEdited);
    connect(heightField, &QLineEdit::textChanged, this, &ResizeDialog::heightEdited);
    connect(lockAspectCheck, &QCheckBox::toggled, this, &ResizeDialog::widthEdited);
    connect(modes, &QButtonGroup::idClicked, this, [this] { previewLabel->setText(previewText()); });
    connect(buttons, &QDialogButtonBox::accepted, this, &ResizeDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ResizeDialog::reject);
    previewLabel->setText(previewText());
}

// The lock writes the other field; isUpdating keeps that write from coming back.
void ResizeDialog::widthEdited()
{
    if (lockAspectCheck->isChecked() && !isUpdating)
        if (const std::optional<int> w = positive(widthField)) {
            isUpdating = true;
            heightField->setText(QString::number(std::lround(*w / aspectRatio)));
            isUpdating = false;
        }
    previewLabel->setText(previewText());
}

void ResizeDialog::heightEdited()
{
    if (lockAspectCheck->isChecked() && !isUpdating)
        if (const std::optional<int> h = positive(heightField)) {
            isUpdating = true;
            widthField->setText(QString::number(std::lround(*h * aspectRatio)));
            isUpdating = false;
        }
    previewLabel->setText(previewText());
}

ResizeMode ResizeDialog::mode() const
{
    if (modeRadios[1]->isChecked())
        return ResizeMode::cropFit;
    return modeRadios[2]->isChecked() ? ResizeMode::letterbox : ResizeMode::stretch;
}

QString ResizeDialog::previewText() const
{
    const std::optional<int> w = positive(widthField), h = positive(heightField);
    if (!w || !h)
        return {};
    const QString target = sizeText(*w, *h);
    switch (mode()) {
    case ResizeMode::cropFit: {
        const QSizeF region = cropFitRegion(originalSize, *w, *h);
        return tr("→ Extract the image’s center: %1 px → %2 px")
            .arg(sizeText(region.width(), region.height()), target);
    }
    case ResizeMode::stretch:
        return tr("→ Resize to %1 px").arg(target);
    case ResizeMode::letterbox: {
        const QSizeF fitted = letterboxFit(originalSize, *w, *h);
        return tr("→ %1 px（image %2 px）").arg(target, sizeText(fitted.width(), fitted.height()));
    }
    }
    return {};
}

void ResizeDialog::accept()
{
    const std::optional<int> w = positive(widthField), h = positive(heightField);
    if (!w || !h) {
        alert(tr("Please enter positive integers for width and height."));
        return;
    }
    preferences.setInteger(QStringLiteral("batch.resizeW"), *w);
    preferences.setInteger(QStringLiteral("batch.resizeH"), *h);
    preferences.setInteger(QStringLiteral("batch.resizeMode"), int(mode()));
    QDialog::accept();
    emit resizeConfirmed(*w, *h, mode());
}

} // namespace Vorel
