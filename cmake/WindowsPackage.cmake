# What goes into the package for Windows besides what any build installs, and CPack's description of it: a folder to
# unpack anywhere, whose programs run on a machine that has nothing of Qt and of the compiler.

# --- Licences of what others made

# licence(<folder> <file>...)
function(licence folder)
    install(FILES ${ARGN} DESTINATION "${CMAKE_INSTALL_DATADIR}/licenses/${folder}" COMPONENT runtime)
endfunction()

file(GLOB qtLicences "${REPORTGENERATOR_WINDOWS_PARTS}/qt/licenses/*")
if(NOT qtLicences)
    message(FATAL_ERROR "no licences in ${REPORTGENERATOR_WINDOWS_PARTS}/qt/licenses")
endif()
licence(qt ${qtLicences})
licence(gcc /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright /usr/share/common-licenses/GPL-3)
licence(mingw-w64 /usr/share/doc/mingw-w64-x86-64-dev/copyright)

file(READ "${REPORTGENERATOR_WINDOWS_PARTS}/qt/version" QT_SOURCE_VERSION)
string(REGEX REPLACE "^Version: *([^\n]+)\n.*$" "\\1" QT_SOURCE_VERSION "${QT_SOURCE_VERSION}")
execute_process(
    COMMAND dpkg-query --show "--showformat=\${source:Package} \${source:Version}"
        gcc-mingw-w64-x86-64-posix-runtime
    OUTPUT_VARIABLE GCC_SOURCE COMMAND_ERROR_IS_FATAL ANY)
execute_process(
    COMMAND dpkg-query --show "--showformat=\${source:Package} \${source:Version}" mingw-w64-x86-64-dev
    OUTPUT_VARIABLE MINGW_SOURCE COMMAND_ERROR_IS_FATAL ANY)
configure_file("${PROJECT_SOURCE_DIR}/cmake/windows/licences.txt.in" "${PROJECT_BINARY_DIR}/licences.txt" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/licences.txt" DESTINATION "${CMAKE_INSTALL_DATADIR}/licenses" COMPONENT runtime)

# --- The bill of materials

set(REPORTGENERATOR_BILL_PLACE "${CMAKE_INSTALL_DOCDIR}/${REPORTGENERATOR_PACKAGE_FILE}.spdx.json")

file(STRINGS "${REPORTGENERATOR_WINDOWS_PARTS}/qt/bundled" bundled)
foreach(part IN LISTS bundled)
    if(NOT part MATCHES "^([a-z0-9-]+) ([0-9.]+)$")
        message(FATAL_ERROR "the version of a part that is built into Qt is not known: ${part}")
    endif()
    string(TOUPPER "${CMAKE_MATCH_1}" name)
    string(REPLACE "-" "_" name "${name}")
    set(${name}_VERSION "${CMAKE_MATCH_2}")
endforeach()
string(REGEX REPLACE "^.* " "" GCC_VERSION "${GCC_SOURCE}")
string(REGEX REPLACE "^.* " "" MINGW_VERSION "${MINGW_SOURCE}")
string(REPLACE "+" "%2B" QT_PURL_VERSION "${QT_SOURCE_VERSION}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/windows/bill.cmake.in" "${PROJECT_BINARY_DIR}/bill.cmake" @ONLY)

# --- The package

configure_file("${PROJECT_SOURCE_DIR}/cmake/windows/package.cmake.in" "${PROJECT_BINARY_DIR}/package.cmake" @ONLY)
