# Each example is copied from the installed place into an empty folder and built there.

include("${SETTINGS}")

set(place "${PREFIX}/${DOC_DIR}/examples")
file(GLOB sources RELATIVE "${place}" "${place}/*/main.cpp")
list(LENGTH sources count)
if(count LESS 4)
    message(FATAL_ERROR "only these examples are installed: ${sources}")
endif()

set(scratchDir "${SCRATCH}/examples")
file(REMOVE_RECURSE "${scratchDir}")
foreach(source IN LISTS sources)
    cmake_path(GET source PARENT_PATH name)
    if(name STREQUAL "settings-dialog" AND NOT BUILD_WINDOW_EXAMPLES)
        continue()
    endif()
    file(COPY "${place}/${name}" DESTINATION "${scratchDir}")
    run("${CMAKE_COMMAND}" -S "${scratchDir}/${name}" -B "${scratchDir}/${name}/build" ${CONFIGURE_ARGUMENTS}
        "-DCMAKE_PREFIX_PATH=${PREFIX}" "-DREPORTGENERATOR_PACKAGE=${PACKAGE}")
    run("${CMAKE_COMMAND}" --build "${scratchDir}/${name}/build" --parallel 2)
endforeach()

find_dlls("${PREFIX}/${BIN_DIR}")
run_program("${scratchDir}/report-writer/build/report-writer")
file(READ "${SOURCE_DIR}/tests/examples/report-writer.txt" expected)
string(REPLACE "\r" "" output "${RUN_OUTPUT}")
if(NOT output STREQUAL expected)
    message(FATAL_ERROR "expected\n${expected}")
endif()
