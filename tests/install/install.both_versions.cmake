# The builds for both versions of Qt stand in one prefix. Nobody gets both into one program unawares.

include("${SETTINGS}")

# --- Two packages in one project

set(project "${SCRATCH}/both_versions")
file(WRITE "${project}/CMakeLists.txt" "
cmake_minimum_required(VERSION 3.22)
project(Both LANGUAGES CXX)
find_package(\${FIRST} CONFIG REQUIRED)
find_package(\${FIRST} CONFIG REQUIRED)
find_package(\${SECOND} CONFIG REQUIRED)
")

# refuse_second(<first package> <second package> <words>)
function(refuse_second first second words)
    run_refused("${words}"
        "${CMAKE_COMMAND}" -S "${project}" -B "${project}/${first}" ${CONFIGURE_ARGUMENTS}
        "-DCMAKE_PREFIX_PATH=${PREFIX}" "-DFIRST=${first}" "-DSECOND=${second}")
endfunction()

refuse_second(ReportGenerator ReportGeneratorQt6
    "ReportGeneratorQt6 is the report library for Qt 6, but this project uses the one for Qt 5 already.")
refuse_second(ReportGeneratorQt6 ReportGenerator
    "ReportGenerator is the report library for Qt 5, but this project uses the one for Qt 6 already.")

# --- The library for one Qt with the headers of the other, or two libraries at once

set(ENV{PKG_CONFIG_PATH} "${PREFIX}/${LIB_DIR}/pkgconfig:$ENV{PKG_CONFIG_PATH}")
set(words "The report library is for another Qt: ReportGenerator for Qt 5, ReportGeneratorQt6 for Qt 6")
file(WRITE "${project}/main.cpp" "#include <reportgenerator/reportbase/frequency.h>\n")
foreach(packages IN ITEMS
        "Qt5Core reportgenerator-qt6"
        "Qt6Core reportgenerator"
        "reportgenerator reportgenerator-qt6"
        "reportgenerator-qt6 reportgenerator")
    separate_arguments(packages)
    run("${PKG_CONFIG}" --cflags ${packages})
    separate_arguments(compileFlags UNIX_COMMAND "${RUN_OUTPUT}")
    run_refused("${words}" "${COMPILER}" -std=c++17 ${compileFlags} -fsyntax-only "${project}/main.cpp")
endforeach()

# --- A program that gets both all the same, by its parts: each part calls its own

set(libraries "${PREFIX}/${LIB_DIR}")
set(parts "")
foreach(qtMajor IN ITEMS 5 6)
    set(package reportgenerator)
    if(qtMajor EQUAL 6)
        set(package reportgenerator-qt6)
    endif()
    run("${PKG_CONFIG}" --cflags ${package})
    separate_arguments(compileFlags UNIX_COMMAND "${RUN_OUTPUT}")
    run("${PKG_CONFIG}" --libs ${package})
    separate_arguments(linkFlags UNIX_COMMAND "${RUN_OUTPUT}")

    set(part "${project}/libpart${qtMajor}.so")
    run(${COMPILER_LAUNCHER} "${COMPILER}" -std=c++17 -fvisibility=hidden -fvisibility-inlines-hidden ${compileFlags}
        -DUSE_REPORT=UseReportWithQt${qtMajor} -c "${SOURCE_DIR}/tests/consumer/parts/part.cpp" -o "${part}.o")
    run("${COMPILER}" -shared "${part}.o" -o "${part}" ${linkFlags})
    list(APPEND parts "${part}")
endforeach()
run("${COMPILER}" ${SANITIZE_FLAGS} "${SOURCE_DIR}/tests/consumer/parts/main.cpp" -o "${project}/program" ${parts}
    "-Wl,-rpath-link,${libraries}")
set(ENV{LD_LIBRARY_PATH} "${libraries}:$ENV{LD_LIBRARY_PATH}")
run("${project}/program")
