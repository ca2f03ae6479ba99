# What every target of the project shares: the language, warnings, symbol visibility and the helpers that make targets.
# As a guest in another build it decides nothing that the host may want to decide.

include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_BINDIR})
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

option(GR_OPENGL "Build the OpenGL back end" ${PROJECT_IS_TOP_LEVEL})
option(GR_GLFW "Build the GLFW back end, which needs the OpenGL one" ${PROJECT_IS_TOP_LEVEL})
option(GR_QT "Build the widget for Qt 6, which needs the OpenGL back end" ${PROJECT_IS_TOP_LEVEL})
option(GR_PROGRAMS "Build gr-viewer, gr-tarn, the examples and the benchmarks, which need both back ends" ${PROJECT_IS_TOP_LEVEL})
option(GR_TESTS "Build the tests, which need the programs" ${PROJECT_IS_TOP_LEVEL})
option(GR_INSTALL "Install the library, its headers and the programs" ${PROJECT_IS_TOP_LEVEL})
option(GR_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" ${PROJECT_IS_TOP_LEVEL})
option(GR_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
if((GR_GLFW OR GR_QT) AND NOT GR_OPENGL)
    message(FATAL_ERROR "GR_GLFW and GR_QT need GR_OPENGL")
endif()
if(GR_QT)
    find_package(Qt6 QUIET COMPONENTS OpenGLWidgets)
    if(NOT TARGET Qt6::OpenGLWidgets)
        message(STATUS "gr: Qt 6 was not found: its widget is left out")
        set(GR_QT OFF)
    endif()
endif()
if(GR_PROGRAMS AND NOT GR_GLFW OR GR_TESTS AND NOT GR_PROGRAMS)
    message(FATAL_ERROR "GR_PROGRAMS needs GR_GLFW, and GR_TESTS needs GR_PROGRAMS")
endif()

if(PROJECT_IS_TOP_LEVEL)
    set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
    if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
        set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
    endif()
    find_program(CCACHE_PROGRAM ccache)
    if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
        set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
        if(UNIX)
            list(PREPEND CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros)
        endif()
    endif()
endif()

add_library(gr_build INTERFACE)
if(WIN32)
    target_compile_definitions(gr_build INTERFACE NOMINMAX) # min and max are functions
endif()
if(WIN32 AND PROJECT_IS_TOP_LEVEL)
    include(GrWindows)
endif()
if(MSVC)
    # Members of exported classes are of the standard library's types, which are the same for all that one compiler makes;
    # getenv and its like are the standard's.
    target_compile_options(gr_build INTERFACE /W4 /wd4251 /wd4275 /wd4996 /utf-8 $<$<BOOL:${GR_WARNINGS_AS_ERRORS}>:/WX>)
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

# gr_folder_targets(<variable> <name>...): the targets behind the short names of the lower libraries; other names stay. Outside
# the project no target has a short name, so that a host may have an `ap` of its own.
function(gr_folder_targets variable)
    get_property(lower GLOBAL PROPERTY GR_LOWER_LIBRARIES)
    set(targets ${ARGN})
    foreach(name ${lower})
        list(TRANSFORM targets REPLACE "^${name}$" "gr_lower_${name}")
    endforeach()
    set(${variable} ${targets} PARENT_SCOPE)
endfunction()

# gr_exporting(<target> <library>): objects of a shared library, which define what its classes export.
function(gr_exporting target library)
    target_compile_definitions(${target} PRIVATE ${library}_EXPORTS)
    if(WIN32)
        # As MSVC does: inline functions of exported classes are exported too, and have one address in a process.
        set_target_properties(${target} PROPERTIES VISIBILITY_INLINES_HIDDEN OFF)
    endif()
endfunction()

# gr_platform_library(<name> LIBRARY ... ROOMS ... SOURCES ... PRIVATE_HEADERS ... USES ... PRIVATE_USES ...): one lower
# library, linked into the shared library LIBRARY. It sees its own headers and those of the lower libraries that it USES. ROOMS
# are folders of a library that has several. All headers are installed but the PRIVATE_HEADERS.
function(gr_platform_library name)
    cmake_parse_arguments(arg "" "LIBRARY" "ROOMS;SOURCES;PRIVATE_HEADERS;USES;PRIVATE_USES" ${ARGN})
    list(TRANSFORM arg_ROOMS PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE folders)
    list(PREPEND folders ${CMAKE_CURRENT_SOURCE_DIR})
    set_property(GLOBAL APPEND PROPERTY GR_LOWER_LIBRARIES ${name})
    set(target gr_lower_${name})
    gr_folder_targets(used_headers ${arg_USES})
    list(TRANSFORM used_headers REPLACE "^(gr_lower_.*)$" "\\1_headers")
    gr_folder_targets(private_uses ${arg_PRIVATE_USES})

    add_library(${target}_headers INTERFACE)
    target_include_directories(${target}_headers INTERFACE ${folders})
    target_link_libraries(${target}_headers INTERFACE ${used_headers})

    add_library(${target}_objects OBJECT ${arg_SOURCES})
    gr_exporting(${target}_objects ${arg_LIBRARY})
    target_link_libraries(${target}_objects PRIVATE ${target}_headers gr_build ${private_uses})

    # What others in the tree link: these headers alone, however much more the shared library holds.
    add_library(${target} INTERFACE)
    target_link_libraries(${target} INTERFACE ${target}_headers $<LINK_ONLY:${arg_LIBRARY}>)
    if(PROJECT_IS_TOP_LEVEL)
        add_library(${name} ALIAS ${target})
    endif()

    gr_collect(${arg_LIBRARY} OBJECTS ${target}_objects FOLDERS ${folders} PRIVATE_HEADERS ${arg_PRIVATE_HEADERS})
endfunction()

# gr_subsystem(<target> SOURCES ... USES ... PRIVATE_USES ...): one room of source/, linked into the gr library as objects. It
# sees its own public headers, in the room of include/ with the same path, its own private ones, and of the others what it
# names: USES for what its headers include, PRIVATE_USES for the rest. What a room offers the rooms above it alone lies in its
# folder shared/, what those above must define for it in registration/.
function(gr_subsystem target)
    cmake_parse_arguments(arg "" "" "SOURCES;USES;PRIVATE_USES" ${ARGN})
    file(RELATIVE_PATH room ${PROJECT_SOURCE_DIR}/source ${CMAKE_CURRENT_SOURCE_DIR})
    add_library(${target} OBJECT ${arg_SOURCES})
    gr_exporting(${target} gr)
    target_include_directories(${target}
        PUBLIC ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/include/${room} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    foreach(folder shared registration)
        if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
            target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
        endif()
    endforeach()
    gr_folder_targets(uses ${arg_USES})
    gr_folder_targets(private_uses ${arg_PRIVATE_USES})
    target_link_libraries(${target} PUBLIC ${uses} PRIVATE gr_build ${private_uses})
    gr_collect(gr OBJECTS ${target} FOLDERS ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/include/${room})
endfunction()

# gr_collect(<library> OBJECTS ... FOLDERS ... PRIVATE_HEADERS ...): adds to what gr_shared_library will put together.
function(gr_collect library)
    set(kinds OBJECTS FOLDERS PRIVATE_HEADERS)
    cmake_parse_arguments(arg "" "" "${kinds}" ${ARGN})
    foreach(kind ${kinds})
        set_property(GLOBAL APPEND PROPERTY ${library}_${kind} ${arg_${kind}})
    endforeach()
endfunction()

# gr_forward_headers(<folder> <header>...): makes a folder that gives these headers and none of their neighbours.
function(gr_forward_headers folder)
    foreach(header ${ARGN})
        get_filename_component(name ${header} NAME)
        file(CONFIGURE OUTPUT ${folder}/${name} CONTENT "#include \"${header}\"\n" @ONLY)
    endforeach()
endfunction()

# gr_shared_library(<target> NAME ... USES ...): puts together a shared library of what was collected for it, which others link
# as gr::NAME, and installs it with its headers. Others see the headers that are installed, also those whose build takes the
# project in.
function(gr_shared_library target)
    cmake_parse_arguments(arg "" "NAME" "USES" ${ARGN})
    foreach(kind OBJECTS FOLDERS PRIVATE_HEADERS)
        get_property(${kind} GLOBAL PROPERTY ${target}_${kind})
        list(REMOVE_DUPLICATES ${kind})
    endforeach()
    set(headers)
    foreach(folder ${FOLDERS})
        file(GLOB found CONFIGURE_DEPENDS ${folder}/*.h)
        list(APPEND headers ${found})
    endforeach()
    foreach(header ${PRIVATE_HEADERS})
        list(FILTER headers EXCLUDE REGEX "/${header}$")
    endforeach()

    add_library(${target} SHARED)
    set_property(GLOBAL APPEND PROPERTY GR_SHARED_LIBRARIES ${target})
    add_library(gr::${arg_NAME} ALIAS ${target})
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} EXPORT_NAME ${arg_NAME} INSTALL_RPATH $ORIGIN)
    if(WIN32)
        set_target_properties(${target} PROPERTIES PREFIX "") # gr.dll, whatever the compiler
    endif()
    target_compile_features(${target} PUBLIC cxx_std_20)
    if(NOT PROJECT_IS_TOP_LEVEL)
        set(FOLDERS ${PROJECT_BINARY_DIR}/include/${target})
        gr_forward_headers(${FOLDERS} ${headers})
    endif()
    target_include_directories(${target} PUBLIC
        "$<BUILD_INTERFACE:${FOLDERS}>" $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/gr>)
    target_link_libraries(${target} PUBLIC ${arg_USES} PRIVATE gr_build ${OBJECTS})

    if(GR_INSTALL)
        install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/gr COMPONENT development)
        install(TARGETS ${target} EXPORT gr
            RUNTIME COMPONENT library
            LIBRARY COMPONENT library NAMELINK_COMPONENT development
            ARCHIVE COMPONENT development)
    endif()
endfunction()

# gr_program(<target> SOURCES ... USES ...): an executable of the project.
function(gr_program target)
    cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
    add_executable(${target} ${arg_SOURCES})
    target_link_libraries(${target} PRIVATE gr_build ${arg_USES})
    if(WIN32)
        gr_windows_manifest(${target})
    endif()
endfunction()

# gr_install_program(<target>): a program for users.
function(gr_install_program target)
    file(RELATIVE_PATH libraries /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
    set_target_properties(${target} PROPERTIES INSTALL_RPATH $ORIGIN/${libraries})
    if(GR_INSTALL)
        install(TARGETS ${target} COMPONENT tools)
        set_property(GLOBAL APPEND PROPERTY GR_INSTALLED_PROGRAMS ${target})
    endif()
endfunction()

# gr_compile_quickly(<target>): a test spends more time in the compiler than it runs.
function(gr_compile_quickly target)
    if(NOT MSVC)
        target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>)
    endif()
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        # So that ccache understands precompiled headers; and warnings that need what -O2 finds out are wrong without it.
        target_compile_options(${target} PRIVATE -fpch-preprocess
            -Wno-array-bounds -Wno-stringop-overflow -Wno-maybe-uninitialized)
    endif()
    # All code that shares a precompiled header is either for libraries or for programs.
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE OFF)
endfunction()

# gr_test(<target> SOURCES ... USES ...): a GoogleTest program, run by ctest in a random order as one test.
function(gr_test target)
    cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
    gr_program(${target} SOURCES ${arg_SOURCES} USES ${arg_USES} ts_harness GTest::gtest_main)
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    gr_compile_quickly(${target})
    target_precompile_headers(${target} REUSE_FROM ts_precompiled)
    file(GLOB tables CONFIGURE_DEPENDS *.table)
    if(tables)
        target_compile_definitions(${target} PRIVATE TS_TABLES="${CMAKE_CURRENT_SOURCE_DIR}/")
    endif()
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
