// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/spatialphotosavepanel.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "core/preferences.h"
#include "formats/spatialphotosettings.h"

namespace Vorel {

namespace {

constexpr int accessoryWidth = 500; // the reset button's right edge
constexpr int accessoryHeight = 130;

// Places a child by its bottom-left based rectangle.
template <typename Widget> Widget *place(Widget *widget, QWidget *parent, int x, int y, int w, int h)
{
    widget->setParent(parent);
    widget->setGeometry(x, accessoryHeight - y - h, w, h);
    return widget;
}

QLabel *label(const QString &text, bool secondary)
{
    auto *l = new QLabel(text);
    QFont font = l->font();
    font.setPointSize(12);
    l->setFont(font);
    if (secondary)
        l->setForegroundRole(QPalette::PlaceholderText);
    return l;
}

QString fovText(double fov) { return QString::number(fov, 'g', QLocale::FloatingPointShortest); }
QString stbText(double stb) { return QString::asprintf("%.6f", stb); }

} // namespace

SpatialPhotoSavePanel::SpatialPhotoSavePanel(Preferences &store, QWidget *parent)
    : QFileDialog(parent, tr("Save as Spatial Photo")), preferences(store)
{
    // The platform dialogs take no extra widgets, so the parameters need Qt's own dialog.
    setOption(QFileDialog::DontUseNativeDialog);
    setAcceptMode(QFileDialog::AcceptSave);
    setFileMode(QFileDialog::AnyFile);
    setNameFilter(tr("HEIC (*.heic)"));
    setDefaultSuffix(QStringLiteral("heic"));
    selectFile(QStringLiteral("spatial.heic"));

    auto *accessory = new QWidget;
    accessory->setFixedSize(accessoryWidth, accessoryHeight);
    auto *separator = place(new QFrame, accessory, 0, 108, accessoryWidth, 1);
    separator->setFrameShape(QFrame::HLine);
    QLabel *heading = place(label(tr("Spatial Photo Parameters"), true), accessory, 16, 84, 200, 18);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    QFont digits = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    digits.setPointSize(12);
    const auto row = [&](int y, const QString &caption, const QString &unit) {
        place(label(caption, false), accessory, 16, y, 210, 22);
        auto *field = place(new QLineEdit, accessory, 234, y, 110, 22);
        field->setFont(digits);
        connect(field, &QLineEdit::textEdited, this, &SpatialPhotoSavePanel::validate);
        if (!unit.isEmpty())
            place(label(unit, true), accessory, 348, y, 28, 22);
        return field;
    };
    fovField = row(58, tr("Horizontal FOV"), tr("degree"));
    adjField = row(32, tr("Disparity Adjustment"), QString());
    stbField = row(6, tr("StereoBase"), tr("m"));
    resetButton = place(new QPushButton(tr("Reset to Default")), accessory, 380, 6, 120, 22);
    resetButton->setAttribute(Qt::WA_MacSmallSize);
    connect(resetButton, &QPushButton::clicked, this, [this] {
        const SpatialPhotoSettings defaults;
        fill(defaults.fov, defaults.adj, defaults.stb);
        validate();
    });
    if (auto *grid = qobject_cast<QGridLayout *>(layout()))
        grid->addWidget(accessory, grid->rowCount(), 0, 1, grid->columnCount());

    const SpatialPhotoSettings stored = SpatialPhotoSettings::load(preferences);
    fill(stored.fov, stored.adj, stored.stb);
    connect(this, &QFileDialog::fileSelected, this, &SpatialPhotoSavePanel::complete);
}

void SpatialPhotoSavePanel::show()
{
    if (parentWidget()) {
        open();
        return;
    }
    setWindowModality(Qt::ApplicationModal);
    QFileDialog::show();
}

void SpatialPhotoSavePanel::fill(double fov, int adj, double stb)
{
    fovField->setText(fovText(fov));
    adjField->setText(QString::number(adj));
    stbField->setText(stbText(stb));
}

bool SpatialPhotoSavePanel::fieldsValid() const
{
    return parseFieldOfView(fovField->text()) && parseDisparityAdjustment(adjField->text()) &&
           parseStereoBase(stbField->text());
}

void SpatialPhotoSavePanel::validate()
{
    const std::pair<QLineEdit *, bool> fields[] = {{fovField, bool(parseFieldOfView(fovField->text()))},
                                                   {adjField, bool(parseDisparityAdjustment(adjField->text()))},
                                                   {stbField, bool(parseStereoBase(stbField->text()))}};
    for (const auto &[field, valid] : fields)
        field->setStyleSheet(valid ? QString() : QStringLiteral("QLineEdit { background-color: rgba(255, 0, 0, 38); }"));
    if (auto *buttons = findChild<QDialogButtonBox *>())
        if (QPushButton *save = buttons->button(QDialogButtonBox::Save))
            save->setEnabled(fieldsValid());
}

void SpatialPhotoSavePanel::accept()
{
    if (fieldsValid()) // the dialog re-enables its button as the file name changes
        QFileDialog::accept();
}

void SpatialPhotoSavePanel::complete(const QString &path)
{
    const SpatialPhotoSettings stored = SpatialPhotoSettings::load(preferences);
    SpatialPhotoSettings chosen;
    chosen.fov = parseFieldOfView(fovField->text()).value_or(stored.fov);
    chosen.adj = parseDisparityAdjustment(adjField->text()).value_or(stored.adj);
    chosen.stb = parseStereoBase(stbField->text()).value_or(stored.stb);
    chosen.save(preferences);
    if (completion)
        completion(path, chosen.fov, chosen.adj, chosen.stb);
}

} // namespace Vorel
