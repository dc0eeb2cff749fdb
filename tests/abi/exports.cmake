# Holds the names that LIBRARY exports, by NM, or of a DLL by OBJDUMP and CXXFILT, against those that HEADERS declare for
# users and leave to the library to define, as COMPILER, a Clang, tells. Templates are without their arguments, functions
# without their parameters.

cmake_minimum_required(VERSION 3.22)

# --- Exported

# read(<command> <argument>...): runs a command and leaves what it prints in output.
macro(read)
    execute_process(
        COMMAND ${ARGV}
        RESULT_VARIABLE result
        OUTPUT_VARIABLE output
        ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${errors}")
    endif()
endmacro()

if(OBJDUMP)
    # The table of names ends by an empty line. Its names are as they are mangled.
    read("${OBJDUMP}" --private-headers "${LIBRARY}")
    string(REGEX MATCH "\\[Ordinal/Name Pointer\\] Table\n(([^\n]+\n)+)" table "${output}")
    string(REGEX REPLACE "[ \t]*\\[ *[0-9]+\\] " "" names "${CMAKE_MATCH_1}")
    cmake_path(GET LIBRARY FILENAME library)
    file(WRITE "${SCRATCH}/${library}.txt" "${names}")
    execute_process(
        COMMAND "${CXXFILT}"
        INPUT_FILE "${SCRATCH}/${library}.txt"
        OUTPUT_VARIABLE output
        COMMAND_ERROR_IS_FATAL ANY)
else()
    read("${NM}" --dynamic --demangle --defined-only "${LIBRARY}")

    # A line is address, kind and name. Kind A is the version that the names bear.
    string(REGEX REPLACE "[^\n]+ A [^\n]+\n" "" output "${output}")
    string(REGEX REPLACE "(^|\n)[0-9a-f]+ [A-Za-z] " "\\1" output "${output}")
    string(REGEX REPLACE "@[^\n]+" "" output "${output}")
endif()

# The arguments of templates, innermost first, then the parameters of functions.
set(before "")
while(NOT output STREQUAL before)
    set(before "${output}")
    string(REGEX REPLACE "<[^<>\n]*>" "{}" output "${output}")
endwhile()
string(REPLACE "{}" "<>" output "${output}")
string(REGEX REPLACE "\\([^\n]*" "" output "${output}")

string(REGEX REPLACE "\n$" "" output "${output}")
string(REPLACE "\n" ";" exported "${output}")
list(REMOVE_DUPLICATES exported)

# --- Declared

list(TRANSFORM INCLUDE_DIRS PREPEND -I)

set(compiler "${COMPILER}" -std=c++17 ${PLATFORM} ${INCLUDE_DIRS})

# What the compiler takes in for the headers' sake goes ahead precompiled, and so is not told.
set(foreign "")
set(own "")
foreach(header IN LISTS HEADERS)
    file(STRINGS "${header}" includes REGEX "^#include <[A-Za-z_/.]+>$")
    foreach(include IN LISTS includes)
        string(REGEX REPLACE "^#include <(.+)>$" "\\1" name "${include}")
        if(NOT "${HEADERS};" MATCHES "/${name};")
            list(APPEND foreign "${include}")
        endif()
    endforeach()
    string(APPEND own "#include \"${header}\"\n")
endforeach()
list(REMOVE_DUPLICATES foreign)
list(JOIN foreign "\n" foreign)

file(WRITE "${SCRATCH}/foreign.h" "${foreign}\n")
file(WRITE "${SCRATCH}/own.cpp" "${own}")
read(${compiler} -x c++-header "${SCRATCH}/foreign.h" -o "${SCRATCH}/foreign.pch")
read(${compiler} -fsyntax-only -include-pch "${SCRATCH}/foreign.pch" -Xclang -ast-dump "${SCRATCH}/own.cpp")

# The declarations, a line each, indented by two characters for each one that they stand in.
string(REPLACE ";" "," lines "${output}")
string(REPLACE "[" "(" lines "${lines}")
string(REPLACE "]" ")" lines "${lines}")
string(REPLACE "\n" ";" lines "${lines}")
set(functions "(Function|CXXMethod|CXXConstructor|CXXDestructor|CXXConversion|Var)Decl")
set(scopes "(Namespace|CXXRecord|ClassTemplateSpecialization)Decl")
list(FILTER lines INCLUDE REGEX
    "^[ |`-]+((${functions}|${scopes}|AccessSpecDecl) 0x|DefinitionData |VisibilityAttr .* Default|DLLImportAttr |Overrides: )")

# By depth: the name in front of what is declared there, the access in force there, whether the class is exported, and
# the function that was declared last.
set(declared "")
set(private "")
set(prefix_2 "")
set(access_2 public)
foreach(line IN LISTS lines)
    string(REGEX MATCH "^([ |`-]+)([A-Za-z]+):? (.*)$" line "${line}")
    string(LENGTH "${CMAKE_MATCH_1}" depth)
    set(kind "${CMAKE_MATCH_2}")
    set(rest "${CMAKE_MATCH_3}")
    math(EXPR outer "${depth} - 2")
    math(EXPR inner "${depth} + 2")

    if(kind MATCHES "^${scopes}$")
        string(REGEX REPLACE " definition$" "" name "${rest}")
        string(REGEX REPLACE "^.* " "" name "${name}")
        if(kind STREQUAL "ClassTemplateSpecializationDecl")
            string(APPEND name "<>")
        endif()
        set(name_${depth} "${prefix_${depth}}${name}")
        set(prefix_${inner} "${name_${depth}}::")
        set(access_${inner} public)
        if(rest MATCHES " class ")
            set(access_${inner} private)
        endif()
        set(isClass_${inner} FALSE)
        set(isExported_${inner} FALSE)
        set(function_${depth} "")
    elseif(kind STREQUAL "DefinitionData")
        set(isClass_${depth} TRUE)
        string(REGEX MATCH "^polymorphic" isPolymorphic_${depth} "${rest}")
    elseif(kind MATCHES "Attr$")
        if(function_${outer})
            list(APPEND declared "${function_${outer}}")
        elseif(isClass_${depth})
            set(isExported_${depth} TRUE)
            if(isPolymorphic_${depth})
                list(APPEND declared "vtable for ${name_${outer}}" "typeinfo for ${name_${outer}}"
                    "typeinfo name for ${name_${outer}}")
            endif()
        endif()
    elseif(kind STREQUAL "AccessSpecDecl")
        string(REGEX MATCH "[a-z]+$" access_${depth} "${rest}")
    elseif(kind STREQUAL "Overrides")
        # The tables of derived classes point to private operations too.
        if(private_${outer})
            list(APPEND declared "${private_${outer}}")
        endif()
    else()
        set(function_${depth} "")
        set(private_${depth} "")
        set(isClass_${inner} FALSE)
        string(REGEX MATCH "^[^']* (~?[A-Za-z_0-9]+|operator[^']+) '[^']*'(.*)$" match "${rest}")
        set(name "${prefix_${depth}}${CMAKE_MATCH_1}")
        set(properties "${CMAKE_MATCH_2}")
        if(match AND NOT properties MATCHES " (inline|constexpr|pure|delete|default)" AND NOT rest MATCHES " implicit ")
            if(NOT isClass_${depth})
                set(function_${depth} "${name}")
            elseif(isExported_${depth})
                if(NOT access_${depth} STREQUAL "private" OR properties MATCHES " virtual")
                    list(APPEND declared "${name}")
                else()
                    set(private_${depth} "${name}")
                    list(APPEND private "${name}")
                endif()
            endif()
        endif()
    endif()
endforeach()

# --- The one against the other

# Entries of the tables of a class with several bases follow from the operations.
list(FILTER exported EXCLUDE REGEX "^non-virtual thunk to ")
if(OBJDUMP)
    # A class is exported with what is private of it. Types are compared by their names, whichever library has them.
    list(REMOVE_ITEM exported ${private})
    list(FILTER exported EXCLUDE REGEX "^typeinfo ")
    list(FILTER declared EXCLUDE REGEX "^typeinfo ")
endif()
set(missing ${declared})
list(REMOVE_ITEM missing ${exported})
list(REMOVE_ITEM exported ${declared})
if(missing OR exported OR NOT declared)
    list(JOIN exported "\n    " exported)
    list(JOIN missing "\n    " missing)
    message(FATAL_ERROR
        "${LIBRARY}\nexported, but not declared for users:\n    ${exported}\ndeclared, but not exported:\n    ${missing}\n")
endif()
