#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Quick start:  ./vorel.sh run   installs what is missing, builds, opens the sample pair
#               ./vorel.sh test  installs what is missing, builds, runs the whole test suite
set -euo pipefail
cd "$(dirname "$0")"

build() {
  scripts/install-deps.sh
  cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
  cmake --build build
}

case "${1:-}" in
  run)
    build
    sample=tests/data/mpo/Panasonic-DMC-GX8.mpo
    if [[ -z "${DISPLAY:-}" && -z "${WAYLAND_DISPLAY:-}" ]]; then
      echo "No display found: starting Vorel on a virtual X server (xvfb-run)."
      exec xvfb-run -a build/app/vorel "$sample"
    fi
    exec build/app/vorel "$sample"
    ;;
  test)
    build
    cd build
    exec ctest --output-on-failure --timeout 600 -j 2
    ;;
  *)
    echo "usage: $0 run|test" >&2
    exit 2
    ;;
esac
