# Takes PACKAGE, the one for Windows, as its users do: unpacks it into a folder with blanks and umlauts, looks for what
# has to be in it, runs the program in it, and builds a program of another project with it, which runs with nothing but
# the package's own DLLs.

include("${SETTINGS}")

set(folder "${SCRATCH}/Prüfung der Ware – ganz öffentlich")
file(REMOVE_RECURSE "${folder}")
file(ARCHIVE_EXTRACT INPUT "${PACKAGE_FILE}" DESTINATION "${folder}")

cmake_path(GET PACKAGE_FILE STEM LAST_ONLY name)
set(PREFIX "${folder}/${name}")
file(GLOB top RELATIVE "${folder}" "${folder}/*")
if(NOT top STREQUAL name)
    message(FATAL_ERROR "${PACKAGE_FILE} unpacks to ${top} instead of ${name}")
endif()

# --- What is in it

file(GLOB programs RELATIVE "${PREFIX}/bin" "${PREFIX}/bin/*")
list(SORT programs)
set(expected Qt5Core.dll libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll reportbase.dll reportmodels.dll
    reporttool.exe wendbase.dll)
list(SORT expected)
if(NOT programs STREQUAL expected)
    message(FATAL_ERROR "bin/ holds ${programs} instead of ${expected}")
endif()

include("${SOURCE_DIR}/tests/install/libraryfiles.cmake")
foreach(file IN ITEMS share/doc/ReportGenerator/README.md share/doc/ReportGenerator/docs/windows.md
    share/licenses/licences.txt share/licenses/qt/LICENSE.LGPL3 share/licenses/gcc/GPL-3 share/licenses/gcc/copyright
    share/licenses/mingw-w64/copyright)
    if(NOT EXISTS "${PREFIX}/${file}")
        message(FATAL_ERROR "not in the package: ${file}")
    endif()
endforeach()
foreach(header IN LISTS PUBLIC_HEADERS)
    file(RELATIVE_PATH header "${SOURCE_DIR}/framework" "${header}")
    if(NOT EXISTS "${PREFIX}/include/${header}")
        message(FATAL_ERROR "not in the package: include/${header}")
    endif()
endforeach()
file(READ "${PREFIX}/share/licenses/licences.txt" licences)
if(NOT licences MATCHES "qtbase-opensource-src 5\\.15\\." OR NOT licences MATCHES "gcc-mingw-w64 [0-9]"
    OR NOT licences MATCHES "mingw-w64 [0-9]")
    message(FATAL_ERROR "licences.txt doesn't tell what the DLLs were built from:\n${licences}")
endif()

run(python3 "${SOURCE_DIR}/scripts/sbom.py" check "${PREFIX}/share/doc/ReportGenerator/${name}.spdx.json"
    "reportgenerator-windows=${PREFIX}")

# --- The program in it, and one of another project

set(RUNTIME_DIRS "")
unset(ENV{WINEPATH})
run_program("${PREFIX}/bin/reporttool" check "${SOURCE_DIR}/examples/reports/airband_emergency_lake.xml")
run_program("${PREFIX}/bin/reporttool" convert "${SOURCE_DIR}/examples/reports/airband_emergency_lake.xml" "${folder}/Bericht Ä.bin"
    --to compressed)
run_program("${PREFIX}/bin/reporttool" check "${folder}/Bericht Ä.bin")

set(build "${folder}/Verbraucher bauen")
run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}/tests/consumer" -B "${build}" ${CONFIGURE_ARGUMENTS}
    "-DCMAKE_PREFIX_PATH=${PREFIX}" "-DREPORTGENERATOR_PACKAGE=${PACKAGE}")
run("${CMAKE_COMMAND}" --build "${build}")
run_consumer("${build}/consumer")
run_consumer("${build}/modelconsumer")
message(STATUS "The package is whole, and programs run with it")
