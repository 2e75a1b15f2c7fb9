# How a room of the house becomes a target: one static library, linked downwards only.

find_program(HALVORNE_CCACHE ccache)
if(HALVORNE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # The cache takes files with a precompiled header only when it may trust that header's digest.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${HALVORNE_CCACHE})
endif()

if(HALVORNE_TIDY)
  find_program(HALVORNE_CLANG_TIDY NAMES clang-tidy-14 clang-tidy REQUIRED)
  # A digest of the checks is part of each command, so a change of them looks at all files anew.
  set(checks ${PROJECT_SOURCE_DIR}/.clang-tidy ${PROJECT_SOURCE_DIR}/tests/.clang-tidy)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${checks})
  set(HALVORNE_TIDY_CHECKS)
  foreach(file IN LISTS checks)
    file(SHA256 ${file} digest)
    string(SUBSTRING ${digest} 0 16 digest)
    string(APPEND HALVORNE_TIDY_CHECKS ${digest})
  endforeach()
  set(CMAKE_CXX_CLANG_TIDY
      ${HALVORNE_CLANG_TIDY} --quiet --extra-arg=-DHALVORNE_TIDY_CHECKS=${HALVORNE_TIDY_CHECKS})
endif()

add_library(halvorne_options INTERFACE)
target_compile_options(halvorne_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Werror -ffp-contract=off)
# Optimised, g++ 12 warns falsely of a sum of the library's strings that begins with a literal.
set(HALVORNE_ROOM_OPTIONS $<$<AND:$<CXX_COMPILER_ID:GNU>,$<NOT:$<CONFIG:Debug>>>:-Wno-restrict>)
if(HALVORNE_SANITIZE)
  target_compile_options(halvorne_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1 -g1)
  target_link_options(halvorne_options INTERFACE -fsanitize=address,undefined)
endif()
if(HALVORNE_FUZZ)
  # Loops that count where they have been are not made for several numbers at once.
  target_compile_options(halvorne_options INTERFACE -fsanitize=fuzzer-no-link -Wno-pass-failed)
endif()

# halvorne_precompiled(<name> HEADERS <header>... [LINKS <target>...] [OPTIONS <option>...])
# Compiles headers that many files include once; a target takes them with halvorne_take_precompiled.
# The files keep their own includes: the core has none of it, and clang-tidy looks at the rooms without.
function(halvorne_precompiled name)
  cmake_parse_arguments(PRECOMPILED "" "" "HEADERS;LINKS;OPTIONS" ${ARGN})
  set(empty ${PROJECT_BINARY_DIR}/precompiled/${name}.cpp)
  if(NOT EXISTS ${empty})
    file(WRITE ${empty} "")
  endif()
  add_library(halvorne_precompiled_${name} OBJECT ${empty})
  target_link_libraries(halvorne_precompiled_${name} PRIVATE ${PRECOMPILED_LINKS} halvorne_options)
  target_compile_options(halvorne_precompiled_${name} PRIVATE ${PRECOMPILED_OPTIONS})
  if(HALVORNE_PRECOMPILED)
    target_precompile_headers(halvorne_precompiled_${name} PRIVATE ${PRECOMPILED_HEADERS})
  endif()
endfunction()

function(halvorne_take_precompiled target name)
  if(HALVORNE_PRECOMPILED)
    target_precompile_headers(${target} REUSE_FROM halvorne_precompiled_${name})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND HALVORNE_CCACHE)
      target_compile_options(${target} PRIVATE -fpch-preprocess)
    endif()
  endif()
endfunction()

# What tests are compiled with: built by every check and run once. In a precompiled header g++ 12
# no longer knows the library's own strings for system code and warns falsely of their sums.
set(HALVORNE_TEST_OPTIONS $<$<NOT:$<CONFIG:Debug>>:-O1>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND HALVORNE_PRECOMPILED)
  list(APPEND HALVORNE_TEST_OPTIONS -Wno-array-bounds -Wno-restrict -Wno-stringop-overflow)
endif()

# halvorne_room(<name> [WIDGETS] SOURCES <file>... [LINKS <target>...])
# Makes the library Halvorne::<name> from the files beside it; WIDGETS for a room of windows.
function(halvorne_room name)
  cmake_parse_arguments(ROOM "WIDGETS" "" "SOURCES;LINKS" ${ARGN})
  add_library(halvorne_${name} STATIC ${ROOM_SOURCES})
  add_library(Halvorne::${name} ALIAS halvorne_${name})
  target_include_directories(halvorne_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(halvorne_${name} PUBLIC ${ROOM_LINKS} PRIVATE halvorne_options)
  target_compile_options(halvorne_${name} PRIVATE ${HALVORNE_ROOM_OPTIONS})
  if(ROOM_WIDGETS AND NOT HALVORNE_TIDY)
    halvorne_take_precompiled(halvorne_${name} widgets)
  endif()
endfunction()

# The folder that a program is started from: the programs and a writable copy of share/.
set(HALVORNE_PROGRAM_FOLDER ${PROJECT_BINARY_DIR}/program)

# halvorne_program(<name> SOURCES <file>... LINKS <target>...)
# Makes a program that stands in the program folder; the target `programs` builds all of them.
function(halvorne_program name)
  cmake_parse_arguments(PROGRAM "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${PROGRAM_SOURCES})
  target_link_libraries(${name} PRIVATE ${PROGRAM_LINKS} halvorne_options)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${HALVORNE_PROGRAM_FOLDER})
  add_dependencies(programs ${name})
endfunction()
add_custom_target(programs)

# halvorne_test(<name> [WIDGETS] SOURCES <file>... LINKS <target>... [LABELS <label>...])
# Makes the GoogleTest program test_<name>; ctest sees each of its tests. WIDGETS for tests of
# windows.
function(halvorne_test name)
  cmake_parse_arguments(TEST "WIDGETS" "" "SOURCES;LINKS;LABELS" ${ARGN})
  add_executable(test_${name} ${TEST_SOURCES})
  target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(test_${name} PRIVATE ${TEST_LINKS} GTest::gmock GTest::gtest_main halvorne_options)
  target_compile_definitions(test_${name} PRIVATE
    HALVORNE_SOURCE_DIR="${PROJECT_SOURCE_DIR}" HALVORNE_BINARY_DIR="${PROJECT_BINARY_DIR}")
  target_compile_options(test_${name} PRIVATE ${HALVORNE_TEST_OPTIONS})
  if(TEST_WIDGETS)
    halvorne_take_precompiled(test_${name} widget_tests)
    # Through the toolkit's headers clang-tidy takes longer than all else and finds next to nothing.
    set_target_properties(test_${name} PROPERTIES CXX_CLANG_TIDY "")
  else()
    halvorne_take_precompiled(test_${name} tests)
  endif()
  if(HALVORNE_SANITIZE)
    # g++ sees uninitialised members in the library's regular expressions, only with sanitizers on.
    target_compile_options(test_${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  endif()
  gtest_discover_tests(test_${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C" LABELS "${TEST_LABELS}")
endfunction()
