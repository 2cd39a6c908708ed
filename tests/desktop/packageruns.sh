#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# packageruns.sh DIR VERSION: both programs, unpacked from the package, run and report VERSION.
set -euo pipefail
dir=$1 version=$2
root=$dir/root
rm -rf "$root"
dpkg -x "$dir"/vorel_*.deb "$root"
for program in vorel vorel-cli; do
  printed=$("$root/usr/bin/$program" --version)
  [[ $printed == "$program $version" ]] || { echo "$program --version: $printed"; exit 1; }
done
