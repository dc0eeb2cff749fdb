# Fails unless the names in <found>, which are <what>, are those in the file EXPORTS but for those that match <besides>.

file(STRINGS "${EXPORTS}" listed REGEX "^[^#]")
if(besides)
    list(FILTER listed EXCLUDE REGEX "${besides}")
endif()
if(NOT listed)
    message(FATAL_ERROR "no names in ${EXPORTS}")
endif()

set(unlisted ${found})
list(REMOVE_DUPLICATES unlisted)
list(REMOVE_ITEM unlisted ${listed})
set(missing ${listed})
list(REMOVE_ITEM missing ${found})
if(unlisted OR missing)
    list(JOIN unlisted "\n    " unlisted)
    list(JOIN missing "\n    " missing)
    message(FATAL_ERROR
        "${EXPORTS}\n${what}, but not listed:\n    ${unlisted}\nlisted, but not ${what}:\n    ${missing}\n")
endif()
