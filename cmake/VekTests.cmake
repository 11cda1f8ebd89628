# How tests are declared; included once, before tests/ and fuzz/. Each is also listed in tests.txt of the build folder:
# its name, whether it is a GoogleTest program or counts as one case, and the targets that it needs. test.sh reads there
# what to build and count.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
file(WRITE ${CMAKE_BINARY_DIR}/tests.txt "")
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/results)
set(VEK_TEST_PROGRAMS "")

# vek_add_test(name [target...] COMMAND command...): a test that counts as one case.
function(vek_add_test name)
  cmake_parse_arguments(ARG "" "KIND" "COMMAND" ${ARGN})
  if(NOT ARG_KIND)
    set(ARG_KIND single)
  endif()
  add_test(NAME ${name} COMMAND ${ARG_COMMAND} WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT
                       "UBSAN_OPTIONS=print_stacktrace=1;XDG_CONFIG_HOME=${CMAKE_BINARY_DIR}/config")
  list(JOIN ARG_UNPARSED_ARGUMENTS " " targets)
  file(APPEND ${CMAKE_BINARY_DIR}/tests.txt "${name} ${ARG_KIND} ${targets}\n")
endfunction()

# Native builds use Debian's compiled GoogleTest; for Windows it is built from Debian's sources.
macro(vek_find_googletest)
  if(CMAKE_CROSSCOMPILING)
    set(INSTALL_GTEST OFF)
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  else()
    find_package(GTest REQUIRED)
  endif()
endmacro()

# The cases that Wine cannot pass, as a filter for one program. wine_exclusions.py checks the file and runs them alone.
function(vek_wine_filter program filter)
  set(file ${CMAKE_SOURCE_DIR}/tests/wine_exclusions.txt)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  file(STRINGS ${file} entries REGEX "^${program} ")
  list(TRANSFORM entries REPLACE "^${program} +([^ |]+).*" "\\1")
  list(JOIN entries ":" names)
  set(${filter} "")
  if(CMAKE_CROSSCOMPILING AND names)
    set(${filter} "--gtest_filter=-${names}")
  endif()
  return(PROPAGATE ${filter})
endfunction()

# What test sources begin with takes longer to read than they do themselves, so it is compiled once for all programs
# that have tests with windows, and once for the others. This says nothing of what a source includes.
function(vek_test_headers)
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/headers.cpp CONTENT "int main()\n{\n}\n")
  foreach(kind IN ITEMS plain window)
    if(kind STREQUAL window AND NOT WIN32)
      continue()
    endif()
    add_executable(test_headers_${kind} EXCLUDE_FROM_ALL ${CMAKE_CURRENT_BINARY_DIR}/headers.cpp)
    target_link_libraries(test_headers_${kind} PRIVATE vek_options GTest::gtest)
    target_precompile_headers(test_headers_${kind} PRIVATE <gtest/gtest.h> <algorithm> <cmath> <functional> <map> <memory>
                              <sstream> <string> <vector>)
    vek_test_options(test_headers_${kind})
  endforeach()
  if(WIN32)
    target_link_libraries(test_headers_window PRIVATE vek_window)
    target_precompile_headers(test_headers_window PRIVATE <afxwin.h> <afxcmn.h>)
  endif()
endfunction()

function(vek_test_options target)
  if(NOT MSVC) # optimiser and sanitizers together would more than double the compile time of the tests
    target_compile_options(${target} PRIVATE $<IF:$<CONFIG:Debug>,-O0,-O1>)
  endif()
  if(MINGW) # reported within the system's <wchar.h>, which is no longer known as such once it is precompiled
    target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-stringop-overread -Wno-stringop-overflow)
  endif()
endfunction()

