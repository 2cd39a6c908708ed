# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later

# -DVOREL_SANITIZE=address,undefined or -DVOREL_SANITIZE=thread builds every target (engine,
# programs, tests) with those sanitizers. Included before any target is declared, so the flags
# reach all of them. tests/sanitizers/ holds the run-time options the test runs use.
set(VOREL_SANITIZE "" CACHE STRING "Sanitizers for every target, as a -fsanitize= list; empty for none")

if(VOREL_SANITIZE)
  # Frame pointers keep the reports' stacks whole; undefined behaviour ends the program, so the
  # test fails instead of printing a line nobody reads.
  set(vorel_sanitizer_flags -fsanitize=${VOREL_SANITIZE} -fno-omit-frame-pointer)
  if(VOREL_SANITIZE MATCHES "undefined")
    list(APPEND vorel_sanitizer_flags -fno-sanitize-recover=undefined)
  endif()
  add_compile_options(${vorel_sanitizer_flags})
  add_link_options(-fsanitize=${VOREL_SANITIZE})
  # Timings of an instrumented build measure the instrumentation.
  set(VOREL_BUILD_BENCH OFF)
  message(STATUS "Sanitizers: ${VOREL_SANITIZE} (benchmarks off)")
endif()
