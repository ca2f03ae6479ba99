# Three Debian packages, one for each component of the install; scripts/make-packages makes and checks them.

# Under a name and a soname of its own, so that programs built against the next one can be installed beside it.
set(library_package libgr${PROJECT_VERSION_MAJOR})

foreach(component library development tools)
    set(package_development libgr-dev)
    set(package_tools gr-tools)
    set(package_library ${library_package})
    set(${component}_documents ${CMAKE_INSTALL_DATADIR}/doc/${package_${component}})
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package_${component}})
    gr_install_document(packaging/changelog COMPONENT ${component} FOLDER ${${component}_documents})
    if(NOT component STREQUAL library)
        install(FILES packaging/copyright DESTINATION ${${component}_documents} COMPONENT ${component})
        set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${library_package} (= ${PROJECT_VERSION})")
    endif()
endforeach()

set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "interactive behaviour for 3-D views
gr is a class library that lets users turn, zoom and pan 3-D views with the
mouse and holds the frame rate while they do, with display structures and an
OpenGL driver below.
.
This package holds the shared libraries.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "interactive behaviour for 3-D views (development files)
gr is a class library that lets users turn, zoom and pan 3-D views with the
mouse and holds the frame rate while they do, with display structures and an
OpenGL driver below.
.
This package holds headers, documents and examples, and what CMake and
pkg-config need to find the library.")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS "fonts-urw-base35, libgl1-mesa-dri")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "viewer and converter for machined parts
gr-viewer shows triangle meshes in one or several 3-D views, records sessions
and replays them without a display into pictures. gr-tarn converts, cuts and
describes mesh files.")

file(WRITE ${PROJECT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)

set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_COMPONENTS_ALL library development tools)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_NAME gr)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
# Else it would become the first line of every description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_CONTACT "The maintainers of gr <maintainers@gr.invalid>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
