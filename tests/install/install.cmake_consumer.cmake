# Another project finds, links and runs the installed library by CMake.

include("${SETTINGS}")

set(build "${SCRATCH}/cmake_consumer")
run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}/tests/consumer" -B "${build}" ${CONFIGURE_ARGUMENTS}
    "-DCMAKE_PREFIX_PATH=${PREFIX}")
run("${CMAKE_COMMAND}" --build "${build}")
run("${build}/consumer")
