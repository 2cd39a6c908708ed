#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Quick start:  ./vorel.sh run   installs what is missing, builds, opens the sample pair
#               ./vorel.sh test  installs what is missing, builds, runs the whole test suite, then
#                                runs it again under AddressSanitizer and UndefinedBehaviorSanitizer
#                                (build-asan), the threaded code's tests under ThreadSanitizer
#                                (build-tsan) and every fuzz target for 20 seconds (build-fuzz)
# The sanitizer stages alone: ./vorel.sh test-asan, ./vorel.sh test-tsan
set -euo pipefail
cd "$(dirname "$0")"

# The test executables of the code that runs on several threads: row workers (pair adjustment,
# keypoint search, colour conversion, two-core encoding), border composer, batch processor and
# its window, orientation rewrite run, library scan and thumbnail workers, and the windows that
# show their results.
threaded_tests=(test_core test_align test_imageio test_border test_bordermode test_batch
  test_batchprogressviewcontroller test_exiforientationwriter test_orientationrewritedialog
  test_photolibrary test_photowindows test_photomode)

# configure DIR [CMAKE OPTION...]
configure() {
  local dir=$1
  shift
  cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
}

# run_tests DIR SECONDS [CTEST OPTION...]: SECONDS is the limit for one test.
run_tests() {
  local dir=$1 seconds=$2
  shift 2
  ctest --test-dir "$dir" --output-on-failure --timeout "$seconds" -j 2 "$@"
}

build() {
  scripts/install-deps.sh
  configure build
  cmake --build build
}

test_asan() {
  configure build-asan -DVOREL_SANITIZE=address,undefined
  cmake --build build-asan
  (. tests/sanitizers/options.sh && run_tests build-asan 1800)
}

test_tsan() {
  configure build-tsan -DVOREL_SANITIZE=thread
  cmake --build build-tsan --target "${threaded_tests[@]}"
  (. tests/sanitizers/options.sh &&
    run_tests build-tsan 1800 -R "$(tests/sanitizers/tests-of.py build-tsan "${threaded_tests[@]}")")
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
    run_tests build 600
    test_asan
    test_tsan
    tests/fuzz/run.sh 20
    ;;
  test-asan)
    scripts/install-deps.sh
    test_asan
    ;;
  test-tsan)
    scripts/install-deps.sh
    test_tsan
    ;;
  *)
    echo "usage: $0 run|test|test-asan|test-tsan" >&2
    exit 2
    ;;
esac
