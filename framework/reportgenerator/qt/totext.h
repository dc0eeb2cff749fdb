#ifndef REPORTGENERATOR_QT_TOTEXT_H
#define REPORTGENERATOR_QT_TOTEXT_H

#include <reportgenerator/qt/optional.h>
#include <reportgenerator/reportbase/converters.h>
#include <reportgenerator/reportbase/logger.h>
#include <reportgenerator/reportbase/measurementtype.h>
#include <reportgenerator/reportbase/registercenter.h>
#include <reportgenerator/reportbase/reportexception.h>
#include <reportgenerator/reportbase/resourcetype.h>
#include <reportgenerator/reportbase/tasktype.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <QtCore/QDebug>
#include <QtCore/QLocale>
#include <QtCore/QStringList>

#include <cmath>
#include <cstring>

// What objects, exceptions and enumerations look like in a line of text, for people who look for errors. The line is
// none of the forms that are read, and a later version may write it in another way.
//
// Fields that are not set are left out. Numbers have as many digits as tell them from every other number. Of a long
// list the line shows the first items, how many there are, and a check sum, so that two different lists look
// different.

namespace REPORTGENERATOR {

namespace detail {

/// Of a list that is longer than this the first ones are shown.
constexpr int SHOWN_ITEMS = 4;

/// Numbers beyond these have an exponent.
constexpr double LEAST_PLAIN_NUMBER = 1e-7;
constexpr double GREATEST_PLAIN_NUMBER = 1e15;

inline QString NumberText(double value)
{
    const double size = std::fabs(value);
    const bool isPlain = size == 0.0 || (size >= LEAST_PLAIN_NUMBER && size < GREATEST_PLAIN_NUMBER);
    return QString::number(value, isPlain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

/// In quotes, with escapes for what can't be seen; "null" for a null text.
inline QString QuotedText(const QString& text)
{
    QString quoted;
    if (text.isNull())
        quoted = QStringLiteral("null");
    else
        QDebug(&quoted).nospace() << text;
    return quoted;
}

inline QString ValueText(double value)
{
    return NumberText(value);
}

inline QString ValueText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

inline QString ValueText(const QString& value)
{
    return QuotedText(value);
}

/// The fields of an object that are set, in one line behind its name.
class FieldLine
{
public:
    explicit FieldLine(const char* name) : m_name(QLatin1String(name)) {}

    void AddText(const char* name, const QString& text)
    {
        m_fields.append(QLatin1String(name) + QStringLiteral(": ") + text);
    }
    void AddNumber(const char* name, double value) { AddText(name, NumberText(value)); }
    void AddObject(const QString& text) { m_fields.append(text); }

    /// A number of a class in which one number stands for "not set".
    void AddNumberOf(const IRGObject& object, const char* name, double value)
    {
        if (object.IsValid(value))
            AddNumber(name, value);
    }

    QString Take() const
    {
        return m_name + QLatin1Char('(') + m_fields.join(QStringLiteral(", ")) + QLatin1Char(')');
    }

private:
    QString m_name;
    QStringList m_fields;
};

/// The check sum of a list: FNV-1a with 32 bits.
class CheckSum
{
public:
    void Add(double value)
    {
        // Equal numbers have equal sums.
        const double number = value == 0.0 ? 0.0 : value;
        quint64 bits = 0;
        std::memcpy(&bits, &number, sizeof bits);
        for (int shift = 0; shift < 64; shift += 8)
            AddByte(static_cast<quint8>(bits >> shift));
    }
    void Add(const Coordinate& point)
    {
        AddByte(static_cast<quint8>((point.IsLongitudeSet() ? 1 : 0) + (point.IsLatitudeSet() ? 2 : 0)));
        Add(point.IsLongitudeSet() ? point.GetLongitude() : 0.0);
        Add(point.IsLatitudeSet() ? point.GetLatitude() : 0.0);
    }
    QString Text() const { return QStringLiteral("%1").arg(m_sum, 8, 16, QLatin1Char('0')); }

private:
    void AddByte(quint8 byte) { m_sum = (m_sum ^ byte) * 16777619U; }

    quint32 m_sum = 2166136261U;
};

inline QString ItemText(double value)
{
    return NumberText(value);
}

inline QString ItemText(const Coordinate& point)
{
    const QString unset = QStringLiteral("not set");
    return QLatin1Char('(') + (point.IsLongitudeSet() ? NumberText(point.GetLongitude()) : unset) +
           QStringLiteral(", ") + (point.IsLatitudeSet() ? NumberText(point.GetLatitude()) : unset) +
           QLatin1Char(')');
}

/// How many items there are and the first of them.
template <class Item>
QString ListText(const QVector<Item>& items)
{
    const bool isLong = items.size() > SHOWN_ITEMS;
    QStringList texts;
    for (int i = 0; i < (isLong ? SHOWN_ITEMS - 1 : static_cast<int>(items.size())); ++i)
        texts.append(ItemText(items.at(i)));
    if (isLong) {
        CheckSum sum;
        for (const Item& item : items)
            sum.Add(item);
        texts.append(QStringLiteral("... check sum ") + sum.Text());
    }
    return QString::number(items.size()) + QStringLiteral(" [") + texts.join(QStringLiteral(", ")) +
           QLatin1Char(']');
}

// --- A field of an object

template <class Object, class Base, class Value>
void AddField(FieldLine& line, const Object& object, const Field<Base, Value>& field)
{
    if (field.IsSetIn(object))
        line.AddText(field.name, ValueText(field.In(object)));
}

inline void AddField(FieldLine& line, const Area& object, const PointsField& /*field*/)
{
    if (object.IsCoordinateSet())
        line.AddText("coordinates", ListText(object.GetCoordinate()));
}

template <class Object>
void AddField(FieldLine& line, const Object& object, const RangeField& /*field*/)
{
    if (object.GetFrequencyRange().AnyData())
        line.AddObject(ToText(object.GetFrequencyRange()));
}

template <class Object>
void AddFields(FieldLine& line, const Object& object)
{
    ForEachField(object, [&](const auto& field) { AddField(line, object, field); });
}

template <class Object>
QString LineOf(const char* name, const Object& object)
{
    FieldLine line(name);
    AddFields(line, object);
    return line.Take();
}

/// The name of a number of an enumeration, or the number behind the name of the enumeration.
template <class Enumeration>
QString EnumerationText(Enumeration value, bool isValid, const QString& name, const char* enumeration)
{
    return isValid ? name
                   : QStringLiteral("%1(%2)").arg(QLatin1String(enumeration)).arg(static_cast<int>(value));
}

} // namespace detail

// --- Enumerations: the name of a number, or the enumeration's own name with the number in brackets

/// The name of a kind, or `ObjectTypes(-1)`.
inline QString ToText(ObjectTypes type)
{
    return detail::EnumerationText(type, IsValidObjectTypes(type), ObjectTypesToName(type), "ObjectTypes");
}

/// `ERROR`, `WARNING`, `INFO`, or `LogLevel(3)`.
inline QString ToText(LogLevel level)
{
    const char* const names[] = {"ERROR", "WARNING", "INFO"};
    const int number = static_cast<int>(level);
    const bool isValid = number >= 0 && number <= 2;
    return detail::EnumerationText(level, isValid, isValid ? QLatin1String(names[number]) : QString(),
                                   "LogLevel");
}

/// `Continuous`, `Periodic`, or `MeasurementModeType(-1)`.
inline QString ToText(MeasurementTime::MeasurementModeType mode)
{
    const bool isValid = mode == MeasurementTime::Continuous || mode == MeasurementTime::Periodic;
    const QString name =
        mode == MeasurementTime::Continuous ? QStringLiteral("Continuous") : QStringLiteral("Periodic");
    return detail::EnumerationText(mode, isValid, name, "MeasurementModeType");
}

/// The name of a task type, or `TaskTypeValue(-1)`.
inline QString ToText(TaskType::TaskTypeValue type)
{
    return detail::EnumerationText(type, TaskType::IsValidTaskType(type), TaskType::TaskTypeToName(type),
                                   "TaskTypeValue");
}

/// The display name of a measurement type, or `MeasurementTypeValue(-1)`.
inline QString ToText(MeasurementType::MeasurementTypeValue type)
{
    return detail::EnumerationText(type, MeasurementType::IsValidMeasurementType(type),
                                   MeasurementType::MeasurementTypeToName(type), "MeasurementTypeValue");
}

/// The display name of a sub-sensor, or `SubSensorTypeValue(-1)`.
inline QString ToText(MeasurementType::SubSensorTypeValue type)
{
    return detail::EnumerationText(type, MeasurementType::IsValidSubSensorType(type),
                                   MeasurementType::SubSensorTypeToName(type), "SubSensorTypeValue");
}

/// The full name of a resource type, or `ResourceTypeValue(-1)`.
inline QString ToText(ResourceType::ResourceTypeValue type)
{
    return detail::EnumerationText(type, ResourceType::IsValidResourceType(type),
                                   ResourceType::ResourceTypeToName(type), "ResourceTypeValue");
}

// --- Exceptions

/// The name of the error and its text: `OutOfRangeException("Area: Please set Name properly.")`.
inline QString ToText(const ReportException& exception)
{
    return exception.GetErrorName() + QLatin1Char('(') + detail::QuotedText(exception.GetErrorText()) +
           QLatin1Char(')');
}

// --- Objects of a report

/// `Frequency(value: 121500000, min: 121487500)`.
inline QString ToText(const Frequency& object)
{
    return detail::LineOf("Frequency", object);
}

/// `IFBandwidth(value: 8333.33)`.
inline QString ToText(const IFBandwidth& object)
{
    return detail::LineOf("IFBandwidth", object);
}

/// `Coordinate(longitude: 9.5, latitude: 47.5)`.
inline QString ToText(const Coordinate& object)
{
    return detail::LineOf("Coordinate", object);
}

/// `Area(name: "Lake", coordinates: 2 [(9.5, 47.5), (9.6, 47.5)])`, with three coordinates at most when there are
/// more than four.
inline QString ToText(const Area& object)
{
    return detail::LineOf("Area", object);
}

/// The members that the report carries.
inline QString ToText(const ReportBase& object)
{
    detail::FieldLine line("ReportBase");
    if (object.IsFrequencySet())
        line.AddObject(ToText(object.GetFrequency()));
    if (object.IsIFBandwidthSet())
        line.AddObject(ToText(object.GetIFBandwidth()));
    if (object.IsAreaSet())
        line.AddObject(ToText(object.GetArea()));
    return line.Take();
}

// --- Objects of a task

/// `MinMax(min: 1, max: 2)`.
inline QString ToText(const MinMax& object)
{
    detail::FieldLine line("MinMax");
    line.AddNumber("min", object.GetMin());
    line.AddNumber("max", object.GetMax());
    return line.Take();
}

/// `Double(name: "DwellTime", value: 0.25, unit: "s")`.
inline QString ToText(const Double& object)
{
    detail::FieldLine line("Double");
    line.AddText("name", detail::QuotedText(object.GetName()));
    line.AddNumberOf(object, "value", object.GetValue());
    line.AddNumberOf(object, "minimum", object.GetMinimum());
    line.AddNumberOf(object, "maximum", object.GetMaximum());
    line.AddNumberOf(object, "default", object.GetDefault());
    if (!object.GetUnit().isEmpty())
        line.AddText("unit", detail::QuotedText(object.GetUnit()));
    return line.Take();
}

/// `ValueMinMax(name: "Frequency", value: 2, min: 1)`.
inline QString ToText(const ValueMinMax& object)
{
    detail::FieldLine line("ValueMinMax");
    if (!object.GetName().isEmpty())
        line.AddText("name", detail::QuotedText(object.GetName()));
    detail::AddFields(line, object);
    return line.Take();
}

/// `FrequencyRangeOld(start: 87.5, stop: 108)`.
inline QString ToText(const FrequencyRangeOld& object)
{
    return detail::LineOf("FrequencyRangeOld", object);
}

/// `FrequencyInformation(frequency: 121.5)`, or with a `FrequencyRangeOld(...)`.
inline QString ToText(const FrequencyInformation& object)
{
    return detail::LineOf("FrequencyInformation", object);
}

/// `FrequencyListValue(frequency: 2, time: 2014-07-03T08:05:09.120Z)`, the time in UTC.
inline QString ToText(const FrequencyListValue& object)
{
    detail::FieldLine line("FrequencyListValue");
    detail::AddFields<FrequencyHolder>(line, object);
    if (!object.GetTimeStamp().isNull())
        line.AddText("time", Converters::ToString(object.GetTimeStamp()));
    return line.Take();
}

/// `Ellipse(minRadius: 100, maxRadius: 250.5, rotation: 30)`.
inline QString ToText(const Ellipse& object)
{
    return detail::LineOf("Ellipse", object);
}

/// `ChannelSpacing(sameDistance: true, values: 1 [8.25])`, with three spacings at most when there are more than four.
inline QString ToText(const ChannelSpacing& object)
{
    detail::FieldLine line("ChannelSpacing");
    if (!object.GetVisual().isEmpty())
        line.AddText("visual", detail::QuotedText(object.GetVisual()));
    if (object.IsValidSameDistance())
        line.AddText("sameDistance", detail::ValueText(object.IsSameDistance()));
    if (!object.GetValues().isEmpty())
        line.AddText("values", detail::ListText(object.GetValues()));
    return line.Take();
}

/// `ScanParameter(FrequencyRangeOld(start: 118, stop: 137), step: 12.5)`.
inline QString ToText(const ScanParameter& object)
{
    return detail::LineOf("ScanParameter", object);
}

/// `MeasurementTime(mode: Periodic, Double(name: "MeasurementTime", value: 2.5))`.
inline QString ToText(const MeasurementTime& object)
{
    detail::FieldLine line("MeasurementTime");
    if (object.GetMeasurementMode() != MeasurementTime::GetInvalidMeasurementModeType())
        line.AddText("mode", ToText(object.GetMeasurementMode()));
    if (object.GetMeasurementTime().AnyData())
        line.AddObject(ToText(object.GetMeasurementTime()));
    return line.Take();
}

// --- Any object

namespace detail {

template <class Object>
bool TakeTextOf(const IRGObject& object, QString& text)
{
    const auto* const known = dynamic_cast<const Object*>(&object);
    if (known)
        text = ToText(*known);
    return known != nullptr;
}

template <class... Objects>
QString TextOfOneOf(const IRGObject& object)
{
    QString text;
    if ((TakeTextOf<Objects>(object, text) || ...))
        return text;
    FieldLine line("IRGObject");
    line.AddText("name", QuotedText(object.GetObjectName()));
    line.AddText("id", QString::number(object.GetObjectId()));
    return line.Take();
}

} // namespace detail

/// Any object, by what it is. Objects of classes that the library doesn't know are told by name and id:
/// `IRGObject(name: "Task", id: 42)`.
inline QString ToText(const IRGObject& object)
{
    return detail::TextOfOneOf<Area, ChannelSpacing, Coordinate, Double, Ellipse, Frequency,
                               FrequencyInformation, FrequencyListValue, FrequencyRangeOld, IFBandwidth,
                               MeasurementTime, ReportBase, ScanParameter, ValueMinMax>(object);
}

// --- Services

/// The object that the center holds.
inline QString ToText(const RegisterCenter& center)
{
    detail::FieldLine line("RegisterCenter");
    if (const IRGObject* const object = center.GetInterface())
        line.AddObject(ToText(*object));
    return line.Take();
}

/// `Logger(errors: true)`: whether an error has been taken.
inline QString ToText(const Logger& logger)
{
    detail::FieldLine line("Logger");
    line.AddText("errors", detail::ValueText(logger.HasErrors()));
    return line.Take();
}

} // namespace REPORTGENERATOR

#endif
