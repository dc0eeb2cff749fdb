# The DLLs of others that programs need beside the library's own: Qt Core's and the compiler's. Windows looks for DLLs in
# the folder of the program first, so they are copied to the programs of the build, and installed with them where a
# package is made that is to run on a machine that has nothing of it.

option(REPORTGENERATOR_INSTALL_RUNTIME "Install the DLLs of Qt Core and of the compiler too" OFF)

get_target_property(qtCore ${REPORTGENERATOR_QT}::Core IMPORTED_LOCATION_RELEASE)
set(runtimeDlls "${qtCore}")
foreach(name IN ITEMS libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(
        COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${name}
        OUTPUT_VARIABLE path
        OUTPUT_STRIP_TRAILING_WHITESPACE
        COMMAND_ERROR_IS_FATAL ANY)
    if(NOT IS_ABSOLUTE "${path}")
        message(FATAL_ERROR "${CMAKE_CXX_COMPILER} has no ${name}")
    endif()
    cmake_path(NORMAL_PATH path)
    list(APPEND runtimeDlls "${path}")
endforeach()

# Without the compiler's own notes for debuggers, which make up nine tenths of them.
set(strippedDir "${PROJECT_BINARY_DIR}/runtime")
file(MAKE_DIRECTORY "${strippedDir}")
set(REPORTGENERATOR_RUNTIME_DIRS "${strippedDir}")
set(strippedDlls "")
foreach(dll IN LISTS runtimeDlls)
    cmake_path(GET dll FILENAME name)
    execute_process(
        COMMAND "${CMAKE_STRIP}" --strip-debug -o "${strippedDir}/${name}" "${dll}"
        COMMAND_ERROR_IS_FATAL ANY)
    list(APPEND strippedDlls "${strippedDir}/${name}")
endforeach()
file(COPY ${strippedDlls} DESTINATION "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${runtimeDlls})

if(REPORTGENERATOR_INSTALL_RUNTIME)
    install(FILES ${strippedDlls} DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime)
endif()

# The name of the package without its ending, and of the folder that it unpacks to.
set(REPORTGENERATOR_PACKAGE_FILE "reportgenerator-${PROJECT_VERSION}-windows-x86_64")
