# Another project finds, links and runs the installed library by pkg-config.

include("${SETTINGS}")

set(ENV{PKG_CONFIG_PATH} "${PREFIX}/${LIB_DIR}/pkgconfig:$ENV{PKG_CONFIG_PATH}")
set(ENV{LD_LIBRARY_PATH} "${PREFIX}/${LIB_DIR}:$ENV{LD_LIBRARY_PATH}")
set(build "${SCRATCH}/pkgconfig_consumer_qt${QT_MAJOR}")
file(MAKE_DIRECTORY "${build}")

# consume(<source> <program> <package>)
function(consume source program package)
    run("${PKG_CONFIG}" --print-errors --exact-version=${VERSION} ${package})
    run("${PKG_CONFIG}" --cflags ${package})
    separate_arguments(compileFlags UNIX_COMMAND "${RUN_OUTPUT}")
    run("${PKG_CONFIG}" --libs ${package})
    separate_arguments(linkFlags UNIX_COMMAND "${RUN_OUTPUT}")
    run(${COMPILER_LAUNCHER} "${COMPILER}" -std=c++17 ${SANITIZE_FLAGS} ${compileFlags}
        -c "${SOURCE_DIR}/tests/consumer/${source}" -o "${build}/${program}.o")
    run("${COMPILER}" ${SANITIZE_FLAGS} "${build}/${program}.o" -o "${build}/${program}" ${linkFlags})
    run_consumer("${build}/${program}")
endfunction()

consume(main.cpp consumer ${PC_NAME})
consume(qtheaders.cpp headerconsumer ${PC_NAME})
if(BUILD_MODELS)
    consume(models.cpp modelconsumer ${MODELS_PC_NAME})
endif()
