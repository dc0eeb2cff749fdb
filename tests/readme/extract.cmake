# Writes the program number INDEX of PAGE, counted from 0, to EXAMPLE, and the ```text block after it to
# EXPECTED_OUTPUT. Programs are the ```cpp blocks with a main function. Fails unless the page has COUNT of them.

cmake_minimum_required(VERSION 3.22)

include("${CMAKE_CURRENT_LIST_DIR}/blocks.cmake")

file(READ "${PAGE}" text)
string(PREPEND text "\n")
string(APPEND text "\n")

set(found 0)
while(TRUE)
    take_block(cpp "${text}" program text)
    if(program STREQUAL "")
        break()
    endif()
    string(FIND "${program}" "\nint main(" main)
    if(main EQUAL -1)
        continue()
    endif()
    if(found EQUAL INDEX)
        take_block(text "${text}" output rest)
        if(output STREQUAL "")
            message(FATAL_ERROR "${PAGE} doesn't show what its program ${INDEX} prints")
        endif()
        file(WRITE "${EXAMPLE}" "${program}")
        file(WRITE "${EXPECTED_OUTPUT}" "${output}")
    endif()
    math(EXPR found "${found} + 1")
endwhile()
if(NOT found EQUAL COUNT)
    message(FATAL_ERROR "${PAGE} has ${found} programs, but ${COUNT} are tested")
endif()
