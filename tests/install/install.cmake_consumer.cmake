# Another project finds, links and runs the installed library by CMake.

include("${SETTINGS}")

set(build "${SCRATCH}/cmake_consumer_qt${QT_MAJOR}")
run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}/tests/consumer" -B "${build}" ${CONFIGURE_ARGUMENTS}
    "-DCMAKE_PREFIX_PATH=${PREFIX}" "-DREPORTGENERATOR_PACKAGE=${PACKAGE}" "-DWITH_MODELS=${BUILD_MODELS}")
run("${CMAKE_COMMAND}" --build "${build}")
run_consumer("${build}/consumer")
run_consumer("${build}/headerconsumer")
if(BUILD_MODELS)
    run_consumer("${build}/modelconsumer")
endif()
