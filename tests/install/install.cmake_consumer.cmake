# Another project finds, links and runs the installed library by CMake.

include("${SETTINGS}")

set(build "${SCRATCH}/cmake_consumer_qt${QT_MAJOR}")
run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}/tests/consumer" -B "${build}" ${CONFIGURE_ARGUMENTS}
    "-DCMAKE_PREFIX_PATH=${PREFIX}" "-DREPORTGENERATOR_PACKAGE=${PACKAGE}")
run("${CMAKE_COMMAND}" --build "${build}")
run_consumer("${build}/consumer")
