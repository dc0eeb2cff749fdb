# The package has no components: who needs one is told which is missing, who would only like one gets the library.

include("${SETTINGS}")

set(project "${SCRATCH}/components")
file(WRITE "${project}/CMakeLists.txt" "
cmake_minimum_required(VERSION 3.22)
project(Components LANGUAGES CXX)
find_package(ReportGenerator CONFIG \${ARGUMENTS})
if(NOT ReportGenerator_FOUND OR NOT TARGET ReportGenerator::reportbase)
    message(FATAL_ERROR \"not found: \${ReportGenerator_NOT_FOUND_MESSAGE}\")
endif()
if(ReportGenerator_Charts_FOUND)
    message(FATAL_ERROR \"there are charts\")
endif()
")
set(configure "${CMAKE_COMMAND}" -S "${project}" -B "${project}/build" ${CONFIGURE_ARGUMENTS}
    "-DCMAKE_PREFIX_PATH=${PREFIX}")

run(${configure} "-DARGUMENTS=REQUIRED\;OPTIONAL_COMPONENTS\;Charts")
run(${configure} "-DARGUMENTS=OPTIONAL_COMPONENTS\;Charts")

set(words "ReportGenerator has no components, but these are asked for: Maps Tables.")
run_refused("${words}" ${configure} "-DARGUMENTS=REQUIRED\;COMPONENTS\;Maps\;Tables\;OPTIONAL_COMPONENTS\;Charts")
run_refused("not found: ${words}" ${configure} "-DARGUMENTS=COMPONENTS\;Maps\;Tables")
