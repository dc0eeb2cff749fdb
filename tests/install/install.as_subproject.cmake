# Another project, whose own libraries are static ones, takes the sources in. It gets the target under its installed
# name, which is a shared library, and neither the tests nor the programs nor the pages.

include("${SETTINGS}")

set(project "${SCRATCH}/subproject")
file(WRITE "${project}/CMakeLists.txt" "
cmake_minimum_required(VERSION 3.22)
project(Parent LANGUAGES CXX)
add_subdirectory([==[${SOURCE_DIR}]==] reportgenerator)
if(NOT TARGET ReportGenerator::reportbase)
    message(FATAL_ERROR \"no target ReportGenerator::reportbase\")
endif()
get_target_property(type ReportGenerator::reportbase TYPE)
if(NOT type STREQUAL \"SHARED_LIBRARY\")
    message(FATAL_ERROR \"a \${type}\")
endif()
if(NOT TARGET ReportGenerator::models)
    message(FATAL_ERROR \"no target ReportGenerator::models\")
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
run("${CMAKE_COMMAND}" -S "${project}" -B "${project}/build" ${CONFIGURE_ARGUMENTS} -DBUILD_SHARED_LIBS=OFF
    "-DREPORTGENERATOR_QT_MAJOR=${QT_MAJOR}")
if(NOT RUN_OUTPUT MATCHES "reportbase is a shared library whatever BUILD_SHARED_LIBS says")
    message(FATAL_ERROR "not told that the library is a shared one")
endif()
file(GLOB_RECURSE installScripts "${project}/build/cmake_install.cmake")
foreach(installScript IN LISTS installScripts)
    file(READ "${installScript}" text)
    if(text MATCHES "README\\.md")
        message(FATAL_ERROR "${installScript} installs pages")
    endif()
endforeach()

# --- Sources and an installed library in one project

file(WRITE "${project}/twice/CMakeLists.txt" "
cmake_minimum_required(VERSION 3.22)
project(Twice LANGUAGES CXX)
add_library(ReportGenerator::reportbase INTERFACE IMPORTED)
add_subdirectory([==[${SOURCE_DIR}]==] reportgenerator)
")
run_refused("This project has a ReportGenerator::reportbase already"
    "${CMAKE_COMMAND}" -S "${project}/twice" -B "${project}/twice/build" ${CONFIGURE_ARGUMENTS}
    "-DREPORTGENERATOR_QT_MAJOR=${QT_MAJOR}")
