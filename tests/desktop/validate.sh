#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# validate.sh ROOT: the installed launcher, metainfo and MIME package pass their validators,
# and the metainfo agrees with the launcher and icons beside it.
set -euo pipefail
share=$1/usr/share
desktop-file-validate "$share"/applications/*.desktop
appstreamcli validate --no-net --explain "$share"/metainfo/*.metainfo.xml
appstreamcli validate-tree --no-net --explain "$1"
xmllint --noout "$share"/mime/packages/*.xml

# Software centres and file managers see the same file types.
diff -u --label "launcher MimeType" --label "metainfo mediatype" \
  <(sed -n 's/^MimeType=//p' "$share"/applications/*.desktop | tr ';' '\n' | sed '/^$/d' | sort) \
  <(sed -n 's|.*<mediatype>\(.*\)</mediatype>.*|\1|p' "$share"/metainfo/*.metainfo.xml | sort)

# The launcher's icon name finds the drawing and a rendering of the right size in every folder.
icon=$(sed -n 's/^Icon=//p' "$share"/applications/*.desktop)
test -f "$share/icons/hicolor/scalable/apps/$icon.svg"
for size in 16 22 24 32 48 64 128 256 512; do
  png=$share/icons/hicolor/${size}x$size/apps/$icon.png
  # The PNG header's width and height, big-endian 32-bit numbers at bytes 16 and 20.
  read -r width height < <(od -An -tu4 --endian=big -j16 -N8 "$png")
  [[ $width == "$size" && $height == "$size" ]] || { echo "$png is ${width}x$height"; exit 1; }
done
