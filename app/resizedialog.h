// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The resize sheet (ResizeDialogViewController): a target size with an optional aspect lock,
// one of the three resize modes, and a one-line preview of what will happen.
#pragma once

#include <functional>

#include <QDialog>
#include <QSizeF>

#include "core/pairresize.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace Vorel {

class Preferences;

class ResizeDialog : public QDialog {
    Q_OBJECT
public:
    // `original`: the size of the images now; confirmation stores the choice in `preferences`.
    ResizeDialog(const QSizeF &original, Preferences &preferences, QWidget *parent = nullptr);

    QLineEdit *widthField;
    QLineEdit *heightField;
    QCheckBox *lockAspectCheck;
    QRadioButton *modeRadios[3]; // in ResizeMode order
    QLabel *previewLabel;

    // Shows a message; replaceable so tests can read alerts.
    std::function<void(const QString &)> alert;

    // The preview line for a target size and mode (empty without two positive integers).
    QString previewText() const;

public slots:
    void accept() override;

signals:
    void resizeConfirmed(int width, int height, Vorel::ResizeMode mode);

private:
    void widthEdited();
    void heightEdited();
    ResizeMode mode() const;

    QSizeF originalSize;
    double aspectRatio;
    Preferences &preferences;
    bool isUpdating = false;
};

} // namespace Vorel
