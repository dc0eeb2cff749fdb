# CMake's own switch is honoured: without tests there are neither test programs nor fuzz targets.

include("${SETTINGS}")

file(REMOVE_RECURSE "${SCRATCH}/build_testing")

# configure_tree(<name> <argument>...): leaves the names of the targets in RUN_OUTPUT.
function(configure_tree name)
    set(build "${SCRATCH}/build_testing/${name}")
    run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${build}" ${CONFIGURE_ARGUMENTS}
        "-DREPORTGENERATOR_QT_MAJOR=${QT_MAJOR}" -DREPORTGENERATOR_BUILD_TOOLS=OFF -DREPORTGENERATOR_BUILD_EXAMPLES=OFF
        ${ARGN})
    run("${CMAKE_COMMAND}" --build "${build}" --target help)
    set(RUN_OUTPUT "${RUN_OUTPUT}" PARENT_SCOPE)
endfunction()

set(testPrograms "reportbase_tests|fuzz_plain")
configure_tree(with)
if(NOT RUN_OUTPUT MATCHES "${testPrograms}")
    message(FATAL_ERROR "no tests where nothing is said of them")
endif()
configure_tree(with -DBUILD_TESTING=OFF)
if(RUN_OUTPUT MATCHES "${testPrograms}")
    message(FATAL_ERROR "tests in spite of BUILD_TESTING")
endif()
configure_tree(with -DBUILD_TESTING=ON)
if(NOT RUN_OUTPUT MATCHES "${testPrograms}")
    message(FATAL_ERROR "no tests in spite of BUILD_TESTING")
endif()
configure_tree(without -DBUILD_TESTING=OFF)
if(RUN_OUTPUT MATCHES "${testPrograms}" OR NOT RUN_OUTPUT MATCHES "reportbase")
    message(FATAL_ERROR "not the library alone")
endif()
