# Every installed header compiles alone and twice in one source file, with a user's strict warnings.

include("${SETTINGS}")

set(build "${SCRATCH}/headers_build")
run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}/tests/install/headers" -B "${build}" ${CONFIGURE_ARGUMENTS}
    "-DCMAKE_PREFIX_PATH=${PREFIX}" "-DREPORTGENERATOR_PACKAGE=${PACKAGE}")
run("${CMAKE_COMMAND}" --build "${build}" --parallel 2)
