# The full system takes the sources in, with its own base library in place of the tree's.

include("${SETTINGS}")

set(build "${SCRATCH}/fullsystem")
run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}/tests/fullsystem" -B "${build}" ${CONFIGURE_ARGUMENTS} ${QUICK_BUILD_ARGUMENTS}
    "-DREPORTGENERATOR_QT_MAJOR=${QT_MAJOR}" "-DREPORTGENERATOR_SOURCE_DIR=${SOURCE_DIR}")
run("${CMAKE_COMMAND}" --build "${build}" --target fullsystem)
find_dlls("${build}" "${build}/reportgenerator/framework/reportgenerator/reportbase")
run_program("${build}/fullsystem")
set(expected "system base: SettingsNotifier::SetSettings: Unknown Tag 'Step' in 'Ellipse'. | \
framework/reportgenerator/reportbase/settingsnotifier | 110\n")
if(NOT RUN_OUTPUT STREQUAL expected)
    message(FATAL_ERROR "the trace should be\n${expected}")
endif()
if(EXISTS "${build}/reportgenerator/framework/wendbase")
    message(FATAL_ERROR "the tree's base library has been taken in too")
endif()
