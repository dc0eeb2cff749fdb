# Whoever knows where the catalog is installed finds the XML schemas by the names that it gives them.

include("${SETTINGS}")

set(schemas "${PREFIX}/${DATA_DIR}/reportgenerator/schemas")
foreach(file IN ITEMS report.xsd report-valid.xsd report-read.xsd)
    if(NOT EXISTS "${schemas}/${file}")
        message(FATAL_ERROR "not installed: ${schemas}/${file}")
    endif()
endforeach()

find_program(xmllint xmllint)
if(NOT xmllint)
    message("not run: libxml2-utils is not installed")
    return()
endif()
# A list of catalogs is of URIs, which have no blanks.
string(REPLACE " " "%20" catalog "file://${schemas}/catalog.xml")
set(ENV{XML_CATALOG_FILES} "${catalog}")
set(report "${SOURCE_DIR}/tests/vectors/reportbase/frequency_bandwidth_area.xml")
foreach(name IN ITEMS report report-valid report-read)
    run("${xmllint}" --noout --nonet --schema urn:x-reportgenerator:schemas:${name}.xsd "${report}")
endforeach()
run_refused("fails to validate" "${xmllint}" --noout --nonet --schema urn:x-reportgenerator:schemas:report-valid.xsd
    "${SOURCE_DIR}/tests/vectors/area/malformed/no_coordinates.xml")
