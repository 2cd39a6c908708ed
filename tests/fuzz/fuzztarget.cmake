# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later

# vorel_add_fuzz(name SOURCE x_fuzz.cpp MAX_LEN bytes SEEDS paths... [LIBS extra])
# A libFuzzer target. SEEDS are files or folders, relative to tests/. In CTest the target runs
# through tests/standalonefuzzmain.cpp over its seeds and over tests/fuzz/regressions/<name>/
# (inputs a fuzzing run once found failing). With VOREL_FUZZ=ON (tests/fuzz/run.sh, clang) it
# links libFuzzer instead, adds no test, is built as <build>/fuzz/<name>, and lists itself in
# <build>/fuzz/targets with its input size limit and seeds for run.sh.
include_guard(GLOBAL)
option(VOREL_FUZZ "Link the fuzz targets against libFuzzer (clang) instead of the stand-alone driver" OFF)
if(VOREL_FUZZ)
  file(WRITE ${CMAKE_BINARY_DIR}/fuzz/targets "")
endif()

function(vorel_add_fuzz name)
  cmake_parse_arguments(ARG "" "SOURCE;MAX_LEN" "SEEDS;LIBS" ${ARGN})
  list(TRANSFORM ARG_SEEDS PREPEND ${PROJECT_SOURCE_DIR}/tests/)
  set(regressions ${PROJECT_SOURCE_DIR}/tests/fuzz/regressions/${name})
  if(IS_DIRECTORY ${regressions})
    list(APPEND ARG_SEEDS ${regressions})
  endif()
  if(VOREL_FUZZ)
    add_executable(${name} ${ARG_SOURCE})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/fuzz)
    list(JOIN ARG_SEEDS " " seeds)
    file(APPEND ${CMAKE_BINARY_DIR}/fuzz/targets "${name} ${ARG_MAX_LEN} ${seeds}\n")
  else()
    add_executable(${name} ${ARG_SOURCE} ${PROJECT_SOURCE_DIR}/tests/standalonefuzzmain.cpp)
    add_test(NAME ${name} COMMAND ${name} ${ARG_SEEDS})
  endif()
  target_link_libraries(${name} PRIVATE vorel_engine ${ARG_LIBS})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
endfunction()
