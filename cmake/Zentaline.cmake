# What every folder of the project uses: warnings, sanitizers, optional dependencies and the functions for targets.

# Where ccache can't write its cache, as in a home that is read-only, it doesn't compile at all.
find_program(CCACHE ccache)
if(CCACHE)
  execute_process(COMMAND ${CCACHE} ${CMAKE_CXX_COMPILER} -x c++ -c /dev/null -o ${CMAKE_BINARY_DIR}/ccache.o
                  RESULT_VARIABLE CCACHE_REFUSED OUTPUT_QUIET ERROR_QUIET)
  if(CCACHE_REFUSED)
    message(STATUS "Building without ccache, which can't keep its cache here")
  else()
    # What it must overlook to keep what is compiled with a precompiled header.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
  endif()
endif()

add_library(zentaline_options INTERFACE)
target_include_directories(zentaline_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(zentaline_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                                                   -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
# The compiler's twelfth edition takes "text" + string for a copy onto itself, and what an optional holds behind a test
# of it for something that was never set; with precompiled headers, a string for one that overflows.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(zentaline_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized
                                                     -Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds
                                                     -Wno-free-nonheap-object)
endif()
if(ZENTALINE_SANITIZE)
  target_compile_options(zentaline_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                     -fno-omit-frame-pointer)
  target_link_options(zentaline_options INTERFACE -fsanitize=address,undefined)
endif()
if(ZENTALINE_FUZZ)
  target_compile_options(zentaline_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                     -fno-sanitize-recover=all)
  target_link_options(zentaline_options INTERFACE -fsanitize=address,undefined)
endif()

set(ZENTALINE_HAVE_QT OFF)
if(NOT ZENTALINE_QT STREQUAL "OFF")
  if(ZENTALINE_QT STREQUAL "ON")
    find_package(Qt6 REQUIRED COMPONENTS Network Widgets PrintSupport Test)
  else()
    find_package(Qt6 QUIET COMPONENTS Network Widgets PrintSupport Test)
  endif()
  set(ZENTALINE_HAVE_QT ${Qt6_FOUND})
endif()

set(ZENTALINE_HAVE_ALSA OFF)
if(NOT ZENTALINE_ALSA STREQUAL "OFF")
  if(ZENTALINE_ALSA STREQUAL "ON")
    find_package(ALSA REQUIRED)
  else()
    find_package(ALSA QUIET)
  endif()
  set(ZENTALINE_HAVE_ALSA ${ALSA_FOUND})
endif()
message(STATUS "Desktop program: ${ZENTALINE_HAVE_QT}, ALSA service: ${ZENTALINE_HAVE_ALSA}")

# Several builds are tested in one run; their tests are told apart by this.
set(ZENTALINE_TEST_PREFIX "" CACHE STRING "What stands before the names of the tests of this build")
if(ZENTALINE_TESTS)
  enable_testing()
  find_package(GTest REQUIRED)
  include(GoogleTest)
endif()

# The headers that nearly every file includes, compiled once; each file still names what it uses, as the builds without
# precompiled headers show.
function(zentaline_precompiled name)
  if(NOT ZENTALINE_PRECOMPILED)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "LINK;HEADERS;OPTIONS" ${ARGN})
  file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "")
  add_library(${name} STATIC ${CMAKE_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PUBLIC zentaline_options ${ARG_LINK})
  target_compile_options(${name} PUBLIC $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess> ${ARG_OPTIONS})
  target_precompile_headers(${name} PRIVATE <algorithm> <array> <functional> <map> <memory> <optional> <span> <string>
                            <string_view> <utility> <vector> ${ARG_HEADERS})
endfunction()

function(zentaline_precompiled_with name other)
  if(ZENTALINE_PRECOMPILED)
    target_link_libraries(${name} PRIVATE ${other})
    target_precompile_headers(${name} REUSE_FROM ${other})
  endif()
endfunction()

zentaline_precompiled(precompiled)
if(ZENTALINE_TESTS)
  # The tests themselves are not optimised: most of the time of a build would go into it.
  zentaline_precompiled(precompiled_tests LINK GTest::gtest GTest::gmock HEADERS <gmock/gmock.h> <gtest/gtest.h>
                        OPTIONS -O0)
endif()
if(ZENTALINE_HAVE_QT)
  zentaline_precompiled(precompiled_qt LINK Qt6::Widgets Qt6::PrintSupport HEADERS <QtWidgets>)
endif()

# zentaline_library(NAME SOURCES files... [LINK targets...] [PRECOMPILED target]): a static library of one folder's
# floor.
function(zentaline_library name)
  cmake_parse_arguments(ARG "" "PRECOMPILED" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC zentaline_options ${ARG_LINK})
  if(NOT ARG_PRECOMPILED)
    set(ARG_PRECOMPILED precompiled)
  endif()
  zentaline_precompiled_with(${name} ${ARG_PRECOMPILED})
endfunction()

# zentaline_program(NAME SOURCES files... [LINK targets...])
function(zentaline_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE zentaline_options ${ARG_LINK})
endfunction()

# zentaline_test(NAME SOURCES files... [LINK targets...]): a GoogleTest program; each of its tests is one of ctest's.
function(zentaline_test name)
  if(NOT ZENTALINE_UNIT_TESTS)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  zentaline_program(${name} SOURCES ${ARG_SOURCES} LINK ${ARG_LINK} GTest::gtest GTest::gmock GTest::gtest_main)
  zentaline_precompiled_with(${name} precompiled_tests)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  gtest_discover_tests(${name} TEST_PREFIX "${ZENTALINE_TEST_PREFIX}" DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 300 PROPERTIES LABELS unit TIMEOUT 120)
endfunction()
