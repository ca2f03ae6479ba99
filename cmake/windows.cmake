# Cross-builds for Windows x86-64 by mingw-w64 with its threads of the POSIX kind, which std::thread needs. Third-party
# libraries come from the folder that scripts/windows-root makes, and from nowhere else.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)

set(triple x86_64-w64-mingw32)
set(CMAKE_LIBRARY_ARCHITECTURE ${triple})
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

get_filename_component(GR_WINDOWS_ROOT ${CMAKE_CURRENT_LIST_DIR}/../build/windows-root REALPATH)
set(CMAKE_FIND_ROOT_PATH ${GR_WINDOWS_ROOT} /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
foreach(kind LIBRARY INCLUDE PACKAGE)
    set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()
set(ENV{PKG_CONFIG_LIBDIR} ${GR_WINDOWS_ROOT}/lib/pkgconfig)
set(ENV{PKG_CONFIG_PATH} "")

# Where programs find the compiler's own libraries, and what runs the programs here.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine)
