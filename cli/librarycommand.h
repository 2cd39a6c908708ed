// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// `vorel-cli library`: the photo library's albums, or one folder's pictures, as JSON lines;
// optionally fills the shared thumbnail cache for them.
#pragma once

#include <QString>
#include <QStringList>

namespace Vorel {

// The exit status; throws UsageError.
int runLibrary(const QStringList &arguments);

QString libraryUsage();

} // namespace Vorel
