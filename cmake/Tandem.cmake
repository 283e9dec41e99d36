# Shared build rules: warnings are errors, one library target per folder, one test program per folder.

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)

set(TANDEM_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize= (empty: none)")
option(TANDEM_HARDEN "Build with the usual hardening" ON)

add_library(tandem_options INTERFACE)
target_include_directories(tandem_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
target_compile_options(tandem_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Wimplicit-fallthrough)
if(TANDEM_SANITIZE)
  target_compile_options(tandem_options INTERFACE -fsanitize=${TANDEM_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all -Wno-null-dereference -Wno-maybe-uninitialized)
  target_link_options(tandem_options INTERFACE -fsanitize=${TANDEM_SANITIZE})
elseif(TANDEM_HARDEN)
  target_compile_options(tandem_options INTERFACE -fstack-protector-strong $<$<CONFIG:Release>:-U_FORTIFY_SOURCE>
    $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
  target_link_options(tandem_options INTERFACE -pie -Wl,-z,relro,-z,now,-z,noexecstack)
endif()

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
    target_link_libraries(${name} PUBLIC tandem_options ${arg_LINKS})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE tandem_options ${arg_LINKS})
  endif()
endfunction()

# tandem_test(NAME SOURCES file... LINKS target... [LABELS label...]): a GoogleTest program, one CTest entry.
function(tandem_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS;LABELS" ${ARGN})
  find_package(GTest REQUIRED)
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE tandem_options ${arg_LINKS} GTest::gmock GTest::gtest GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE TANDEM_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 600 LABELS "${arg_LABELS}")
endfunction()
