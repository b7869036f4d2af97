# What every part of the project is built with, and how its parts are declared.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(morvantile_options INTERFACE)
target_include_directories(morvantile_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(
  morvantile_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
                               -Wnon-virtual-dtor -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # It warns of "text" + std::string (GCC bug 105651), and clang-tidy doesn't know the warning.
  target_compile_options(morvantile_options INTERFACE -Wno-restrict -Wno-unknown-warning-option)
endif()

# What distributions harden their programs with.
include(CheckPIESupported)
include(CheckCXXCompilerFlag)
check_pie_supported()
check_cxx_compiler_flag(-fcf-protection MORVANTILE_HAS_CF_PROTECTION)
target_compile_options(
  morvantile_options
  INTERFACE -fstack-protector-strong -fstack-clash-protection
            $<$<BOOL:${MORVANTILE_HAS_CF_PROTECTION}>:-fcf-protection>)
target_link_options(morvantile_options INTERFACE -Wl,-z,relro,-z,now)

if(NOT MORVANTILE_SANITIZE)
  # It needs the optimiser, and would hide from the sanitizers what they are to see.
  target_compile_options(
    morvantile_options INTERFACE "$<$<CONFIG:Release>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
endif()
if(MORVANTILE_SANITIZE)
  target_compile_options(morvantile_options INTERFACE -fsanitize=address,undefined
                                                      -fno-sanitize-recover=all
                                                      -fno-omit-frame-pointer)
  target_link_options(morvantile_options INTERFACE -fsanitize=address,undefined)
endif()
if(MORVANTILE_FUZZ)
  target_compile_options(morvantile_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# morvantile_module(name SOURCES file... LINKS target...)
#
# A room of the house: a static library of the folder it is declared in, reached by includes
# relative to the project's root.
function(morvantile_module name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC morvantile_options ${arg_LINKS})
endfunction()

# morvantile_test(name SOURCES file... LINKS target... [ENVIRONMENT name=value...])
#
# A GoogleTest program of the folder it is declared in; each of its tests is one of ctest. Most of the
# time of a build would go into tests, so they are compiled without the optimiser; what they test is
# optimised.
function(morvantile_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS;ENVIRONMENT" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINKS} GTest::gmock GTest::gtest_main)
  target_compile_options(${name} PRIVATE -O0)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 120
                                                                 ENVIRONMENT "${arg_ENVIRONMENT}")
endfunction()
