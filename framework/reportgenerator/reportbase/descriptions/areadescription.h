#ifndef REPORTGENERATOR_DESCRIPTIONS_AREADESCRIPTION_H
#define REPORTGENERATOR_DESCRIPTIONS_AREADESCRIPTION_H

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/descriptions/coordinatedescription.h>
#include <reportgenerator/reportbase/messages_p.h>

namespace REPORTGENERATOR {

struct AreaData : Record
{
    QString initialVersionLoaded;
    QString name;
    ObjectList<Coordinate> coordinates;
    QString scriptID;
};

template <>
struct Description<AreaData>
{
    using Object = Area;

    static constexpr long long ID = 0x469B9976;
    static constexpr Name NAME = wire::AREA;

    static constexpr FormatVersion<AreaData> VERSION = {&AreaData::initialVersionLoaded,
                                                        wire::VERSION_ATTRIBUTE, wire::tag::AREA_VERSION,
                                                        wire::AREA_VERSION};
    static constexpr auto AREA_NAME =
        ElementField(&AreaData::name, REPORTBASE_NAME("Name"), Flagged{0, wire::tag::AREA_NAME}).Mandatory();
    static constexpr ItemList<AreaData, Coordinate> COORDINATES = {
        &AreaData::coordinates, wire::COORDINATE, Flagged{1, wire::tag::AREA_COORDINATES},
        messages::IncompleteCoordinateAppended, messages::IncompleteCoordinateWritten};
    static constexpr auto SCRIPT_ID =
        ElementField(&AreaData::scriptID, REPORTBASE_NAME("ScriptID"), Flagged{2, wire::tag::AREA_SCRIPT_ID});
    static constexpr auto ROWS = std::make_tuple(VERSION, AREA_NAME, COORDINATES, SCRIPT_ID);
};

extern template const ObjectIdentity& ClassIdentity<AreaData>();

} // namespace REPORTGENERATOR

#endif
