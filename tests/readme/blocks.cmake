# take_block(<language> <text> <block> <rest>): the content of the first fenced block of that language in the text, and
# what follows it; both are empty when there is none.
function(take_block language text block rest)
    set(${block} "" PARENT_SCOPE)
    set(${rest} "" PARENT_SCOPE)
    set(opening "\n```${language}\n")
    string(FIND "${text}" "${opening}" start)
    if(start EQUAL -1)
        return()
    endif()
    string(LENGTH "${opening}" openingLength)
    math(EXPR start "${start} + ${openingLength}")
    string(SUBSTRING "${text}" ${start} -1 text)

    # With the line feed before it, so that an empty block ends too.
    string(FIND "\n${text}" "\n```\n" end)
    if(end EQUAL -1)
        message(FATAL_ERROR "a ${language} block without end")
    endif()
    string(SUBSTRING "${text}" 0 ${end} content)
    string(SUBSTRING "${text}" ${end} -1 text)
    set(${block} "${content}" PARENT_SCOPE)
    set(${rest} "\n${text}" PARENT_SCOPE)
endfunction()
