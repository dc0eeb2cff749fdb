# Follows docs/install.md with the installed copy, for the program of README.md.

include("${SETTINGS}")
include("${CMAKE_CURRENT_LIST_DIR}/blocks.cmake")

file(READ "${SOURCE_DIR}/docs/install.md" page)
if(QT_MAJOR EQUAL 6)
    # The names that the page gives for Qt 6.
    string(REPLACE "find_package(ReportGenerator " "find_package(ReportGeneratorQt6 " page "${page}")
    string(REPLACE "libs reportgenerator)" "libs reportgenerator-qt6)" page "${page}")
endif()
string(REPLACE "/report/lib" "/report/${LIB_DIR}" page "${page}")
take_block(sh "${page}" installing page)
take_block(cmake "${page}" packageProject page)
take_block(sh "${page}" byPackage page)
take_block(sh "${page}" byPkgConfig page)
take_block(cmake "${page}" subprojectProject page)
foreach(block IN ITEMS installing packageProject byPackage byPkgConfig subprojectProject)
    if(${block} STREQUAL "")
        message(FATAL_ERROR "docs/install.md has no block for ${block}")
    endif()
endforeach()

# The home folder of the page, with the installed copy and the commands that stand for the page's.
# A shell takes the words of pkg-config apart at blanks, which home folders don't have and build folders may.
set(home "${SCRATCH_HOME}")
if(home MATCHES " ")
    execute_process(COMMAND mktemp -d OUTPUT_VARIABLE home OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endif()
file(REMOVE_RECURSE "${home}")
file(MAKE_DIRECTORY "${home}/commands")
file(CREATE_LINK "${PREFIX}" "${home}/report" SYMBOLIC)
set(ENV{HOME} "${home}")

function(write_command name text)
    file(WRITE "${home}/commands/${name}" "#!/bin/sh\nexec ${text} \"\$@\"\n")
    file(CHMOD "${home}/commands/${name}" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
endfunction()
list(JOIN SANITIZE_FLAGS " " sanitizeFlags)
write_command(g++ "'${COMPILER}' ${sanitizeFlags}")
write_command(pkg-config "'${PKG_CONFIG}'")

# What a build is configured with, in the words of a shell.
set(configureWords "")
foreach(argument IN LISTS CONFIGURE_ARGUMENTS)
    string(APPEND configureWords " '${argument}'")
endforeach()
write_command(configure "'${CMAKE_COMMAND}' ${configureWords}")
write_command(cmake "'${CMAKE_COMMAND}'")
set(ENV{PATH} "${home}/commands:$ENV{PATH}")

# follow(<name> <commands>): runs the commands in a project folder of that name beside the program, which has to print
# what README.md shows.
file(READ "${EXPECTED_OUTPUT}" expected)
function(follow name commands)
    file(MAKE_DIRECTORY "${home}/${name}")
    file(COPY "${EXAMPLE}" DESTINATION "${home}/${name}")
    string(REPLACE "cmake -S " "configure -S " commands "${commands}")
    file(WRITE "${home}/${name}/commands.sh" "set -e\n${commands}")
    execute_process(
        COMMAND sh commands.sh
        WORKING_DIRECTORY "${home}/${name}"
        RESULT_VARIABLE result
        OUTPUT_VARIABLE output
        ERROR_VARIABLE errors)
    string(FIND "${output}" "${expected}" position)
    if(NOT result EQUAL 0 OR position EQUAL -1)
        message(FATAL_ERROR "${name} ended with ${result}\n${commands}\n${output}${errors}\nexpected\n${expected}")
    endif()
endfunction()

file(WRITE "${home}/package/CMakeLists.txt" "${packageProject}")
follow(package "${byPackage}")
follow(pkgconfig "${byPkgConfig}")

# Building the library once more would take minutes; that the project is accepted says enough.
file(WRITE "${home}/subproject/CMakeLists.txt" "${subprojectProject}")
file(COPY "${EXAMPLE}" DESTINATION "${home}/subproject")
file(CREATE_LINK "${SOURCE_DIR}" "${home}/subproject/reportgenerator" SYMBOLIC)
run("${CMAKE_COMMAND}" -S "${home}/subproject" -B "${home}/subproject/build" ${CONFIGURE_ARGUMENTS}
    "-DREPORTGENERATOR_QT_MAJOR=${QT_MAJOR}")

if(NOT home STREQUAL SCRATCH_HOME)
    file(REMOVE_RECURSE "${home}")
endif()
