# Runs the command that `import` names for files in another coordinate system, and imports what it makes.

find_program(OGR2OGR ogr2ogr)
if(NOT OGR2OGR)
    message(STATUS "not run: ogr2ogr is not installed (gdal-bin)")
    return()
endif()

file(REMOVE_RECURSE "${SCRATCH}")
file(MAKE_DIRECTORY "${SCRATCH}")

# run(<expected exit code> <command>...): sets `output` and `errors`.
function(run expected)
    execute_process(COMMAND ${ARGN}
        WORKING_DIRECTORY "${SCRATCH}" RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT result EQUAL expected)
        message(FATAL_ERROR "${ARGN} ended with ${result}: ${errors}")
    endif()
    set(output "${output}" PARENT_SCOPE)
    set(errors "${errors}" PARENT_SCOPE)
endfunction()

# Has a shell make wgs84.geojson of 691875 m east and 5335437 m north in zone 32 of UTM.
function(expect_converted_by command)
    file(WRITE "${SCRATCH}/convert.sh" "${command}\n")
    run(0 sh convert.sh)
    run(0 "${REPORTTOOL}" import wgs84.geojson - --from geojson)
    foreach(text IN ITEMS "<Name>Tower</Name>" "<Longitude>11.579448</Longitude>" "<Latitude>48.143223</Latitude>")
        string(FIND "${output}" "${text}" place)
        if(place EQUAL -1)
            message(FATAL_ERROR "there is no ${text} in\n${output}")
        endif()
    endforeach()
    file(REMOVE "${SCRATCH}/wgs84.geojson")
endfunction()

function(expect_command_converts file format)
    run(1 "${REPORTTOOL}" import "${file}" - --from ${format})
    if(NOT errors MATCHES "this converts it: ([^\n]+)\n$")
        message(FATAL_ERROR "there is no command in\n${errors}")
    endif()
    expect_converted_by("${CMAKE_MATCH_1}")
endfunction()

foreach(name IN ITEMS "EPSG:25832" "urn:ogc:def:crs:EPSG::25832" "http://www.opengis.net/def/crs/EPSG/0/25832"
        "+proj=utm +zone=32 +ellps=GRS80 +units=m +no_defs")
    file(WRITE "${SCRATCH}/the tower.geojson"
        "{\"type\":\"FeatureCollection\",\"crs\":{\"type\":\"name\",\"properties\":{\"name\":\"${name}\"}},"
        "\"features\":[{\"type\":\"Feature\",\"properties\":{\"name\":\"Tower\"},"
        "\"geometry\":{\"type\":\"Point\",\"coordinates\":[691875,5335437]}}]}")
    expect_command_converts("the tower.geojson" geojson)
endforeach()

file(WRITE "${SCRATCH}/tower.csv" "name,geom\nTower,SRID=25832;POINT (691875 5335437)\n")
expect_command_converts(tower.csv csv)

# The command of docs/reporttool.md for a table with numbers
file(READ "${PAGE}" page)
if(NOT page MATCHES "\n    [$] (ogr2ogr [^\n]+ points\\.csv)\n")
    message(FATAL_ERROR "${PAGE} has no command for points.csv")
endif()
file(WRITE "${SCRATCH}/points.csv" "name,X,Y\nTower,691875,5335437\n")
expect_converted_by("${CMAKE_MATCH_1}")