# vek_test_target(target kind sources library...): what all targets made of test sources have in common.
function(vek_test_target target kind sources)
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${target} PRIVATE ${ARGN})
  foreach(source IN LISTS sources) # only for sources that use it, so that other clones find the rest in the cache
    file(STRINGS ${source} asks REGEX VEK_SOURCE_DIR LIMIT_COUNT 1)
    if(asks)
      set_property(SOURCE ${source} APPEND PROPERTY COMPILE_DEFINITIONS VEK_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    endif()
  endforeach()
  vek_test_options(${target})
  target_precompile_headers(${target} REUSE_FROM test_headers_${kind})
endfunction()

# vek_test(room [target...]): the program of a room's tests and the libraries that it links besides the room's own.
# Tests that need Windows are in tests/window/ and belong to the same program.
function(vek_test room)
  set(program ${room}_test)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${room}_test.cpp
       ${CMAKE_CURRENT_SOURCE_DIR}/${room}_*_test.cpp)
  file(GLOB windowed CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/window/${room}_*_test.cpp)
  set_property(GLOBAL APPEND PROPERTY VEK_TEST_SOURCES ${sources} ${windowed})
  if(NOT WIN32)
    set(windowed "")
  endif()
  if(NOT (sources OR windowed) OR NOT TARGET vek_${room}) # the toolkit does not exist with a compiler that has its own
    return()
  endif()
  set(libraries vek_${room} ${ARGN} vek_options GTest::gtest_main)
  if(windowed AND sources) # apart, since the system's headers take names that other sources use
    add_library(${program}_plain OBJECT ${sources})
    vek_test_target(${program}_plain plain "${sources}" ${libraries})
    add_executable(${program} ${windowed} $<TARGET_OBJECTS:${program}_plain>)
    vek_test_target(${program} window "${windowed}" ${libraries})
  else()
    set(kind plain)
    if(windowed)
      set(kind window)
    endif()
    list(APPEND sources ${windowed})
    add_executable(${program} ${sources})
    vek_test_target(${program} ${kind} "${sources}" ${libraries})
  endif()
  vek_wine_filter(${program} filter)
  vek_add_test(${program} ${program} KIND gtest COMMAND
               ${program} --gtest_output=xml:results/${program}.xml ${filter})
  set(VEK_TEST_PROGRAMS ${VEK_TEST_PROGRAMS} ${program} PARENT_SCOPE)
endfunction()

# A test source that no program takes would never run, and nobody would notice.
function(vek_all_tests_run)
  file(GLOB all CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*_test.cpp ${CMAKE_CURRENT_SOURCE_DIR}/window/*_test.cpp)
  get_property(taken GLOBAL PROPERTY VEK_TEST_SOURCES)
  list(REMOVE_ITEM all ${taken})
  if(all)
    message(FATAL_ERROR "No vek_test() takes ${all}")
  endif()
endfunction()

# Every public header must compile alone: one source for each, which includes it and nothing else. A build for Windows
# looks at those that say something of their own there.
function(vek_headers_alone)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/include ${CMAKE_SOURCE_DIR}/include/*.h)
  set(sources "")
  foreach(header IN LISTS headers)
    file(STRINGS ${CMAKE_SOURCE_DIR}/include/${header} windows REGEX _WIN32 LIMIT_COUNT 1)
    if(CMAKE_CROSSCOMPILING AND NOT windows)
      continue()
    endif()
    string(REPLACE "/" "_" name ${header})
    set(source ${CMAKE_CURRENT_BINARY_DIR}/headers/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include <${header}>\n")
    list(APPEND sources ${source})
  endforeach()
  add_library(headers_alone OBJECT ${sources})
  target_include_directories(headers_alone PRIVATE ${CMAKE_SOURCE_DIR}/include)
  target_link_libraries(headers_alone PRIVATE vek_options $<$<BOOL:${WIN32}>:vek_window>)
  set_target_properties(headers_alone PROPERTIES CXX_CLANG_TIDY "")
  if(NOT MSVC) # none of it ever runs
    target_compile_options(headers_alone PRIVATE -O0 -fno-sanitize=all)
  endif()
endfunction()
