#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# install.sh BUILD_DIR ROOT: a fresh `cmake --install` of the build under ROOT, prefix /usr.
set -euo pipefail
build=$1 root=$2
rm -rf "$root"
DESTDIR=$root cmake --install "$build" --prefix /usr >/dev/null
