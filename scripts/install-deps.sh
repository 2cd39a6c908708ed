#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs every Debian 12 package that building, running and testing Vorel needs.
# Only what is missing is installed; run as root.
set -euo pipefail

packages=(
  g++ cmake ninja-build pkg-config
  qt6-base-dev qt6-image-formats-plugins libgl-dev
  libturbojpeg0-dev libjpeg62-turbo-dev libheif-dev libexiv2-dev liblcms2-dev zlib1g-dev libopenblas-serial-dev
  libgtest-dev libgmock-dev libbenchmark-dev libimage-exiftool-perl python3-pil
  xvfb xauth x11-apps
  parallel
  librsvg2-bin desktop-file-utils appstream libxml2-utils shared-mime-info xdg-utils
  libfile-mimeinfo-perl man-db dpkg-dev lintian
  qt6-l10n-tools qt6-tools-dev qt6-translations-l10n
  clang libclang-rt-14-dev # tests/fuzz/run.sh: clang 14 with the libFuzzer and sanitizer run-times
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if ((${#missing[@]})); then
  echo "Installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
