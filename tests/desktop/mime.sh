#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# mime.sh ROOT TEST_DATA: with the installed MIME package in the database, the stereo files get
# the types the launcher claims, by name and (MPO) by content, and a plain JPEG stays a JPEG.
set -euo pipefail
share=$1/usr/share data=$2
command -v mimetype >/dev/null || { echo "xdg-mime needs mimetype (libfile-mimeinfo-perl)"; exit 1; }
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

export XDG_DATA_DIRS=$share:/usr/share XDG_DATA_HOME=$scratch/home
# No desktop session: xdg-mime asks the shared MIME database itself, not a desktop's tools.
unset XDG_CURRENT_DESKTOP DESKTOP_SESSION KDE_FULL_SESSION GNOME_DESKTOP_SESSION_ID DISPLAY WAYLAND_DISPLAY
update-mime-database "$share/mime"

cp "$data/mpo/frozenpond.mpo" "$scratch/frozenpond"
cp "$data/stereo/left.jpg" "$scratch/left"
cp "$data/stereo/left.jpg" "$scratch/pair.jps"
cp "$data/stereo/motorcycle_left.png" "$scratch/pair.pns"
claimed=$(sed -n 's/^MimeType=//p' "$share"/applications/*.desktop)
status=0
while read -r file expected; do
  type=$(xdg-mime query filetype "$file")
  if [[ $type != "$expected" ]]; then
    echo "$file: $type, expected $expected"; status=1
  elif [[ ";$claimed" != *";$type;"* ]]; then
    echo "$file: $type is not in the launcher's MimeType"; status=1
  fi
done <<LIST
$data/mpo/frozenpond.mpo image/x-mpo
$scratch/frozenpond image/x-mpo
$scratch/pair.jps image/x-jps
$scratch/pair.pns image/x-pns
$scratch/left image/jpeg
LIST
exit $status
