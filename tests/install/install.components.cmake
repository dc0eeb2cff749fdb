# The package has no components: who needs one is told which is missing, who would only like one gets the library.

include("${SETTINGS}")

set(project "${SCRATCH}/components_qt${QT_MAJOR}")
file(WRITE "${project}/CMakeLists.txt" "
cmake_minimum_required(VERSION 3.22)
project(Components LANGUAGES CXX)
find_package(${PACKAGE} CONFIG \${ARGUMENTS})
if(NOT ${PACKAGE}_FOUND OR NOT TARGET ReportGenerator::reportbase)
    message(FATAL_ERROR \"not found: \${${PACKAGE}_NOT_FOUND_MESSAGE}\")
endif()
if(${PACKAGE}_Charts_FOUND)
    message(FATAL_ERROR \"there are charts\")
endif()
")
set(configure "${CMAKE_COMMAND}" -S "${project}" -B "${project}/build" ${CONFIGURE_ARGUMENTS}
    "-DCMAKE_PREFIX_PATH=${PREFIX}")

run(${configure} "-DARGUMENTS=REQUIRED\;OPTIONAL_COMPONENTS\;Charts")
run(${configure} "-DARGUMENTS=OPTIONAL_COMPONENTS\;Charts")

set(words "${PACKAGE} has no components, but these are asked for: Maps Tables.")
run_refused("${words}" ${configure} "-DARGUMENTS=REQUIRED\;COMPONENTS\;Maps\;Tables\;OPTIONAL_COMPONENTS\;Charts")
run_refused("not found: ${words}" ${configure} "-DARGUMENTS=COMPONENTS\;Maps\;Tables")
