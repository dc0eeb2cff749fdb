# Writes the first ```cpp block of README to EXAMPLE and the first ```text block after it to EXPECTED_OUTPUT.

cmake_minimum_required(VERSION 3.22)

# take_block(<language> <text> <block> <rest>): the content of the first fenced block of that language, and what
# follows it.
function(take_block language text block rest)
    set(opening "\n```${language}\n")
    string(FIND "${text}" "${opening}" start)
    if(start EQUAL -1)
        message(FATAL_ERROR "${README} has no ${language} block where one is expected")
    endif()
    string(LENGTH "${opening}" openingLength)
    math(EXPR start "${start} + ${openingLength}")
    string(SUBSTRING "${text}" ${start} -1 text)

    string(FIND "\n${text}" "\n```\n" end)
    if(end EQUAL -1)
        message(FATAL_ERROR "${README} has a ${language} block without end")
    endif()
    string(SUBSTRING "${text}" 0 ${end} content)
    string(SUBSTRING "${text}" ${end} -1 text)
    set(${block} "${content}" PARENT_SCOPE)
    set(${rest} "${text}" PARENT_SCOPE)
endfunction()

file(READ "${README}" text)
string(APPEND text "\n")
take_block(cpp "${text}" program text)
take_block(text "${text}" output text)

file(WRITE "${EXAMPLE}" "${program}")
file(WRITE "${EXPECTED_OUTPUT}" "${output}")
