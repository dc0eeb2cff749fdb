#include <reportgenerator/reportbase/coordinate.h>

#include <reportgenerator/reportbase/forms/fieldforms.h>
#include <reportgenerator/reportbase/forms/xmltools.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/outofrangeexception.h>
#include <reportgenerator/reportbase/records/recordobject.h>

namespace REPORTGENERATOR {

struct CoordinateData : Record
{
    double longitude = 0.0;
    double latitude = 0.0;
};

namespace {

constexpr int DECIMALS = 6;

// The widths are those of the shortest numbers, and show only where there are no digits: " nan", " inf".
constexpr Field<CoordinateData, double> LONGITUDE = {0,
                                                     &CoordinateData::longitude,
                                                     REPORTBASE_NAME("Longitude"),
                                                     Place::Element,
                                                     Written::Always,
                                                     elements::Tag(0x247E7491),
                                                     {DECIMALS, 4},
                                                     {-180.0, 180.0}};

constexpr Field<CoordinateData, double> LATITUDE = {1,
                                                    &CoordinateData::latitude,
                                                    REPORTBASE_NAME("Latitude"),
                                                    Place::Element,
                                                    Written::Always,
                                                    elements::Tag(0xCB2F4B76),
                                                    {DECIMALS, 3},
                                                    {-90.0, 90.0}};

} // namespace

template <>
struct Description<CoordinateData>
{
    static constexpr long long ID = 0xCE458C11;
    static constexpr Name NAME = REPORTBASE_NAME("Coordinate");
    static constexpr auto FIELDS = std::make_tuple(LONGITUDE, LATITUDE);
};

template class RecordObject<CoordinateData>;

namespace {

constexpr auto& FIELDS = Description<CoordinateData>::FIELDS;

} // namespace

Coordinate::Coordinate() = default;

Coordinate::Coordinate(const Coordinate& other) : RecordObject(other)
{
    IRGObject::SetValidate(other.GetValidate());
}

Coordinate& Coordinate::operator=(const Coordinate& other) = default;

Coordinate::~Coordinate() = default;

bool Coordinate::operator==(const Coordinate& other) const
{
    // Unlike the other classes' comparison this one makes no records: without one nothing is set.
    const auto record = [](const Coordinate& coordinate) -> const CoordinateData& {
        return coordinate.IsInitialized() ? *coordinate.m_data.constData() : FreshRecord<CoordinateData>();
    };
    return AreFieldsEqual(record(*this), record(other), FIELDS);
}

bool Coordinate::operator!=(const Coordinate& other) const
{
    return !(*this == other);
}

bool Coordinate::AnyData() const
{
    return IsAnySet(m_data, FIELDS);
}

bool Coordinate::HasData() const
{
    return AreMandatorySet(m_data, FIELDS);
}

double Coordinate::GetLongitude() const
{
    InitData();
    return m_data.constData()->longitude;
}

void Coordinate::SetLongitude(double longitude)
{
    Store(LONGITUDE, longitude);
}

bool Coordinate::IsLongitudeSet() const
{
    return IsSet(m_data, LONGITUDE);
}

void Coordinate::ResetLongitude()
{
    ResetField(m_data, LONGITUDE);
}

bool Coordinate::IsValidLongitude(const double& longitude) const
{
    return IsAdmitted(LONGITUDE, longitude);
}

double Coordinate::GetDefaultLongitude() const
{
    return FreshRecord<CoordinateData>().longitude;
}

double Coordinate::GetLatitude() const
{
    InitData();
    return m_data.constData()->latitude;
}

void Coordinate::SetLatitude(double latitude)
{
    Store(LATITUDE, latitude);
}

bool Coordinate::IsLatitudeSet() const
{
    return IsSet(m_data, LATITUDE);
}

void Coordinate::ResetLatitude()
{
    ResetField(m_data, LATITUDE);
}

bool Coordinate::IsValidLatitude(const double& latitude) const
{
    return IsAdmitted(LATITUDE, latitude);
}

double Coordinate::GetDefaultLatitude() const
{
    return FreshRecord<CoordinateData>().latitude;
}

void Coordinate::Check(bool logOnly) const
{
    ReapplySettings();
    InitData();
    CheckFields(*this, *m_data.constData(), FIELDS, logOnly);
}

void Coordinate::GetXml(QXmlStreamWriter& writer) const
{
    if (!PrepareToWrite())
        return;
    InitData();
    writer.writeStartElement(GetObjectName());
    WriteXmlFields(writer, *m_data.constData(), FIELDS);
    writer.writeEndElement();
}

bool Coordinate::GetBinary(QDataStream& stream, int tag, bool withTag) const
{
    if (!PrepareToWrite())
        return false;
    InitData();
    elements::WriteBody(stream, tag, withTag,
                        [&] { WriteFieldElements(stream, *m_data.constData(), FIELDS); });
    return true;
}

void Coordinate::SetBinary(QDataStream& stream, int length)
{
    ReapplySettings();
    InitData();
    RecordObject::Reset();
    const auto store = [this](const auto& field, double value) { Store(field, value); };
    elements::ReadBody(*this, stream, length, [&](qint32 tag, qint32 /*payloadLength*/) {
        return ReadFieldElement(stream, tag, FIELDS, store);
    });
}

void Coordinate::ProcessXml(QXmlStreamReader& reader)
{
    InitData();
    IRGObject::ProcessXml(reader);
}

void Coordinate::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    ReapplySettings();
    InitData();
    const bool isField = ReadXmlElement(
        reader.name(), FIELDS, [&] { return GetTextValue(reader); },
        [this](const auto& field, double value) { Store(field, value); });
    if (!isField)
        xmltools::SkipElement(reader);
}

void Coordinate::GetVersionSpecificBinaryWithoutValidation(QDataStream& stream) const
{
    InitData();
    WriteRawFields(stream, *m_data.constData(), FIELDS);
}

void Coordinate::SetVersionSpecificBinaryWithoutValidation(QDataStream& stream)
{
    InitData();
    ReadRawFields(stream, *m_data, FIELDS);
}

/// Stores a value that lies in the field's range, or any value when not validating.
template <class FieldOfData>
void Coordinate::Store(const FieldOfData& field, double value)
{
    InitData();
    if (!IsAdmitted(field, value)) {
        OutOfRangeException exception(
            messages::NotWithinRange(field.name, field.range.low, field.range.high, GetObjectName()));
        reporting::Questionable(*this, exception);
    }
    StoreField(*m_data, field, value);
}

} // namespace REPORTGENERATOR
