# gdb takes the printers of the library's objects from beside the installed library, once it is told that it may.

include("${SETTINGS}")

find_program(gdb gdb)
if(NOT gdb)
    message("not run: gdb is not installed")
    return()
endif()
set(libraryDir "${PREFIX}/${LIB_DIR}")
set(library "${libraryDir}/libreportbase${SUFFIX}.so")
set(listPrinters -ex "info pretty-printer" "${library}")

run("${gdb}" -nx -batch -iex "add-auto-load-safe-path ${libraryDir}" ${listPrinters})
if(NOT RUN_OUTPUT MATCHES "objfile [^\n]*libreportbase[^\n]*:\n  reportbase")
    message(FATAL_ERROR "gdb has not loaded the printers")
endif()

# Otherwise it says what to tell it.
run("${gdb}" -nx -batch ${listPrinters})
if(NOT RUN_OUTPUT MATCHES "add-auto-load-safe-path [^\n]*libreportbase[^\n]*-gdb.py")
    message(FATAL_ERROR "gdb has not found the printers")
endif()
