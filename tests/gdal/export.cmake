# Exports reports of every shape in each format and compares what GDAL sees in them.

find_program(OGRINFO ogrinfo)
if(NOT OGRINFO)
    message(STATUS "not run: ogrinfo is not installed (gdal-bin)")
    return()
endif()

file(REMOVE_RECURSE "${SCRATCH}")
file(MAKE_DIRECTORY "${SCRATCH}")

# --- The reports: an area, a point, a line and an area across the antimeridian, and none

function(write_report name)
    set(points "")
    foreach(point IN LISTS ARGN)
        string(REPLACE " " ";" point "${point}")
        list(GET point 0 longitude)
        list(GET point 1 latitude)
        string(APPEND points "<Coordinate><Longitude>${longitude}</Longitude><Latitude>${latitude}</Latitude></Coordinate>")
    endforeach()
    file(WRITE "${SCRATCH}/${name}.xml"
        "<ReportBase><Frequency>5650000</Frequency><Area><Name>${name}, \"quoted\"</Name>${points}</Area></ReportBase>")
endfunction()

write_report(point "8.5 47.25")
write_report(line "179 10" "-179 20")
write_report(antimeridian "177 -19" "-178 -19" "-178 -16" "177 -16")
file(WRITE "${SCRATCH}/none.xml" "<ReportBase/>")
set(reports "${EXAMPLES}/airband_emergency_lake.xml" point.xml line.xml antimeridian.xml none.xml)

# --- What GDAL sees

function(export format)
    execute_process(COMMAND ${EMULATOR} "${REPORTTOOL}" export ${reports} --to ${format} -o "reports.${format}"
        WORKING_DIRECTORY "${SCRATCH}" RESULT_VARIABLE result ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "export --to ${format} ended with ${result}: ${errors}")
    endif()
endfunction()

# expect_in_ogrinfo(<file> <arguments of ogrinfo, a list> <text>...): each text stands in the output.
function(expect_in_ogrinfo file arguments)
    execute_process(COMMAND "${OGRINFO}" -ro "${file}" ${arguments}
        WORKING_DIRECTORY "${SCRATCH}" RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT result EQUAL 0 OR errors)
        message(FATAL_ERROR "ogrinfo ${file} ended with ${result}: ${errors}")
    endif()
    foreach(text IN LISTS ARGN)
        string(FIND "${output}" "${text}" place)
        if(place EQUAL -1)
            message(FATAL_ERROR "ogrinfo ${file} does not say \"${text}\" but\n${output}")
        endif()
    endforeach()
endfunction()

set(area "POLYGON ((8.84 47.655,8.955 47.625,")
set(cut "MULTIPOLYGON (((-180 -19,-178 -19,-178 -16,-180 -16,-180 -19)),((180 -16,177 -16,177 -19,180 -19,180 -16)))")
set(cutLine "MULTILINESTRING ((179 10,180 15),(-180 15,-179 20))")

foreach(format IN ITEMS geojson geojsonl kml)
    export(${format})
    expect_in_ogrinfo(reports.${format} "-al"
        "Feature Count: 5"
        "Extent: (-180.000000, -19.000000) - (180.000000, 47.845000)"
        "GEOGCRS"
        "frequency_value: Real" "frequency_min: Real" "area_name: String"
        "frequency_value (Real) = 121500000"
        "area_name (String) = point, \"quoted\""
        "POINT (8.5 47.25)" "${area}" "${cut}" "${cutLine}")
endforeach()
foreach(format IN ITEMS geojson geojsonl)
    expect_in_ogrinfo(reports.${format} "-al" "frequency_use: Integer(Boolean)")
endforeach()
expect_in_ogrinfo(reports.geojsonl "-al" "using driver `GeoJSONSeq' successful")
expect_in_ogrinfo(reports.kml "-al" "frequency_use (Integer) = 1")

export(csv)
expect_in_ogrinfo(reports.csv "-al;-oo;AUTODETECT_TYPE=YES"
    "Feature Count: 5" "area_name (String) = line, \"quoted\"" "${area}" "${cut}" "${cutLine}" "POINT (8.5 47.25)")

file(RENAME "${SCRATCH}/reports.csv" "${SCRATCH}/whole.csv")
export(csv-points)
file(RENAME "${SCRATCH}/reports.csv-points" "${SCRATCH}/points.csv")
# Eighteen points, one, two, four, and the line of the report without an area.
expect_in_ogrinfo(points.csv "-al;-oo;X_POSSIBLE_NAMES=longitude;-oo;Y_POSSIBLE_NAMES=latitude"
    "Feature Count: 26" "POINT (8.84 47.655)" "POINT (-178 -16)")

export(gpx)
expect_in_ogrinfo(reports.gpx "waypoints" "Feature Count: 1" "name (String) = point, \"quoted\"" "POINT (8.5 47.25)")
expect_in_ogrinfo(reports.gpx "tracks" "Feature Count: 3" "name (String) = line, \"quoted\""
    "MULTILINESTRING ((179 10,-179 20))"
    "MULTILINESTRING ((177 -19,-178 -19,-178 -16,177 -16,177 -19))")

# --- A query, as of a database

expect_in_ogrinfo(reports.geojsonl "-sql;SELECT file FROM reports WHERE frequency_value > 118e6" "Feature Count: 1"
    "airband_emergency_lake.xml")
