// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "photos/photosettings.h"

#include "core/preferences.h"
#include "photos/photolibrary.h"

namespace Vorel
{

namespace
{

const QString pickerKey = QStringLiteral("photos.picker");
const QString systemPicker = QStringLiteral("system");
const QString originalPicker = QStringLiteral("original");

} // namespace

PhotoSettings PhotoSettings::load(const Preferences &preferences)
{
    return { preferences.text(pickerKey) == systemPicker ? PhotoPicker::system : PhotoPicker::original,
        libraryFolders(preferences) };
}

void PhotoSettings::save(Preferences &preferences) const
{
    preferences.setText(pickerKey, picker == PhotoPicker::system ? systemPicker : originalPicker);
    setLibraryFolders(preferences, folders);
}

} // namespace Vorel
