# Runs PROGRAM and compares what it prints with the file EXPECTED_OUTPUT.

cmake_minimum_required(VERSION 3.22)

execute_process(
    COMMAND "${PROGRAM}"
    RESULT_VARIABLE result
    OUTPUT_VARIABLE output
    ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "the example of README.md ended with ${result}\n${output}${errors}")
endif()

file(READ "${EXPECTED_OUTPUT}" expected)
if(NOT output STREQUAL expected)
    message(FATAL_ERROR "README.md shows\n${expected}\nbut its example prints\n${output}")
endif()
