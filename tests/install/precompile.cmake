# Taken in by project(ReportGenerator) in a build that is made for a test alone: most of what it would compile are the
# headers of others.
cmake_language(DEFER CALL target_precompile_headers reportbase PRIVATE
    <QtCore/QByteArray>
    <QtCore/QDataStream>
    <QtCore/QDateTime>
    <QtCore/QFile>
    <QtCore/QMap>
    <QtCore/QObject>
    <QtCore/QSharedDataPointer>
    <QtCore/QStringList>
    <QtCore/QVector>
    <QtCore/QXmlStreamReader>
    <QtCore/QXmlStreamWriter>
    <functional>
    <memory>
    <tuple>)
