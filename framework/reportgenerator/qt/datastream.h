#ifndef REPORTGENERATOR_QT_DATASTREAM_H
#define REPORTGENERATOR_QT_DATASTREAM_H

#include <reportgenerator/qt/optional.h>
#include <reportgenerator/reportbase/converters.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QXmlStreamReader>

#include <type_traits>

// Objects in a QDataStream, and thereby in QSettings and wherever else Qt streams a QVariant.
//
// Whatever the stream's version and precision, an object is one byte array in it. It holds, as a stream of version 12
// with numbers of 8 bytes writes them: of `Frequency`, `IFBandwidth`, `Coordinate`, `Area` and `ReportBase` the raw
// form; of the other classes the fields in the order in which they are below and in `optional.h`. So all numbers are
// kept as they are, which the XML and binary representations don't, and an object needn't be complete or valid.
//
// Validate flag, logger and version converter don't travel: the object that is read into keeps its own. Nothing
// throws. What can't be written as it is makes the stream's status `WriteFailed`, and an empty byte array is written.
// What can't be read makes it `ReadCorruptData`, if it was good until then, and leaves a reset object.

namespace REPORTGENERATOR {

namespace detail {

constexpr QDataStream::Version OBJECT_STREAM_VERSION = QDataStream::Qt_4_6;

// --- The fields of a class, written and read

template <class Object>
constexpr bool IsRecordClass =
    std::is_same_v<Object, Area> || std::is_same_v<Object, Coordinate> || std::is_same_v<Object, Frequency> ||
    std::is_same_v<Object, IFBandwidth> || std::is_same_v<Object, ReportBase>;

/// Those that `FieldsOf` has.
template <class Object, std::enable_if_t<!IsRecordClass<Object>, int> = 0>
void WriteFields(QDataStream& stream, const Object& object)
{
    ForEachField(object, [&](const auto& field) { WriteField(stream, object, field); });
}

template <class Object, std::enable_if_t<!IsRecordClass<Object>, int> = 0>
void ReadFields(QDataStream& stream, Object& object)
{
    ForEachField(object, [&](const auto& field) { ReadField(stream, object, field); });
}

template <class Object, class Base>
void WriteField(QDataStream& stream, const Object& object, const Field<Base, double>& field)
{
    stream << field.In(object);
}

template <class Object, class Base>
void ReadField(QDataStream& stream, Object& object, const Field<Base, double>& field)
{
    double number = 0.0;
    stream >> number;
    (object.*field.set)(number);
}

template <class Object>
void WriteField(QDataStream& stream, const Object& object, const RangeField& /*field*/)
{
    WriteFields(stream, object.GetFrequencyRange());
}

template <class Object>
void ReadField(QDataStream& stream, Object& object, const RangeField& /*field*/)
{
    ReadFields(stream, object.GetFrequencyRange());
}

template <class Data, class Holder>
void WriteFields(QDataStream& stream, const RecordObject<Data, Holder>& object)
{
    object.GetVersionSpecificBinaryWithoutValidation(stream);
}

/// Coordinates that are there but count as not set are counted in the raw form and not written, so that it couldn't be
/// read.
inline void WriteFields(QDataStream& stream, const Area& object)
{
    if (!object.IsCoordinateSet() && !object.GetCoordinate().isEmpty())
        stream.setStatus(QDataStream::WriteFailed);
    object.GetVersionSpecificBinaryWithoutValidation(stream);
}

inline void WriteFields(QDataStream& stream, const ReportBase& object)
{
    if (object.IsAreaSet() && !object.GetArea().IsCoordinateSet() &&
        !object.GetArea().GetCoordinate().isEmpty())
        stream.setStatus(QDataStream::WriteFailed);
    object.GetVersionSpecificBinaryWithoutValidation(stream);
}

/// Bounds, and what they are of.
inline void WriteFields(QDataStream& stream, const MinMax& object)
{
    stream << object.GetMin() << object.GetMax();
}

inline void ReadFields(QDataStream& stream, MinMax& object)
{
    double min = 0.0;
    double max = 0.0;
    stream >> min >> max;
    object = MinMax(min, max);
}

inline void WriteFields(QDataStream& stream, const Double& object)
{
    stream << object.GetName() << object.GetDefaultInvalidValue() << object.GetMinimum()
           << object.GetMaximum() << object.GetDefault() << object.GetValue() << object.GetUnit();
}

inline void ReadFields(QDataStream& stream, Double& object)
{
    QString name;
    QString unit;
    double unset = 0.0;
    double minimum = 0.0;
    double maximum = 0.0;
    double byDefault = 0.0;
    double value = 0.0;
    stream >> name >> unset >> minimum >> maximum >> byDefault >> value >> unit;
    if (stream.status() != QDataStream::Ok)
        return;
    object.SetName(name);
    object.SetDefaultInvalidValue(unset);
    object.SetMinimum(minimum);
    object.SetMaximum(maximum);
    object.SetDefault(byDefault);
    object.SetValue(value);
    object.SetUnit(unit);
}

inline void WriteFields(QDataStream& stream, const ValueMinMax& object)
{
    stream << object.GetName();
    WriteFields<ValueMinMax>(stream, object);
}

inline void ReadFields(QDataStream& stream, ValueMinMax& object)
{
    QString name;
    stream >> name;
    object.SetName(name);
    ReadFields<ValueMinMax>(stream, object);
}

/// The time stamp as the text of its XML form, in UTC, null when there is none. One that this text doesn't give
/// back, such as an invalid one, can't be written.
inline void WriteFields(QDataStream& stream, const FrequencyListValue& object)
{
    const QDateTime& time = object.GetTimeStamp();
    const QString text = Converters::ToString(time);
    if (Converters::ToDateTime(text) != time)
        stream.setStatus(QDataStream::WriteFailed);
    WriteFields<FrequencyHolder>(stream, object);
    stream << text;
}

inline void ReadFields(QDataStream& stream, FrequencyListValue& object)
{
    QString text;
    ReadFields<FrequencyHolder>(stream, object);
    stream >> text;
    if (text.isEmpty())
        return;
    // Only a text that the library writes itself gets into the XML by which alone a time stamp can be set.
    if (Converters::ToString(Converters::ToDateTime(text)) != text) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return;
    }
    QXmlStreamReader xml(QStringLiteral("<Value><TimeStamp>%1</TimeStamp></Value>").arg(text));
    xml.readNextStartElement();
    object.ProcessXml(xml);
}

/// What "same distance" holds, as a byte: 0 when it isn't set, 1 for true, 2 for false, which is how any other text
/// comes back; then how many spacings there are, 4 bytes, and the spacings.
inline void WriteFields(QDataStream& stream, const ChannelSpacing& object)
{
    const quint8 sameDistance = object.IsSameDistance() ? 1 : 2;
    stream << object.GetVisual() << (object.IsValidSameDistance() ? sameDistance : quint8(0))
           << static_cast<qint32>(object.GetValues().size());
    for (const double value : object.GetValues())
        stream << value;
}

inline void ReadFields(QDataStream& stream, ChannelSpacing& object)
{
    QString visual;
    quint8 sameDistance = 0;
    qint32 count = 0;
    stream >> visual >> sameDistance >> count;
    // Room is made only for what is there.
    const qint64 most = stream.device()->bytesAvailable() / qint64(sizeof(double));
    if (sameDistance > 2 || count < 0 || count > most) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return;
    }
    QVector<double> values(count);
    for (double& value : values)
        stream >> value;
    object.SetVisual(visual);
    if (sameDistance != 0)
        object.SetSameDistance(sameDistance == 1);
    object.SetValues(values);
}

