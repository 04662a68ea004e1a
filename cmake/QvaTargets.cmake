# How every target of the project is compiled.

set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_EXTENSIONS OFF)

add_library(qva_compile INTERFACE)
target_compile_features(qva_compile INTERFACE cxx_std_20)
target_compile_options(
  qva_compile
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wconversion
            -Wfloat-conversion
            -Wdouble-promotion
            -Wshadow
            # The same formula gives the same bits wherever it is compiled: no fused multiply-add.
            -ffp-contract=off
            # g++ 12 sees overlapping copies in `std::string + "literal"` where there are none.
            $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
            $<$<BOOL:${QVA_WARNINGS_AS_ERRORS}>:-Werror>)

# qva_add_shared(<target> NAME <library name> ALIAS <alias> SOURCES ... [LINK ...] [PRIVATE_LINK ...])
# A library of the bundled platform: shared, with its public headers in include/ beside its CMakeLists.txt.
function(qva_add_shared target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "NAME;ALIAS" "SOURCES;LINK;PRIVATE_LINK")
  add_library(${target} SHARED ${arg_SOURCES})
  add_library(${arg_ALIAS} ALIAS ${target})
  string(REPLACE "qv::" "" export_name ${arg_ALIAS})
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${arg_NAME} EXPORT_NAME ${export_name}
                                             VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>
                                              $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${target} PUBLIC ${arg_LINK} PRIVATE $<BUILD_INTERFACE:qva_compile>
                                                            $<BUILD_INTERFACE:qva_shipped> ${arg_PRIVATE_LINK})
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_property(GLOBAL APPEND PROPERTY QVA_PLATFORM_TARGETS ${target})
endfunction()

# qva_precompile_headers(<target>...): standard headers that most sources include, read once for all of these targets, which
# are compiled alike. Each stands before those that link to it. Builds without are those that warn, and that show what a
# source forgets to include: g++ 12 takes such headers for ours.
function(qva_precompile_headers first)
  target_precompile_headers(
    ${first}
    PRIVATE
    <algorithm>
    <array>
    <charconv>
    <cmath>
    <filesystem>
    <functional>
    <map>
    <memory>
    <optional>
    <set>
    <span>
    <string>
    <tuple>
    <unordered_map>
    <utility>
    <variant>
    <vector>)
  foreach(target IN LISTS ARGN)
    target_precompile_headers(${target} REUSE_FROM ${first})
  endforeach()
  # What a target is called must not be among its macros then; nothing asks for it.
  set_target_properties(${first} ${ARGN} PROPERTIES DEFINE_SYMBOL "")
  foreach(target IN LISTS first ARGN)
    target_compile_options(${target} PRIVATE -w)
  endforeach()
endfunction()

# qva_add_test(<name> SOURCES ... [LINK ...]): a GoogleTest executable whose cases ctest runs one by one.
# Test code is compiled unoptimised and with one shared precompiled header: compiling it is most of a test run.
function(qva_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE qva_compile ${arg_LINK} GTest::gtest_main)
  target_compile_options(${name} PRIVATE -O0)
  target_precompile_headers(${name} REUSE_FROM qva_test_prefix)
  # Tests replace `new` and `delete` by functions over `malloc` and `free`; once both are inlined, g++ sees a mismatch.
  target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-mismatched-new-delete>)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src)
  # The test may stand in for operations of the platform: its own definitions win over the libraries'.
  set_target_properties(${name} PROPERTIES ENABLE_EXPORTS ON)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST)
endfunction()
