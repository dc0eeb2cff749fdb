# The port for vcpkg as far as it can be tried without vcpkg: its manifest, and its portfile with functions in place of
# vcpkg's. Given are SOURCE_DIR, BUILD_DIR, VERSION and SCRATCH.

cmake_minimum_required(VERSION 3.22)

set(port "${SOURCE_DIR}/packaging/vcpkg/reportgenerator")

# --- The manifest

file(READ "${port}/vcpkg.json" manifest)
string(JSON name GET "${manifest}" name)
string(JSON version GET "${manifest}" version)
if(NOT name STREQUAL "reportgenerator" OR NOT version STREQUAL VERSION)
    message(FATAL_ERROR "vcpkg.json is of ${name} ${version}, not of reportgenerator ${VERSION}")
endif()
string(JSON count LENGTH "${manifest}" dependencies)
math(EXPR last "${count} - 1")
set(dependencies "")
foreach(index RANGE ${last})
    string(JSON dependency GET "${manifest}" dependencies ${index} name)
    list(APPEND dependencies "${dependency}")
endforeach()

# --- The portfile

set(calls "")

# need(<port>): whose function is called is a dependency.
macro(need dependency)
    if(NOT "${dependency}" IN_LIST dependencies)
        message(FATAL_ERROR "vcpkg.json lacks ${dependency}")
    endif()
endmacro()

function(vcpkg_check_linkage)
    if(NOT ARGV STREQUAL "ONLY_DYNAMIC_LIBRARY")
        message(FATAL_ERROR "linkage: ${ARGV}")
    endif()
endfunction()

function(vcpkg_cmake_configure)
    need(vcpkg-cmake)
    cmake_parse_arguments(PARSE_ARGV 0 port "" "SOURCE_PATH" "OPTIONS")
    if(port_UNPARSED_ARGUMENTS OR NOT EXISTS "${port_SOURCE_PATH}/CMakeLists.txt")
        message(FATAL_ERROR "configures ${port_SOURCE_PATH} with ${port_UNPARSED_ARGUMENTS}")
    endif()
    # Each option is one that the project has.
    file(STRINGS "${BUILD_DIR}/CMakeCache.txt" known REGEX "^REPORTGENERATOR_[A-Z_]+:")
    list(TRANSFORM known REPLACE ":.*" "")
    foreach(option IN LISTS port_OPTIONS)
        string(REGEX REPLACE "^-D([A-Z_]+)=.*$" "\\1" option "${option}")
        if(NOT option IN_LIST known)
            message(FATAL_ERROR "${option} is no option of the project")
        endif()
    endforeach()
    set(calls "${calls}configure " PARENT_SCOPE)
endfunction()

function(vcpkg_cmake_install)
    set(calls "${calls}install " PARENT_SCOPE)
endfunction()

function(vcpkg_cmake_config_fixup)
    need(vcpkg-cmake-config)
    cmake_parse_arguments(PARSE_ARGV 0 port "" "PACKAGE_NAME;CONFIG_PATH" "")
    if(port_UNPARSED_ARGUMENTS OR NOT port_CONFIG_PATH STREQUAL "lib/cmake/${port_PACKAGE_NAME}"
            OR NOT EXISTS "${SOURCE_DIR}/cmake/${port_PACKAGE_NAME}Config.cmake.in")
        message(FATAL_ERROR "the CMake package: ${ARGV}")
    endif()
    set(calls "${calls}config " PARENT_SCOPE)
endfunction()

function(vcpkg_fixup_pkgconfig)
    set(calls "${calls}pkgconfig" PARENT_SCOPE)
endfunction()

set(PORT reportgenerator)
set(CURRENT_PACKAGES_DIR "${SCRATCH}/vcpkg")
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}")
file(MAKE_DIRECTORY "${CURRENT_PACKAGES_DIR}/debug/include")
include("${port}/portfile.cmake")

if(NOT calls STREQUAL "configure install config pkgconfig")
    message(FATAL_ERROR "called: ${calls}")
endif()
if(EXISTS "${CURRENT_PACKAGES_DIR}/debug/include")
    message(FATAL_ERROR "headers are installed twice")
endif()
if(NOT EXISTS "${CURRENT_PACKAGES_DIR}/share/reportgenerator/usage")
    message(FATAL_ERROR "no usage")
endif()
