# Another project takes the sources in. It gets the target under its installed name, and neither the tests nor the
# programs.

include("${SETTINGS}")

set(project "${SCRATCH}/subproject")
file(WRITE "${project}/CMakeLists.txt" "
cmake_minimum_required(VERSION 3.22)
project(Parent LANGUAGES CXX)
add_subdirectory([==[${SOURCE_DIR}]==] reportgenerator)
if(NOT TARGET ReportGenerator::reportbase)
    message(FATAL_ERROR \"no target ReportGenerator::reportbase\")
endif()
foreach(target IN ITEMS reportbase_tests reporttool roundtrip)
    if(TARGET \${target})
        message(FATAL_ERROR \"unasked target \${target}\")
    endif()
endforeach()
if(CMAKE_RUNTIME_OUTPUT_DIRECTORY)
    message(FATAL_ERROR \"the parent's settings are changed\")
endif()
")
run("${CMAKE_COMMAND}" -S "${project}" -B "${project}/build" ${CONFIGURE_ARGUMENTS}
    "-DREPORTGENERATOR_QT_MAJOR=${QT_MAJOR}")
