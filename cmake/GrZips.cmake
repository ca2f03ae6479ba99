# Two zips for Windows, which unpacked into one folder are an installed tree: the programs with their DLLs, and what
# applications are built with. cmake --build --preset windows --target package

install(FILES ${GR_RUNTIME_DLLS} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library)
# The notices of the libraries that are linked in.
find_path(GR_LICENSES licenses/libepoxy PATH_SUFFIXES share)
if(GR_LICENSES)
    install(DIRECTORY ${GR_LICENSES}/licenses DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT library)
endif()

set(CPACK_GENERATOR ZIP)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_COMPONENTS_ALL library development tools)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENT_LIBRARY_GROUP programs)
set(CPACK_COMPONENT_TOOLS_GROUP programs)
set(CPACK_COMPONENT_DEVELOPMENT_GROUP development)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_NAME gr)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR gr)
set(CPACK_PACKAGE_FILE_NAME gr-${PROJECT_VERSION}-windows-x86_64)
set(CPACK_ARCHIVE_PROGRAMS_FILE_NAME ${CPACK_PACKAGE_FILE_NAME})
set(CPACK_ARCHIVE_DEVELOPMENT_FILE_NAME ${CPACK_PACKAGE_FILE_NAME}-development)
include(CPack)
