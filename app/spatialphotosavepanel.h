// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// "Save as Spatial Photo": a save dialog with the three parameters of the spatial photo
// (field of view, disparity adjustment, stereo base), checked as they are typed.
#pragma once

#include <functional>

#include <QFileDialog>

class QLineEdit;
class QPushButton;

namespace Vorel {

class Preferences;

class SpatialPhotoSavePanel : public QFileDialog {
    Q_OBJECT
public:
    using Completion = std::function<void(const QString &path, double fov, int adj, double stb)>;

    // The fields start from the values stored in `preferences`, which confirmation updates.
    SpatialPhotoSavePanel(Preferences &preferences, QWidget *parent = nullptr);

    // Called after confirmation, with the values as stored.
    Completion completion;

    // A sheet on the parent window when there is one, else an application-modal dialog.
    void show();

    QLineEdit *fovField;
    QLineEdit *adjField;
    QLineEdit *stbField;
    QPushButton *resetButton;

    bool fieldsValid() const;

public slots:
    void accept() override;

private:
    void fill(double fov, int adj, double stb);
    void validate();
    void complete(const QString &path);

    Preferences &preferences;
};

} // namespace Vorel
