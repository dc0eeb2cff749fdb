# Has PATCH try each patch beside this file on the tree, without changing anything.

cmake_minimum_required(VERSION 3.22)

if(NOT PATCH)
    message("not run: patch is not installed")
    return()
endif()
file(GLOB patches "${CMAKE_CURRENT_LIST_DIR}/*.patch")
list(LENGTH patches count)
if(NOT count EQUAL 2)
    message(FATAL_ERROR "patches: ${patches}")
endif()
foreach(patch IN LISTS patches)
    execute_process(
        COMMAND "${PATCH}" "--directory=${SOURCE_DIR}" --strip=1 --dry-run --force "--input=${patch}"
        RESULT_VARIABLE result
        OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${patch} doesn't fit any more:\n${output}")
    endif()
endforeach()
