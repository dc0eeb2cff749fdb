#include <reportgenerator/reportbase/coordinate.h>

#include <reportgenerator/reportbase/descriptions/coordinatedescription.h>
#include <reportgenerator/reportbase/records/recordobject.h>

namespace REPORTGENERATOR {

template const ObjectIdentity& ClassIdentity<CoordinateData>();
template class RecordObject<CoordinateData, OwnRecord<CoordinateData>>;

namespace {

using Rows = Description<CoordinateData>;

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
        return data ? *data : FreshRecord<CoordinateData>();
    };
    return AreRecordsEqual(record(*this), record(other), Rows::ROWS);
}

bool Coordinate::operator!=(const Coordinate& other) const
{
    return !(*this == other);
}

bool Coordinate::AnyData() const
{
    return IsAnyRowSet(m_record.Get(), Rows::ROWS);
}

bool Coordinate::HasData() const
{
    return AreMandatoryRowsSet(m_record.Get(), Rows::ROWS);
}

double Coordinate::GetLongitude() const
{
    InitData();
    return m_record.Get()->longitude;
}

void Coordinate::SetLongitude(double longitude)
{
    InitData();
    StoreValue(*this, Rows::LONGITUDE, longitude);
}

bool Coordinate::IsLongitudeSet() const
{
    return IsRowSet(m_record.Get(), Rows::LONGITUDE);
}

void Coordinate::ResetLongitude()
{
    ResetRow(*this, Rows::LONGITUDE);
}

bool Coordinate::IsValidLongitude(const double& longitude) const
{
    return IsAdmitted(Rows::LONGITUDE, longitude);
}

double Coordinate::GetDefaultLongitude() const
{
    return FreshRecord<CoordinateData>().longitude;
}

double Coordinate::GetLatitude() const
{
    InitData();
    return m_record.Get()->latitude;
}

void Coordinate::SetLatitude(double latitude)
{
    InitData();
    StoreValue(*this, Rows::LATITUDE, latitude);
}

bool Coordinate::IsLatitudeSet() const
{
    return IsRowSet(m_record.Get(), Rows::LATITUDE);
}

void Coordinate::ResetLatitude()
{
    ResetRow(*this, Rows::LATITUDE);
}

bool Coordinate::IsValidLatitude(const double& latitude) const
{
    return IsAdmitted(Rows::LATITUDE, latitude);
}

double Coordinate::GetDefaultLatitude() const
{
    return FreshRecord<CoordinateData>().latitude;
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
