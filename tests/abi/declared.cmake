# Has COMPILER, a Clang, tell what HEADERS declare for users and leave to the library to define, and compares the names
# with those in EXPORTS, both ways.

cmake_minimum_required(VERSION 3.22)

list(TRANSFORM INCLUDE_DIRS PREPEND -I)

# run(<argument>...): runs the compiler and leaves its output in RUN_OUTPUT.
function(run)
    execute_process(
        COMMAND "${COMPILER}" -std=c++17 -fPIC ${INCLUDE_DIRS} ${ARGV}
        RESULT_VARIABLE result
        OUTPUT_VARIABLE output
        ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${errors}")
    endif()
    set(RUN_OUTPUT "${output}" PARENT_SCOPE)
endfunction()

# --- What the compiler takes in for the headers' sake goes ahead precompiled, and so is not told

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
run(-x c++-header "${SCRATCH}/foreign.h" -o "${SCRATCH}/foreign.pch")
run(-fsyntax-only -include-pch "${SCRATCH}/foreign.pch" -Xclang -ast-dump "${SCRATCH}/own.cpp")

# --- The declarations, a line each, indented by two characters for each one that they stand in

string(REPLACE ";" "," lines "${RUN_OUTPUT}")
string(REPLACE "[" "(" lines "${lines}")
string(REPLACE "]" ")" lines "${lines}")
string(REPLACE "\n" ";" lines "${lines}")
set(functions "(Function|CXXMethod|CXXConstructor|CXXDestructor|CXXConversion|Var)Decl")
set(scopes "(Namespace|CXXRecord|ClassTemplateSpecialization)Decl")
list(FILTER lines INCLUDE REGEX
    "^[ |`-]+((${functions}|${scopes}|AccessSpecDecl) 0x|DefinitionData |VisibilityAttr .* Default|Overrides: )")

# take(<name>): notes a name that the library must export.
macro(take name)
    list(APPEND found "${name}")
endmacro()

# By depth: the name in front of what is declared there, the access in force there, whether the class is exported, and
# the function that was declared last.
set(found "")
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
    elseif(kind STREQUAL "VisibilityAttr")
        if(function_${outer})
            take("${function_${outer}}")
        elseif(isClass_${depth})
            set(isExported_${depth} TRUE)
            if(isPolymorphic_${depth})
                take("vtable for ${name_${outer}}")
                take("typeinfo for ${name_${outer}}")
                take("typeinfo name for ${name_${outer}}")
            endif()
        endif()
    elseif(kind STREQUAL "AccessSpecDecl")
        string(REGEX MATCH "[a-z]+$" access_${depth} "${rest}")
    elseif(kind STREQUAL "Overrides")
        # The tables of derived classes point to private operations too.
        if(private_${outer})
            take("${private_${outer}}")
        endif()
    else()
        set(function_${depth} "")
        set(private_${depth} "")
        string(REGEX MATCH "^[^']* (~?[A-Za-z_0-9]+|operator[^']+) '[^']*'(.*)$" match "${rest}")
        set(name "${prefix_${depth}}${CMAKE_MATCH_1}")
        set(properties "${CMAKE_MATCH_2}")
        if(match AND NOT properties MATCHES " (inline|constexpr|pure|delete|default)" AND NOT rest MATCHES " implicit ")
            if(NOT isClass_${depth})
                set(function_${depth} "${name}")
            elseif(isExported_${depth})
                if(NOT access_${depth} STREQUAL "private" OR properties MATCHES " virtual")
                    take("${name}")
                else()
                    set(private_${depth} "${name}")
                endif()
            endif()
        endif()
    endif()
endforeach()

# Entries of the tables of a class with several bases follow from the operations.
set(what "declared")
set(besides "^non-virtual thunk to ")
include("${CMAKE_CURRENT_LIST_DIR}/comparenames.cmake")
