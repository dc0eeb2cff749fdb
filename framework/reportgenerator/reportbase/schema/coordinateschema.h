#ifndef REPORTGENERATOR_SCHEMA_COORDINATESCHEMA_H
#define REPORTGENERATOR_SCHEMA_COORDINATESCHEMA_H

#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/records/fields.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/schema/unit.h>

namespace REPORTGENERATOR {

template <>
struct Schema<CoordinateData>
{
    using Object = Coordinate;

    static constexpr long long ID = 0xCE458C11;
    static constexpr Name NAME = wire::COORDINATE;
    static constexpr Unit UNIT = Unit::Degrees;

    // The widths show only where there are no digits: " nan", " inf".
    static constexpr int DECIMALS = 6;
    static constexpr auto LONGITUDE = ElementField(&CoordinateData::longitude, REPORTBASE_NAME("Longitude"),
                                                   PresenceBit{0, wire::Tag(0x247E7491)})
                                          .Mandatory()
                                          .Format(DECIMALS, 4)
                                          .Within(-180.0, 180.0);
    static constexpr auto LATITUDE = ElementField(&CoordinateData::latitude, REPORTBASE_NAME("Latitude"),
                                                  PresenceBit{1, wire::Tag(0xCB2F4B76)})
                                         .Mandatory()
                                         .Format(DECIMALS, 3)
                                         .Within(-90.0, 90.0);
    static constexpr auto FIELDS = std::make_tuple(LONGITUDE, LATITUDE);
};

extern template const ObjectIdentity& ClassIdentity<CoordinateData>();

} // namespace REPORTGENERATOR

#endif
