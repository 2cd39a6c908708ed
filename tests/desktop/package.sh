#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# package.sh BUILD_DIR DIR: builds the Debian package of the build tree into a fresh DIR.
set -euo pipefail
build=$1 dir=$2
rm -rf "$dir"
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$dir"
