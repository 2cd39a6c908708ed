// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Turns what the user opens (one file, or a left and a right file) into the processor's
// source pair: MPO files by their first two pictures, spatial photos by their stereo pair,
// anything else as a side-by-side picture read upright.
#pragma once

#include <QString>

namespace Vorel {

class StereoImageProcessor;

// How a single file holds its pair. `byExtension` decides as the main window does:
// ".mpo" is tried as MPO, ".heic" as a spatial photo, ".jps" and ".pns" as JPS, and all of
// them fall back to side-by-side. `overUnder` has the left view on top; `jps` follows the
// file's stereo descriptor, right view first without one.
enum class StereoFileKind { byExtension, sideBySide, mpo, spatial, jps, overUnder };

struct StereoEntry {
    QString left;  // the file, or the left file of a separate pair
    QString right; // empty for a single file

    bool isSeparatePair() const { return !right.isEmpty(); }
};

// Why an entry could not be loaded: the reader's own error text ("Invalid MPO file", the
// spatial photo errors) or "Cannot open" with the file name.
struct StereoIntakeError {
    QString description;
};

// Loads the entry with history reset, strictly as `kind` says (`byExtension` as for
// openEntry), and the camera Exif of its (left) file. Throws StereoIntakeError, leaving the
// processor as it was, when it cannot.
void loadEntry(StereoImageProcessor &proc, const StereoEntry &entry, StereoFileKind kind);

// Loads the entry with history reset. Returns false, leaving the processor as it was,
// when the file(s) cannot be read. Reader errors are not reported: a file that fails as
// MPO or spatial photo is read as a side-by-side picture.
bool openEntry(StereoImageProcessor &proc, const StereoEntry &entry,
               StereoFileKind kind = StereoFileKind::byExtension);

} // namespace Vorel
