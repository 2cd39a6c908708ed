# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Qt hygiene shared by both libraries and every executable.
function(vorel_qt_defaults target)
  target_compile_definitions(${target} PUBLIC QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
endfunction()

# vorel_add_gtest(name SOURCES a.cpp b.cpp [LIBS extra])
function(vorel_add_gtest name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE vorel_engine GTest::gtest_main ${ARG_LIBS})
  target_compile_definitions(${name} PRIVATE VOREL_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()

# vorel_add_qtest(name SOURCES a.cpp [LIBS extra]): one QtTest executable = one CTest test.
function(vorel_add_qtest name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE vorel_ui Qt6::Test ${ARG_LIBS})
  target_compile_definitions(${name} PRIVATE VOREL_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
