# What every target of the project shares: the language, warnings, symbol visibility and the helpers that make targets.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

option(GR_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(GR_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" ON)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_library(gr_build INTERFACE)
if(MSVC)
    target_compile_options(gr_build INTERFACE /W4 /utf-8 $<$<BOOL:${GR_WARNINGS_AS_ERRORS}>:/WX>)
else()
    # Two of GCC's warnings are wrong about sound code: a guard that enters itself into its object's list for its own
    # scope is no dangling pointer, and in GCC 12 joining strings is no overlapping copy.
    target_compile_options(gr_build INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor
        $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local;-Wno-dangling-pointer;-Wno-restrict>
        $<$<BOOL:${GR_WARNINGS_AS_ERRORS}>:-Werror>)
    if(GR_SANITIZE)
        # The instrumented code misleads GCC's warnings about data flow; the other builds keep them.
        target_compile_options(gr_build INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
            -fno-omit-frame-pointer
            $<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overflow;-Wno-array-bounds;-Wno-maybe-uninitialized>)
        target_link_options(gr_build INTERFACE -fsanitize=address,undefined)
    endif()
endif()

# gr_platform_library(<target> ROOMS ... SOURCES ... USES ... PRIVATE_USES ...): one lower library, shared so that its
# process-wide state exists once however many libraries use it. ROOMS are folders of a library that has several.
function(gr_platform_library target)
    cmake_parse_arguments(arg "" "" "ROOMS;SOURCES;USES;PRIVATE_USES" ${ARGN})
    add_library(${target} SHARED ${arg_SOURCES})
    target_compile_features(${target} PUBLIC cxx_std_20)
    list(TRANSFORM arg_ROOMS PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE folders)
    target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR} ${folders})
    target_link_libraries(${target} PUBLIC ${arg_USES} PRIVATE gr_build ${arg_PRIVATE_USES})
    set_property(GLOBAL APPEND PROPERTY GR_SHARED_LIBRARIES ${target})
endfunction()

# gr_subsystem(<target> SOURCES ... USES ... PRIVATE_USES ...): one room of source/, linked into the gr library as objects. It
# sees its own public headers, in the room of include/ with the same path, its own private ones, and of the others what it
# names: USES for what its headers include, PRIVATE_USES for the rest. What a room offers the rooms above it alone lies in its
# folder shared/, what those above must define for it in registration/.
function(gr_subsystem target)
    cmake_parse_arguments(arg "" "" "SOURCES;USES;PRIVATE_USES" ${ARGN})
    file(RELATIVE_PATH room ${PROJECT_SOURCE_DIR}/source ${CMAKE_CURRENT_SOURCE_DIR})
    add_library(${target} OBJECT ${arg_SOURCES})
    target_compile_definitions(${target} PRIVATE gr_EXPORTS)
    target_include_directories(${target}
        PUBLIC ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/include/${room} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    foreach(folder shared registration)
        if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
            target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
        endif()
    endforeach()
    target_link_libraries(${target} PUBLIC ${arg_USES} PRIVATE gr_build ${arg_PRIVATE_USES})
    set_property(GLOBAL APPEND PROPERTY GR_SUBSYSTEMS ${target})
    set_property(GLOBAL APPEND PROPERTY GR_ROOMS ${PROJECT_SOURCE_DIR}/include/${room})
endfunction()

# gr_program(<target> SOURCES ... USES ...): an executable of the project.
function(gr_program target)
    cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
    add_executable(${target} ${arg_SOURCES})
    target_link_libraries(${target} PRIVATE gr_build ${arg_USES})
endfunction()

# gr_test(<target> SOURCES ... USES ...): a GoogleTest program, run by ctest in a random order as one test.
function(gr_test target)
    cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
    gr_program(${target} SOURCES ${arg_SOURCES} USES ${arg_USES} ts_harness GTest::gtest_main)
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    add_test(NAME ${target} COMMAND ${target} --gtest_shuffle --gtest_brief=1)
endfunction()

# gr_fuzz(<target> <runs> SOURCES ... USES ...): a fuzz target, whose name is fuzz_ and that of its folder of the corpus.
# With the sanitizers it is a test of that many byte strings with fixed seeds; with GR_FUZZ=ON and Clang a program of
# libFuzzer.
option(GR_FUZZ "Build the fuzz targets, with Clang for libFuzzer" OFF)
function(gr_fuzz target runs)
    if(NOT GR_FUZZ AND NOT GR_SANITIZE)
        return()
    endif()
    cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
    if(GR_FUZZ AND CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        gr_program(${target} SOURCES ${arg_SOURCES} USES ${arg_USES})
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer)
        target_link_options(${target} PRIVATE -fsanitize=fuzzer)
        return()
    endif()
    gr_program(${target} SOURCES ${arg_SOURCES} ${PROJECT_SOURCE_DIR}/tests/fuzz/fuzz_main.cpp USES ${arg_USES})
    string(REPLACE "fuzz_" "" corpus ${target})
    add_test(NAME ${target} COMMAND ${target} ${runs} ${PROJECT_SOURCE_DIR}/tests/fuzz/corpus/${corpus})
endfunction()
