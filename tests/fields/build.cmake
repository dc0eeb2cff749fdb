# Taken in by project(ReportGenerator) of a copy of the tree with more fields: as the other builds that are made for a test
# alone, with the programs, and with the program that takes the new fields through the forms.
include("${CMAKE_CURRENT_LIST_DIR}/../install/precompile.cmake")

function(precompile_for_programs)
    foreach(library IN ITEMS reportfields reportcore reporttool_parts)
        target_precompile_headers(${library} PRIVATE
            <QtCore/QByteArray>
            <QtCore/QDataStream>
            <QtCore/QFile>
            <QtCore/QJsonArray>
            <QtCore/QJsonObject>
            <QtCore/QRegularExpression>
            <QtCore/QStringList>
            <QtCore/QTextStream>
            <QtCore/QVector>
            <QtCore/QXmlStreamReader>
            <functional>
            <memory>
            <optional>
            <vector>)
    endforeach()
endfunction()
cmake_language(DEFER CALL precompile_for_programs)

function(add_program_for_fields)
    add_executable(newfields "${PROJECT_SOURCE_DIR}/tests/fields/newfields.cpp")
    reportgenerator_target_defaults(newfields)
    target_link_libraries(newfields PRIVATE ReportGenerator::reportbase)
endfunction()
cmake_language(DEFER CALL add_program_for_fields)
