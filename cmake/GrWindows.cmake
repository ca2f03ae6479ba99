# What programs need on Windows beside their code.
if(MINGW)
    enable_language(RC)
endif()

# gr_windows_manifest(<target>): the program takes its arguments, file names and the names of fonts as UTF-8, and paths of
# any length, whatever the system's code page is.
function(gr_windows_manifest target)
    if(MSVC)
        target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest)
    else()
        target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/packaging/windows/program.rc)
    endif()
endfunction()

# The DLLs that those of the project need beside them: the compiler's own, and libepoxy's.
set(GR_RUNTIME_DLLS)
if(MINGW)
    foreach(name libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
            OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(NOT IS_ABSOLUTE "${file}")
            find_file(GR_DLL_${name} ${name} PATH_SUFFIXES bin lib REQUIRED)
            set(file ${GR_DLL_${name}})
        endif()
        list(APPEND GR_RUNTIME_DLLS ${file})
    endforeach()
endif()
if(GR_OPENGL)
    find_file(GR_EPOXY_DLL NAMES libepoxy-0.dll epoxy-0.dll PATH_SUFFIXES bin REQUIRED)
    list(APPEND GR_RUNTIME_DLLS ${GR_EPOXY_DLL})
endif()
file(COPY ${GR_RUNTIME_DLLS} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
