# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Run-time options of the sanitized test runs (build-asan, build-tsan). Source it before ctest:
#   . tests/sanitizers/options.sh && ctest --test-dir build-asan
# Every report ends the process with an error, so the test that caused it fails.
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
export ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:check_initialization_order=1
export LSAN_OPTIONS="suppressions=$here/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
# Qt comes uninstrumented from Debian: its thread pool hands work over through futexes the
# sanitizer cannot see, so the copies and frees Qt itself makes would be reported as races.
# Races in our own (instrumented) code are still reported.
export TSAN_OPTIONS="halt_on_error=1:second_deadlock_stack=1:ignore_noninstrumented_modules=1"
unset here
