#include <reportgenerator/reportbase/coordinate.h>

#include <reportgenerator/reportbase/records/recordobject_p.h>
#include <reportgenerator/reportbase/schema/coordinateschema.h>

namespace REPORTGENERATOR {

template const ObjectIdentity& ClassIdentity<CoordinateData>();
template class RecordObject<CoordinateData, OwnRecord<CoordinateData>>;

namespace {

using Fields = Schema<CoordinateData>;

} // namespace

Coordinate::Coordinate() = default;

Coordinate::Coordinate(const Coordinate& other) = default;

Coordinate& Coordinate::operator=(const Coordinate& other) = default;

Coordinate::~Coordinate() = default;

bool Coordinate::operator==(const Coordinate& other) const
{
    // Unlike the other classes' comparison this one makes no records: without one nothing is set.
    const auto record = [](const Coordinate& coordinate) -> const CoordinateData& {
        const CoordinateData* data = coordinate.m_record.Get();
        return data ? *data : DefaultRecord<CoordinateData>();
    };
    return AreRecordsEqual(record(*this), record(other), Fields::FIELDS);
}

bool Coordinate::operator!=(const Coordinate& other) const
{
    return !(*this == other);
}

bool Coordinate::AnyData() const
{
    return IsAnyFieldSet(m_record.Get(), Fields::FIELDS);
}

bool Coordinate::HasData() const
{
    return AreMandatoryFieldsSet(m_record.Get(), Fields::FIELDS);
}

double Coordinate::GetLongitude() const
{
    InitData();
    return m_record.Get()->longitude;
}

void Coordinate::SetLongitude(double longitude)
{
    InitData();
    StoreValue(*this, Fields::LONGITUDE, longitude);
}

bool Coordinate::IsLongitudeSet() const
{
    return IsFieldSet(m_record.Get(), Fields::LONGITUDE);
}

void Coordinate::ResetLongitude()
{
    ResetField(*this, Fields::LONGITUDE);
}

bool Coordinate::IsValidLongitude(const double& longitude) const
{
    return IsAdmitted(Fields::LONGITUDE, longitude);
}

double Coordinate::GetDefaultLongitude() const
{
    return DefaultRecord<CoordinateData>().longitude;
}

double Coordinate::GetLatitude() const
{
    InitData();
    return m_record.Get()->latitude;
}

void Coordinate::SetLatitude(double latitude)
{
    InitData();
    StoreValue(*this, Fields::LATITUDE, latitude);
}

bool Coordinate::IsLatitudeSet() const
{
    return IsFieldSet(m_record.Get(), Fields::LATITUDE);
}

void Coordinate::ResetLatitude()
{
    ResetField(*this, Fields::LATITUDE);
}

bool Coordinate::IsValidLatitude(const double& latitude) const
{
    return IsAdmitted(Fields::LATITUDE, latitude);
}

double Coordinate::GetDefaultLatitude() const
{
    return DefaultRecord<CoordinateData>().latitude;
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
    if (!ReadXmlChild(*this, reader))
        xmltools::SkipElement(reader);
}

} // namespace REPORTGENERATOR