/// Whether the modes have their own names: others can't be asked for.
inline bool HasOwnModeNames(const MeasurementTime& object)
{
    return object.NameToMeasurementModeType(QStringLiteral("Continuous")) == MeasurementTime::Continuous &&
           object.NameToMeasurementModeType(QStringLiteral("Periodic")) == MeasurementTime::Periodic;
}

/// The number of the mode in 4 bytes, and the time. Modes with other names than their own can't be written.
inline void WriteFields(QDataStream& stream, const MeasurementTime& object)
{
    if (!HasOwnModeNames(object))
        stream.setStatus(QDataStream::WriteFailed);
    stream << static_cast<qint32>(object.GetMeasurementMode());
    WriteFields(stream, object.GetMeasurementTime());
}

inline void ReadFields(QDataStream& stream, MeasurementTime& object)
{
    qint32 number = 0;
    stream >> number;
    const auto mode = static_cast<MeasurementTime::MeasurementModeType>(number);
    if (object.IsValidMeasurementModeType(mode))
        object.SetMeasurementMode(mode);
    else if (mode != MeasurementTime::GetInvalidMeasurementModeType())
        stream.setStatus(QDataStream::ReadCorruptData);
    ReadFields(stream, object.GetMeasurementTime());
    object.SetMeasurementModeStringList({QStringLiteral("Continuous"), QStringLiteral("Periodic")});
}

