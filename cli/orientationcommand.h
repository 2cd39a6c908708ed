// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// `vorel-cli orientation VALUE FILE...`: rewrites the EXIF orientation of each file in place
// and prints the same summary as the application.
#pragma once

#include <QString>
#include <QStringList>

namespace Vorel {

struct OrientationRequest {
    int orientation = 1;
    QStringList files;
};

// Throws UsageError for a value outside 1..8 or a missing file list.
OrientationRequest parseOrientationArguments(const QStringList &arguments);

// Progress on stderr, the summary on stdout; true when every file was rewritten.
bool runOrientation(const OrientationRequest &request);

QString orientationUsage();

} // namespace Vorel
