// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The photo library choices of the settings window: which picker "Open from Photos Library..."
// shows ("photos.picker": "original" for the album window, "system" for the desktop's file
// chooser) and the album folders beyond Pictures ("photos.folders").
#pragma once

#include <QStringList>

namespace Vorel
{

class Preferences;

enum class PhotoPicker { original, system };

struct PhotoSettings {
    PhotoPicker picker = PhotoPicker::original;
    QStringList folders;

    static PhotoSettings load(const Preferences &preferences);
    void save(Preferences &preferences) const;
    bool operator==(const PhotoSettings &) const = default;
};

} // namespace Vorel
