// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/exiforientationpanel.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QGridLayout>

#include "formats/orientationrewritedialog.h"
#include "formats/panelaccessoryview.h"

namespace Vorel {

QFileDialog *ExifOrientationPanel::createChooser(QWidget *parent, PanelAccessoryView **accessory)
{
    auto *chooser = new QFileDialog(parent, tr("Exif Orientation Rewrite"));
    // The platform dialogs take no extra widgets, so the accessory needs Qt's own dialog.
    chooser->setOption(QFileDialog::DontUseNativeDialog);
    chooser->setFileMode(QFileDialog::ExistingFiles);
    chooser->setAcceptMode(QFileDialog::AcceptOpen);
    chooser->setLabelText(QFileDialog::Accept, tr("Rewrite Exif"));
    chooser->setNameFilters({tr("Images (*.jpg *.jpeg *.png *.tif *.tiff *.heic *.heif)"), tr("JPEG (*.jpg *.jpeg)"),
        tr("PNG (*.png)"), tr("TIFF (*.tif *.tiff)"), tr("HEIC (*.heic *.heif)")});
    *accessory = new PanelAccessoryView(chooser);
    if (auto *grid = qobject_cast<QGridLayout *>(chooser->layout()))
        grid->addWidget(*accessory, grid->rowCount(), 0, 1, grid->columnCount());
    return chooser;
}

void ExifOrientationPanel::show(QWidget *parent)
{
    PanelAccessoryView *accessory = nullptr;
    QFileDialog *chooser = createChooser(parent, &accessory);
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(chooser, &QFileDialog::filesSelected, chooser, [parent, accessory](const QStringList &files) {
        auto *run = new OrientationRewriteDialog(files, accessory->selectedOrientationValue(), parent);
        run->setAttribute(Qt::WA_DeleteOnClose);
        run->show();
        run->start();
    });
    chooser->open();
}

} // namespace Vorel
