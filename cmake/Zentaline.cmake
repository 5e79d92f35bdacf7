# What every folder of the project uses: warnings, sanitizers, optional dependencies and the functions for targets.

# Where ccache can't write its cache, as in a home that is read-only, it doesn't compile at all.
find_program(CCACHE ccache)
if(CCACHE)
  execute_process(COMMAND ${CCACHE} ${CMAKE_CXX_COMPILER} -x c++ -c /dev/null -o ${CMAKE_BINARY_DIR}/ccache.o
                  RESULT_VARIABLE CCACHE_REFUSED OUTPUT_QUIET ERROR_QUIET)
  if(CCACHE_REFUSED)
    message(STATUS "Building without ccache, which can't keep its cache here")
  else()
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
  endif()
endif()

add_library(zentaline_options INTERFACE)
target_include_directories(zentaline_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(zentaline_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                                                   -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
# The compiler's twelfth edition takes "text" + string for a copy onto itself, and what an optional holds behind a test
# of it for something that was never set.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(zentaline_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
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
    find_package(Qt6 REQUIRED COMPONENTS Widgets PrintSupport Test)
  else()
    find_package(Qt6 QUIET COMPONENTS Widgets PrintSupport Test)
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

# zentaline_library(NAME SOURCES files... [LINK targets...]): a static library of one folder's floor.
function(zentaline_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC zentaline_options ${ARG_LINK})
endfunction()

# zentaline_program(NAME SOURCES files... [LINK targets...])
function(zentaline_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE zentaline_options ${ARG_LINK})
endfunction()

# zentaline_test(NAME SOURCES files... [LINK targets...]): a GoogleTest program; each of its tests is one of ctest's.
function(zentaline_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  zentaline_program(${name} SOURCES ${ARG_SOURCES} LINK ${ARG_LINK} GTest::gtest GTest::gmock GTest::gtest_main)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  gtest_discover_tests(${name} TEST_PREFIX "${ZENTALINE_TEST_PREFIX}" DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 300 PROPERTIES LABELS unit TIMEOUT 120)
endfunction()
