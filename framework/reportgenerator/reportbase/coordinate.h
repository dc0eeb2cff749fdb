#ifndef REPORTGENERATOR_COORDINATE_H
#define REPORTGENERATOR_COORDINATE_H

#include <reportgenerator/reportbase/recordobject.h>

#include <QtCore/QTypeInfo>

namespace REPORTGENERATOR {

/// The record of a coordinate, which stands in the object.
struct CoordinateData : Record
{
    double longitude = 0.0;
    double latitude = 0.0;
};

extern template class REPORTBASE_EXPORT RecordObject<CoordinateData, OwnRecord<CoordinateData>>;

/// One geographic point: longitude and latitude in decimal degrees.
///
/// The element of an `Area`'s polygon. Its element is named "Coordinate", with the child elements "Longitude"
/// and "Latitude"; it has tagged, compressed and raw forms. XML and tagged forms carry six decimals; the raw
/// form keeps the numbers as they are.
///
/// `Check` reports a value that is not set or outside its range. An unset value is written as it stands when
/// not validating. The raw form has 17 bytes: a byte with a bit for each field that is set (longitude,
/// latitude, from bit 0), longitude, latitude.
///
/// Copies are values. Threads: see `IRGObject`.
///
///     REPORTGENERATOR::Coordinate point;
///     point.SetLongitude(9.5);
///     point.SetLatitude(47.5);
///     area.AppendCoordinate(point);
class REPORTBASE_EXPORT Coordinate : public RecordObject<CoordinateData, OwnRecord<CoordinateData>>
{
public:
    /// Nothing set.
    Coordinate();

    /// Copies fields and validate flag; the copy has no logger.
    Coordinate(const Coordinate& other);

    /// Takes the fields over. Name, id, validate flag and logger stay.
    Coordinate& operator=(const Coordinate& other);
    ~Coordinate() override;

    /// Compare field by field: a field matches when it is set in neither object, or in both with equal
    /// values.
    bool operator==(const Coordinate& other) const;
    bool operator!=(const Coordinate& other) const;

    /// Whether longitude or latitude is set.
    bool AnyData() const;

    /// Whether both are set.
    bool HasData() const override;

    /// Degrees east, [-180, 180], 0.0 when not set.
    ///
    /// The setter refuses a value outside the range, NaN included, when validating: it throws `RGException`
    /// named "OutOfRangeException" ("Parameters for m_longitude are not set within range (-180, 180) in
    /// 'Coordinate'.") and stores nothing. When not validating it logs the same as a WARNING, stores the
    /// value and counts it as set.
    double GetLongitude() const;
    void SetLongitude(double longitude);
    bool IsLongitudeSet() const;
    void ResetLongitude();
    bool IsValidLongitude(const double& longitude) const;
    double GetDefaultLongitude() const;

    /// Degrees north, [-90, 90], 0.0 when not set. The setter is as that of the longitude, with "m_latitude"
    /// and "(-90, 90)" in its message.
    double GetLatitude() const;
    void SetLatitude(double latitude);
    bool IsLatitudeSet() const;
    void ResetLatitude();
    bool IsValidLatitude(const double& latitude) const;
    double GetDefaultLatitude() const;

    /// Reads the children of the element, through the setters; a text that is not a number reads as 0. Other
    /// children are skipped.
    void ProcessXml(QXmlStreamReader& reader) override;

protected:
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;
};

} // namespace REPORTGENERATOR

// A coordinate may be moved in memory as it stands: a growing vector neither copies it nor takes its logger
// away.
Q_DECLARE_TYPEINFO(REPORTGENERATOR::Coordinate, Q_MOVABLE_TYPE);

#endif
