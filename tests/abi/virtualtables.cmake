# Has COMPILER, a Clang, lay out the virtual tables of SOURCE_DIR/virtualtables.cpp as MSVC does, and compares them with
# SOURCE_DIR/virtualtables.txt: for each class a line with its name and one for each entry that it declares or overrides.

cmake_minimum_required(VERSION 3.22)

execute_process(
    COMMAND "${COMPILER}" -std=c++17 --target=x86_64-pc-windows-msvc -nostdinc++ -S -o - -Xclang -fdump-vtable-layouts
        "-I${SOURCE_DIR}/platform" "-I${INCLUDE_DIR}" "${SOURCE_DIR}/virtualtables.cpp"
    RESULT_VARIABLE result
    OUTPUT_VARIABLE output
    ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${errors}")
endif()

# What a signature bears beside it is of no interest, and types are told by their bare names.
string(REPLACE " [scalar deleting]" "" output "${output}")
string(REPLACE "REPORTGENERATOR::" "" output "${output}")
string(REGEX REPLACE " ([&*])([A-Za-z])" "\\1 \\2" output "${output}")
string(REGEX REPLACE " ([&*])" "\\1" output "${output}")

file(READ "${SOURCE_DIR}/virtualtables.txt" expected)
string(REGEX REPLACE "\n+$" "" tables "${expected}")
string(REGEX REPLACE "\n\n" ";" tables "${tables}")
foreach(table IN LISTS tables)
    string(REGEX MATCH "^[^\n]+" class "${table}")
    string(REGEX MATCH "VFTable indices for '${class}' \\([0-9]+ entr[a-z]+\\)\\.\n(( +[0-9]+ [^\n]+\n)+)" found "${output}")
    set(entries "${CMAKE_MATCH_1}")
    string(REGEX REPLACE " +([0-9]+) \\| ([^\n]*)${class}::([^\n]+)\n" "\n\\1 \\2\\3" entries "${entries}")
    if(NOT "${class}${entries}" STREQUAL table)
        message(FATAL_ERROR "The virtual table should be\n${table}\nbut is\n${class}${entries}")
    endif()
endforeach()
