# Another project finds, links and runs the installed library by pkg-config.

include("${SETTINGS}")

set(ENV{PKG_CONFIG_PATH} "${PREFIX}/${LIB_DIR}/pkgconfig:$ENV{PKG_CONFIG_PATH}")
run("${PKG_CONFIG}" --print-errors --exact-version=${VERSION} ${PC_NAME})
run("${PKG_CONFIG}" --cflags ${PC_NAME})
separate_arguments(compileFlags UNIX_COMMAND "${RUN_OUTPUT}")
run("${PKG_CONFIG}" --libs ${PC_NAME})
separate_arguments(linkFlags UNIX_COMMAND "${RUN_OUTPUT}")

set(build "${SCRATCH}/pkgconfig_consumer_qt${QT_MAJOR}")
file(MAKE_DIRECTORY "${build}")
run(${COMPILER_LAUNCHER} "${COMPILER}" -std=c++17 ${SANITIZE_FLAGS} ${compileFlags}
    -c "${SOURCE_DIR}/tests/consumer/main.cpp" -o "${build}/main.o")
run("${COMPILER}" ${SANITIZE_FLAGS} "${build}/main.o" -o "${build}/consumer" ${linkFlags})

set(ENV{LD_LIBRARY_PATH} "${PREFIX}/${LIB_DIR}:$ENV{LD_LIBRARY_PATH}")
run_consumer("${build}/consumer")
