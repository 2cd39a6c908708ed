// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// One orientation rewrite run over several files: the eight choices, the per-file outcome,
// the progress text and the summary shared by the dialog and vorel-cli.
#pragma once

#include <array>
#include <functional>

#include <QList>
#include <QString>
#include <QStringList>

namespace Vorel {

// The EXIF orientation values in menu order; value = position + 1.
inline constexpr std::array<const char *, 8> orientationLabels = {
    QT_TRANSLATE_NOOP("ExifOrientationPanel", "1 - No rotation (normal)"),
    QT_TRANSLATE_NOOP("ExifOrientationPanel", "2 - Mirror horizontal"),
    QT_TRANSLATE_NOOP("ExifOrientationPanel", "3 - Rotate 180°"),
    QT_TRANSLATE_NOOP("ExifOrientationPanel", "4 - Mirror vertical"),
    QT_TRANSLATE_NOOP("ExifOrientationPanel", "5 - Mirror horizontal + Rotate 270°"),
    QT_TRANSLATE_NOOP("ExifOrientationPanel", "6 - Rotate 90° clockwise"),
    QT_TRANSLATE_NOOP("ExifOrientationPanel", "7 - Mirror horizontal + Rotate 90°"),
    QT_TRANSLATE_NOOP("ExifOrientationPanel", "8 - Rotate 270° clockwise"),
};

struct ProcessResult {
    QString fileName; // without the folder
    bool success = false;
    QString message;
};

// Rewrites one file; a failure becomes an unsuccessful result carrying the error's text.
ProcessResult rewriteOrientation(const QString &path, int orientation);

// Rewrites the files one after another, calling `filesDone(n)` after the n-th; a failed file
// does not stop the others.
QList<ProcessResult> rewriteOrientations(
    const QStringList &paths, int orientation, const std::function<void(int)> &filesDone = {});

QString translatedOrientationLabel(int orientation);
QString progressText(int filesDone, int fileCount);
QString summaryText(const QList<ProcessResult> &results);

} // namespace Vorel
