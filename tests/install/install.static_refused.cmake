# The library is a shared one; a build that asks for a static one is told so.

include("${SETTINGS}")

run_refused("BUILD_SHARED_LIBS is off, but there is no static report library"
    "${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${SCRATCH}/static" ${CONFIGURE_ARGUMENTS}
    "-DREPORTGENERATOR_QT_MAJOR=${QT_MAJOR}" -DBUILD_SHARED_LIBS=OFF)
