# Another project, whose own libraries are static ones, takes the sources in. It gets the target under its installed
# name, which is a shared library, and neither the tests nor the programs nor, unless it asks, what installs them. What
# the parent has said itself stays as it is.

include("${SETTINGS}")

set(project "${SCRATCH}/subproject")
file(REMOVE_RECURSE "${project}")
file(WRITE "${project}/CMakeLists.txt" "
cmake_minimum_required(VERSION 3.22)
project(Parent LANGUAGES CXX)
enable_testing()

get_cmake_property(names CACHE_VARIABLES)
foreach(name IN LISTS names)
    get_property(before_\${name} CACHE \${name} PROPERTY VALUE)
endforeach()
if(FETCH)
    include(FetchContent)
    FetchContent_Declare(reportgenerator SOURCE_DIR [==[${SOURCE_DIR}]==])
    FetchContent_MakeAvailable(reportgenerator)
else()
    add_subdirectory([==[${SOURCE_DIR}]==] reportgenerator)
endif()
foreach(name IN LISTS names)
    get_property(after CACHE \${name} PROPERTY VALUE)
    if(NOT after STREQUAL before_\${name})
        message(FATAL_ERROR \"\${name} was \${before_\${name}} and is \${after}\")
    endif()
endforeach()
# What is new bears a name of the project, or comes from CMake itself and from Qt, which looks for threads and atomics.
get_cmake_property(newNames CACHE_VARIABLES)
list(REMOVE_ITEM newNames \${names})
list(FILTER newNames EXCLUDE REGEX \"^(REPORTGENERATOR_|ReportGenerator_|FETCHCONTENT_|CMAKE_(INSTALL|PROJECT|HAVE)_|FIND_PACKAGE_MESSAGE_DETAILS_|HAVE_STDATOMIC|_GNUInstallDirs_|Qt|QT_)\")
if(newNames)
    message(FATAL_ERROR \"in the parent's cache: \${newNames}\")
endif()
foreach(name IN ITEMS COMPILE_OPTIONS COMPILE_DEFINITIONS INCLUDE_DIRECTORIES LINK_OPTIONS)
    get_property(value DIRECTORY PROPERTY \${name})
    if(value)
        message(FATAL_ERROR \"\${name} of the parent: \${value}\")
    endif()
endforeach()
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

# --- What it installs

# install_rules(<variable>): all that would be run.
function(install_rules variable)
    file(GLOB_RECURSE installScripts "${project}/build/cmake_install.cmake")
    set(rules "")
    foreach(installScript IN LISTS installScripts)
        file(STRINGS "${installScript}" lines REGEX "file\\(INSTALL")
        list(APPEND rules ${lines})
    endforeach()
    set(${variable} "${rules}" PARENT_SCOPE)
endfunction()

install_rules(rules)
if(rules)
    message(FATAL_ERROR "installed unasked: ${rules}")
endif()
run("${CMAKE_COMMAND}" -S "${project}" -B "${project}/build" -DREPORTGENERATOR_INSTALL=ON)
install_rules(rules)
if(NOT rules MATCHES "libreportbase|reportbase.dll" OR rules MATCHES "README\\.md")
    message(FATAL_ERROR "not the library without its pages: ${rules}")
endif()

# --- The same by FetchContent

run("${CMAKE_COMMAND}" -S "${project}" -B "${project}/fetched" ${CONFIGURE_ARGUMENTS} -DBUILD_SHARED_LIBS=OFF
    "-DREPORTGENERATOR_QT_MAJOR=${QT_MAJOR}" -DFETCH=ON)

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
