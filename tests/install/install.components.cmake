# A project asks for parts of the package and for a range of versions: it is told what is missing, and what there is.

include("${SETTINGS}")

set(project "${SCRATCH}/components_qt${QT_MAJOR}")
file(WRITE "${project}/CMakeLists.txt" "
cmake_minimum_required(VERSION 3.22)
project(Components LANGUAGES CXX)
find_package(${PACKAGE} \${ARGUMENTS})
if(NOT ${PACKAGE}_FOUND OR NOT TARGET ReportGenerator::reportbase)
    message(FATAL_ERROR \"not found: \${${PACKAGE}_NOT_FOUND_MESSAGE}\")
endif()
if(${PACKAGE}_Charts_FOUND)
    message(FATAL_ERROR \"there are charts\")
endif()
foreach(target IN LISTS TARGETS)
    if(NOT TARGET \${target})
        message(FATAL_ERROR \"no target \${target}\")
    endif()
endforeach()
")
set(configure "${CMAKE_COMMAND}" -S "${project}" -B "${project}/build" ${CONFIGURE_ARGUMENTS}
    "-DCMAKE_PREFIX_PATH=${PREFIX}")

# --- Components

set(installed reportbase qt)
set(targets ReportGenerator::reportbase ReportGenerator::qt)
if(BUILD_MODELS)
    list(APPEND installed models)
    list(APPEND targets ReportGenerator::models)
endif()
if(EXISTS "${PREFIX}/${BIN_DIR}/reporttool${SUFFIX}${EXE}")
    list(APPEND installed tools)
    list(APPEND targets ReportGenerator::reporttool)
endif()
list(JOIN targets "\\;" targets)
list(JOIN installed "\\;" asked)
run(${configure} "-DARGUMENTS=CONFIG\;REQUIRED\;COMPONENTS\;${asked}" "-DTARGETS=${targets}")
# All that is there is to be had without asking.
run(${configure} "-DARGUMENTS=CONFIG\;REQUIRED" "-DTARGETS=${targets}")

run(${configure} "-DARGUMENTS=REQUIRED\;OPTIONAL_COMPONENTS\;Charts")
run(${configure} "-DARGUMENTS=CONFIG\;OPTIONAL_COMPONENTS\;Charts")

list(JOIN installed ", " installed)
set(words "${PACKAGE} has not these components that are asked for: Maps Tables. Installed here are: ${installed}.")
run_refused("${words}" ${configure}
    "-DARGUMENTS=CONFIG\;REQUIRED\;COMPONENTS\;Maps\;qt\;Tables\;OPTIONAL_COMPONENTS\;Charts")
run_refused("not found: ${words}" ${configure} "-DARGUMENTS=CONFIG\;COMPONENTS\;Maps\;Tables")

# --- Versions

foreach(version IN ITEMS 0.1 0.1.0 0.1...<0.2 0.1.0...0.1.9)
    run(${configure} "-DARGUMENTS=${version}\;CONFIG\;REQUIRED")
endforeach()
foreach(version IN ITEMS 0.0 0.2 1.0 0.1.1 0.1.1...<0.2 0.2...<0.3)
    run_refused("compatible with requested version" ${configure} "-DARGUMENTS=${version}\;CONFIG\;REQUIRED")
endforeach()