// --- An object's byte array

template <class Object>
constexpr bool IsStreamed =
    IsRecordClass<Object> || std::is_same_v<Object, ChannelSpacing> || std::is_same_v<Object, Double> ||
    std::is_same_v<Object, Ellipse> || std::is_same_v<Object, FrequencyInformation> ||
    std::is_same_v<Object, FrequencyListValue> || std::is_same_v<Object, FrequencyRangeOld> ||
    std::is_same_v<Object, MeasurementTime> || std::is_same_v<Object, MinMax> ||
    std::is_same_v<Object, ScanParameter> || std::is_same_v<Object, ValueMinMax>;

inline void ResetObject(IRGObject& object)
{
    object.Reset();
}

inline void ResetObject(MinMax& object)
{
    object = MinMax();
}

/// Reads into the reset object.
template <class Object>
void ReadObject(QDataStream& stream, Object& object)
{
    if constexpr (IsRecordClass<Object>) {
        // Values that a setter would refuse are taken too, and nobody is warned of them.
        Object read;
        read.SetValidate(false);
        read.SetVersionSpecificBinaryWithoutValidation(stream);
        object = read;
        // What was read had settings of its own, and so have its members.
        object.SetValidate(object.GetValidate());
        object.SetLogger(object.GetLogger());
    } else {
        ReadFields(stream, object);
    }
}

} // namespace detail

/// Writes an object as a byte array.
template <class Object, std::enable_if_t<detail::IsStreamed<Object>, int> = 0>
QDataStream& operator<<(QDataStream& stream, const Object& object)
{
    QByteArray bytes;
    QDataStream fields(&bytes, QIODevice::WriteOnly);
    fields.setVersion(detail::OBJECT_STREAM_VERSION);
    detail::WriteFields(fields, object);
    if (fields.status() == QDataStream::Ok)
        return stream << bytes;
    stream << QByteArray();
    stream.setStatus(fields.status());
    return stream;
}

/// Reads an object that `operator<<` has written.
template <class Object, std::enable_if_t<detail::IsStreamed<Object>, int> = 0>
QDataStream& operator>>(QDataStream& stream, Object& object)
{
    QByteArray bytes;
    stream >> bytes;
    QDataStream fields(bytes);
    fields.setVersion(detail::OBJECT_STREAM_VERSION);
    detail::ResetObject(object);
    if (stream.status() == QDataStream::Ok)
        detail::ReadObject(fields, object);
    if (stream.status() != QDataStream::Ok || fields.status() != QDataStream::Ok || !fields.atEnd()) {
        detail::ResetObject(object);
        stream.setStatus(QDataStream::ReadCorruptData);
    }
    return stream;
}

} // namespace REPORTGENERATOR

#endif
