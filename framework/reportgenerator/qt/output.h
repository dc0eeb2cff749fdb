#ifndef REPORTGENERATOR_QT_OUTPUT_H
#define REPORTGENERATOR_QT_OUTPUT_H

#include <reportgenerator/qt/totext.h>

#include <QtCore/QByteArray>
#include <QtCore/QDebug>

#include <ostream>

// Objects, exceptions and enumerations in qDebug(), in standard streams, and in what QCOMPARE and GoogleTest say
// of a failure. All of it is the line that `ToText` makes. GoogleTest prints by the standard stream; Qt Test finds
// `toString` in the namespace of the type, and deletes what it returns.

namespace REPORTGENERATOR {

namespace detail {

inline QDebug Print(QDebug debug, const QString& text)
{
    const QDebugStateSaver saver(debug);
    debug.noquote().nospace() << text;
    return debug;
}

inline std::ostream& Print(std::ostream& stream, const QString& text)
{
    // Without the stream's padding, which counts bytes, not characters.
    const QByteArray bytes = text.toUtf8();
    stream.width(0);
    return stream.write(bytes.constData(), static_cast<std::streamsize>(bytes.size()));
}

inline char* PrintedText(const QString& text)
{
    return qstrdup(text.toUtf8().constData());
}

} // namespace detail

/// Prints any object of a report or of a task, by its own class where that is one of the library's.
inline QDebug operator<<(QDebug debug, const IRGObject& object)
{
    return detail::Print(std::move(debug), ToText(object));
}

/// The same in UTF-8.
inline std::ostream& operator<<(std::ostream& stream, const IRGObject& object)
{
    return detail::Print(stream, ToText(object));
}

/// The functions that print values of a type with qDebug(), and to a standard stream in UTF-8.
#define REPORTGENERATOR_QT_PRINTED(Type)                                                                     \
    inline QDebug operator<<(QDebug debug, const Type& value)                                                \
    {                                                                                                        \
        return REPORTGENERATOR::detail::Print(std::move(debug), REPORTGENERATOR::ToText(value));             \
    }                                                                                                        \
    inline std::ostream& operator<<(std::ostream& stream, const Type& value)                                 \
    {                                                                                                        \
        return REPORTGENERATOR::detail::Print(stream, REPORTGENERATOR::ToText(value));                       \
    }

/// The function by which QCOMPARE shows values of a type, which takes no base of the type.
#define REPORTGENERATOR_QT_COMPARED(Type)                                                                    \
    inline char* toString(const Type& value)                                                                 \
    {                                                                                                        \
        return REPORTGENERATOR::detail::PrintedText(REPORTGENERATOR::ToText(value));                         \
    }

REPORTGENERATOR_QT_COMPARED(Area)
REPORTGENERATOR_QT_COMPARED(ChannelSpacing)
REPORTGENERATOR_QT_COMPARED(Coordinate)
REPORTGENERATOR_QT_COMPARED(Double)
REPORTGENERATOR_QT_COMPARED(Ellipse)
REPORTGENERATOR_QT_COMPARED(Frequency)
REPORTGENERATOR_QT_COMPARED(FrequencyInformation)
REPORTGENERATOR_QT_COMPARED(FrequencyListValue)
REPORTGENERATOR_QT_COMPARED(FrequencyRangeOld)
REPORTGENERATOR_QT_COMPARED(IFBandwidth)
REPORTGENERATOR_QT_COMPARED(IRGObject)
REPORTGENERATOR_QT_COMPARED(MeasurementTime)
REPORTGENERATOR_QT_COMPARED(ReportBase)
REPORTGENERATOR_QT_COMPARED(ScanParameter)
REPORTGENERATOR_QT_COMPARED(ValueMinMax)
REPORTGENERATOR_QT_COMPARED(VersionConverterProxy)

REPORTGENERATOR_QT_PRINTED(MinMax)
REPORTGENERATOR_QT_COMPARED(MinMax)
REPORTGENERATOR_QT_PRINTED(RegisterCenter)
REPORTGENERATOR_QT_COMPARED(RegisterCenter)
REPORTGENERATOR_QT_PRINTED(Logger)
REPORTGENERATOR_QT_PRINTED(ObjectTypes)
REPORTGENERATOR_QT_COMPARED(ObjectTypes)
REPORTGENERATOR_QT_PRINTED(LogLevel)
REPORTGENERATOR_QT_COMPARED(LogLevel)
REPORTGENERATOR_QT_PRINTED(MeasurementTime::MeasurementModeType)
REPORTGENERATOR_QT_COMPARED(MeasurementTime::MeasurementModeType)

// Found in the namespace that an enumeration stands in, and nowhere above.

namespace TaskType {
REPORTGENERATOR_QT_PRINTED(TaskTypeValue)
REPORTGENERATOR_QT_COMPARED(TaskTypeValue)
} // namespace TaskType

namespace MeasurementType {
REPORTGENERATOR_QT_PRINTED(MeasurementTypeValue)
REPORTGENERATOR_QT_COMPARED(MeasurementTypeValue)
REPORTGENERATOR_QT_PRINTED(SubSensorTypeValue)
REPORTGENERATOR_QT_COMPARED(SubSensorTypeValue)
} // namespace MeasurementType

namespace ResourceType {
REPORTGENERATOR_QT_PRINTED(ResourceTypeValue)
REPORTGENERATOR_QT_COMPARED(ResourceTypeValue)
} // namespace ResourceType

} // namespace REPORTGENERATOR

// Exceptions stand in no namespace, and derived ones are printed as their base: by their names.
REPORTGENERATOR_QT_PRINTED(ReportException)

#undef REPORTGENERATOR_QT_PRINTED
#undef REPORTGENERATOR_QT_COMPARED

#endif
