# Shared build rules: one library target per folder, one test program per folder. Warnings are errors in the presets only.

# What a folder finds, all folders that link it need.
set(CMAKE_FIND_PACKAGE_TARGETS_GLOBAL ON)
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)

set(TANDEM_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize= (empty: none)")
option(TANDEM_HARDEN "Build with the usual hardening" ON)

# With ccache a second build takes seconds, and that of src in another clone too: paths are taken relative to this folder.
find_program(TANDEM_CCACHE ccache)
if(TANDEM_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1
    CCACHE_SLOPPINESS=pch_defines,time_macros "${TANDEM_CCACHE}")
endif()

add_library(tandem_options INTERFACE)
target_include_directories(tandem_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
target_compile_options(tandem_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Wimplicit-fallthrough
  # gcc 12 raises false alarms of these kinds inside std::string.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict -Wno-stringop-overflow>
  # ccache needs it with precompiled headers.
  $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
if(TANDEM_SANITIZE)
  # The linker takes all of them; code that only tests is compiled without the others, which would double its compile time.
  string(REPLACE "," ";" sanitizers "${TANDEM_SANITIZE}")
  list(POP_FRONT sanitizers first_sanitizer)
  target_compile_options(tandem_options INTERFACE -fsanitize=${first_sanitizer} -fno-omit-frame-pointer
    -fno-sanitize-recover=all -Wno-null-dereference -Wno-maybe-uninitialized -Wno-mismatched-new-delete)
  foreach(sanitizer IN LISTS sanitizers)
    target_compile_options(tandem_options INTERFACE
      $<$<NOT:$<BOOL:$<TARGET_PROPERTY:TANDEM_ONLY_TESTS>>>:-fsanitize=${sanitizer}>)
  endforeach()
  # gcc says that its thread sanitizer does not know fences: those of the render thread order atomics only.
  if(TANDEM_SANITIZE MATCHES "thread")
    target_compile_options(tandem_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-tsan>)
  endif()
  target_link_options(tandem_options INTERFACE -fsanitize=${TANDEM_SANITIZE})
elseif(TANDEM_HARDEN)
  target_compile_options(tandem_options INTERFACE -fstack-protector-strong $<$<CONFIG:Release>:-U_FORTIFY_SOURCE>
    $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
  target_link_options(tandem_options INTERFACE -pie -Wl,-z,relro,-z,now,-z,noexecstack)
endif()

# A unity build (CMAKE_UNITY_BUILD, on in the presets) compiles the files of a room, or eight files of a test program, as
# one: it takes a third of the time. So names in anonymous namespaces differ within a folder of src and of tests.
set(CMAKE_UNITY_BUILD_BATCH_SIZE 8)

# Headers are compiled once for each unit, so few large units save time for clang-tidy and the sanitizers; a change of one
# file then compiles more.
option(TANDEM_WHOLE_FOLDERS "Make the units of a unity build whole folders of src and whole test programs" OFF)
if(TANDEM_WHOLE_FOLDERS)
  set(CMAKE_UNITY_BUILD_BATCH_SIZE 0)
endif()

# tandem_compile_by_room(TARGET): the units of a unity build are the rooms, or the whole target.
function(tandem_compile_by_room target)
  if(TANDEM_WHOLE_FOLDERS)
    return()
  endif()
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    get_filename_component(room "${source}" DIRECTORY)
    get_filename_component(room "${room}" NAME)
    set_property(SOURCE "${source}" PROPERTY UNITY_GROUP "${room}")
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
endfunction()

# tandem_add_folder(DIR): descends into DIR if it has a build file.
function(tandem_add_folder dir)
  if(EXISTS "${CMAKE_SOURCE_DIR}/${dir}/CMakeLists.txt")
    add_subdirectory(${dir})
  endif()
endfunction()

# tandem_library(NAME SOURCES file... LINKS target...): the static library of one folder.
# A folder without sources is a header-only (interface) library.
function(tandem_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  if(arg_SOURCES)
    add_library(${name} STATIC ${arg_SOURCES})
    tandem_compile_by_room(${name})
    target_link_libraries(${name} PUBLIC tandem_options ${arg_LINKS})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE tandem_options ${arg_LINKS})
  endif()
endfunction()

# tandem_quick_to_compile(TARGET): code that tests and is not tested itself is compiled for a short build, not for speed. What
# searches and compares sound (tests/support, the rig of tests/program) is compiled as the player is.
function(tandem_quick_to_compile target)
  # At this level gcc 12 sees overflows inside std::string that are none.
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds>)
  set_target_properties(${target} PROPERTIES TANDEM_ONLY_TESTS ON)
  target_compile_options(${target} PRIVATE $<IF:$<CONFIG:Release>,-O1,-O0>)
endfunction()

# tandem_test_data(file...): sources that read tests/data. They alone know where it lies, so that the others are the same
# to ccache in every clone.
function(tandem_test_data)
  set_property(SOURCE ${ARGN} APPEND PROPERTY COMPILE_DEFINITIONS TANDEM_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data")
endfunction()

# A precompiled header is used only by a compilation with the same options: -fPIC as with Qt, _REENTRANT as with PulseAudio.
function(tandem_reads_test_headers target)
  target_compile_options(${target} PRIVATE -fPIC)
  target_compile_definitions(${target} PRIVATE _REENTRANT)
endfunction()

# tandem_test_headers(NAME SOURCE header... LINKS target...): headers of GoogleTest and others, precompiled once for all test
# programs that use them: each would take 8 s more.
function(tandem_test_headers name source)
  cmake_parse_arguments(arg "" "" "LINKS" ${ARGN})
  find_package(GTest REQUIRED)
  add_library(${name} OBJECT ${source})
  target_link_libraries(${name} PRIVATE tandem_options ${arg_LINKS} GTest::gmock GTest::gtest)
  tandem_quick_to_compile(${name})
  tandem_reads_test_headers(${name})
  target_precompile_headers(${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h> ${arg_UNPARSED_ARGUMENTS})
endfunction()

# tandem_test(NAME SOURCES file... LINKS target... [LABELS label...] [QT] [SERIAL] [SHARDS n]):
# a GoogleTest program. QT: one that includes Qt's widget headers.
# It is one CTest entry of that name, or n entries NAME.0 ... that share its cases. Labels with a meaning for ./check:
# "threads" is run under the thread sanitizer too, "slow" is left out under the address sanitizer (what is not slow
# gets the label "quick"), "window" (Qt's windows, which take long to compile there) and "songs" (whole songs, which take
# long to play) are seen by it in "./check all" and in .ci/run only, "live" is run by "./check all" only. SERIAL: runs in
# real time on a private sound server, alone (label "server"); sanitizers see it in "./check all" and in .ci/run.
# Each entry leaves its cases in results/ENTRY.xml of the build folder, where they are counted.
function(tandem_test name)
  cmake_parse_arguments(arg "SERIAL;QT" "SHARDS" "SOURCES;LINKS;LABELS" ${ARGN})
  find_package(GTest REQUIRED)
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE tandem_options ${arg_LINKS} GTest::gmock GTest::gtest GTest::gtest_main)
  tandem_quick_to_compile(${name})
  tandem_reads_test_headers(${name})
  if(arg_QT)
    target_link_libraries(${name} PRIVATE Qt6::Widgets)
    target_precompile_headers(${name} REUSE_FROM qt_test_headers)
  else()
    target_precompile_headers(${name} REUSE_FROM test_headers)
  endif()
  if(NOT "live" IN_LIST arg_LABELS)
    add_dependencies(all_tests ${name})
  endif()
  if(NOT "slow" IN_LIST arg_LABELS)
    list(APPEND arg_LABELS quick)
  endif()
  if(arg_SERIAL)
    list(APPEND arg_LABELS server)
  endif()
  tandem_sanitized_test(${name} ${arg_LABELS})
  if(NOT arg_SHARDS)
    tandem_test_entry(${name} ${name} "" "${arg_LABELS}" "${arg_SERIAL}")
    return()
  endif()
  math(EXPR last "${arg_SHARDS} - 1")
  foreach(shard RANGE ${last})
    set(part "GTEST_TOTAL_SHARDS=${arg_SHARDS};GTEST_SHARD_INDEX=${shard}")
    tandem_test_entry(${name}.${shard} ${name} "${part}" "${arg_LABELS}" "${arg_SERIAL}")
  endforeach()
endfunction()

# Makes the program part of what the sanitizer stages build.
function(tandem_sanitized_test name)
  set(part "")
  if("server" IN_LIST ARGN)
    set(part server_)
  endif()
  if("threads" IN_LIST ARGN)
    add_dependencies(${part}threads_tests ${name})
  endif()
  if("quick" IN_LIST ARGN)
    if(NOT part AND ("window" IN_LIST ARGN OR "songs" IN_LIST ARGN))
      set(part rest_)
    endif()
    add_dependencies(${part}quick_tests ${name})
  endif()
endfunction()

function(tandem_test_entry entry program environment labels serial)
  add_test(NAME ${entry} COMMAND ${program})
  set_tests_properties(${entry} PROPERTIES TIMEOUT 600 LABELS "${labels}" RUN_SERIAL "${serial}"
    ENVIRONMENT "GTEST_OUTPUT=xml:${CMAKE_BINARY_DIR}/results/${entry}.xml;${environment}")
endfunction()

# The test programs that the stages of ./check build.
foreach(tests all_tests quick_tests rest_quick_tests server_quick_tests threads_tests server_threads_tests)
  add_custom_target(${tests})
endforeach()

# tandem_factory_settings(TARGET): puts the factory TP.inf beside the program TARGET if there is none.
function(tandem_factory_settings target)
  add_custom_command(TARGET ${target} POST_BUILD VERBATIM
    COMMAND ${CMAKE_COMMAND} -D "FROM=${CMAKE_SOURCE_DIR}/packaging/TP.inf" -D "TO=$<TARGET_FILE_DIR:${target}>/TP.inf"
            -P "${CMAKE_SOURCE_DIR}/cmake/copy_if_absent.cmake")
endfunction()
