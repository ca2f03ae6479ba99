# Installs what belongs to the project as a whole: the files by which others find it, documents, and what programs read.
# Components: library is for running programs that use the library, development for building them, tools are the project's
# own programs.

include(CMakePackageConfigHelpers)

# Builds what is installed and nothing else.
get_property(installed_libraries GLOBAL PROPERTY GR_SHARED_LIBRARIES)
get_property(installed_programs GLOBAL PROPERTY GR_INSTALLED_PROGRAMS)
add_custom_target(gr_installed DEPENDS ${installed_libraries} ${installed_programs})

set(cmake_folder ${CMAKE_INSTALL_LIBDIR}/cmake/gr)
install(EXPORT gr NAMESPACE gr:: FILE grTargets.cmake DESTINATION ${cmake_folder} COMPONENT development)
configure_package_config_file(${PROJECT_SOURCE_DIR}/packaging/grConfig.cmake.in ${PROJECT_BINARY_DIR}/grConfig.cmake
    INSTALL_DESTINATION ${cmake_folder})
# Before version 1 every minor version may change the interface.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/grConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/grConfig.cmake ${PROJECT_BINARY_DIR}/grConfigVersion.cmake
    DESTINATION ${cmake_folder} COMPONENT development)

# gr_install_pkgconfig(<file> NAME ... DESCRIPTION ... LIBRARIES ... REQUIRES ...): <file>.pc for users of pkg-config.
function(gr_install_pkgconfig file)
    cmake_parse_arguments(pc "" "DESCRIPTION;LIBRARIES;REQUIRES" "" ${ARGN})
    set(pc_name ${file})
    set(pc_description ${pc_DESCRIPTION})
    set(pc_libraries ${pc_LIBRARIES})
    set(pc_requires ${pc_REQUIRES})
    file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
    string(REGEX REPLACE "/$" "" prefix_from_pkgconfig ${prefix_from_pkgconfig})
    configure_file(${PROJECT_SOURCE_DIR}/packaging/gr.pc.in ${PROJECT_BINARY_DIR}/${file}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${file}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()

gr_install_pkgconfig(gr DESCRIPTION ${PROJECT_DESCRIPTION} LIBRARIES "-lgr -lgr_display")
gr_install_pkgconfig(gr-trace DESCRIPTION "Records what gr draws, for tests" LIBRARIES -lgr_trace REQUIRES gr)
if(GR_OPENGL)
    gr_install_pkgconfig(gr-opengl DESCRIPTION "Draws gr's views by OpenGL" LIBRARIES -lgr_opengl REQUIRES gr)
endif()
if(GR_GLFW)
    gr_install_pkgconfig(gr-glfw DESCRIPTION "Windows for gr's views" LIBRARIES -lgr_glfw REQUIRES gr-opengl)
endif()

# gr_install_document(<file> COMPONENT ... FOLDER ...): with GR_DEBIAN compressed, as Debian has manual pages and changelogs.
option(GR_DEBIAN "Install as Debian's packages do; for scripts/make-packages" OFF)
function(gr_install_document file)
    cmake_parse_arguments(arg "" "COMPONENT;FOLDER;NAME" "" ${ARGN})
    get_filename_component(name ${file} NAME)
    configure_file(${PROJECT_SOURCE_DIR}/${file} ${PROJECT_BINARY_DIR}/documents/${name})
    if(GR_DEBIAN)
        execute_process(COMMAND gzip -9 -n -f ${name} WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/documents COMMAND_ERROR_IS_FATAL ANY)
        string(APPEND name .gz)
    endif()
    install(FILES ${PROJECT_BINARY_DIR}/documents/${name} DESTINATION ${arg_FOLDER} COMPONENT ${arg_COMPONENT})
endfunction()

set(library_documents ${CMAKE_INSTALL_DOCDIR})
set(development_documents ${CMAKE_INSTALL_DOCDIR})
if(GR_DEBIAN)
    include(GrPackages)
elseif(WIN32)
    include(GrZips)
endif()
install(FILES packaging/copyright DESTINATION ${library_documents} COMPONENT library)
install(FILES README.md CHANGELOG.md DESTINATION ${development_documents} COMPONENT development)
install(DIRECTORY docs examples DESTINATION ${development_documents} COMPONENT development)
if(GR_PROGRAMS)
    install(DIRECTORY share/gr DESTINATION ${CMAKE_INSTALL_DATADIR} COMPONENT tools)
    if(NOT WIN32)
        foreach(program gr-viewer gr-tarn)
            gr_install_document(packaging/${program}.1 COMPONENT tools FOLDER ${CMAKE_INSTALL_MANDIR}/man1)
        endforeach()
    endif()
endif()
