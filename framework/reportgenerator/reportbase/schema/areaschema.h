#ifndef REPORTGENERATOR_SCHEMA_AREASCHEMA_H
#define REPORTGENERATOR_SCHEMA_AREASCHEMA_H

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/schema/coordinateschema.h>

namespace REPORTGENERATOR {

struct AreaData : Record
{
    QString initialVersionLoaded;
    QString name;
    ObjectList<Coordinate> coordinates;
    QString scriptID;
};

template <>
struct Schema<AreaData>
{
    using Object = Area;

    static constexpr long long ID = 0x469B9976;
    static constexpr Name NAME = wire::AREA;

    static constexpr FormatVersion<AreaData> VERSION = {
        &AreaData::initialVersionLoaded, wire::VERSION_ATTRIBUTE, wire::Tag(0xCCFEDFA1), wire::AREA_VERSION};
    static constexpr auto AREA_NAME =
        ElementField(&AreaData::name, REPORTBASE_NAME("Name"), PresenceBit{0, wire::Tag(0x8C9FBCA8)})
            .Mandatory();
    static constexpr ItemList<AreaData, Coordinate> COORDINATES = {
        &AreaData::coordinates, wire::COORDINATE, PresenceBit{1, wire::Tag(0x6F69083F)},
        messages::IncompleteCoordinateAppended, messages::IncompleteCoordinateWritten};
    static constexpr auto SCRIPT_ID =
        ElementField(&AreaData::scriptID, REPORTBASE_NAME("ScriptID"), PresenceBit{2, wire::Tag(0xC22211A9)});
    static constexpr auto FIELDS = std::make_tuple(VERSION, AREA_NAME, COORDINATES, SCRIPT_ID);
};

extern template const ObjectIdentity& ClassIdentity<AreaData>();

} // namespace REPORTGENERATOR

#endif
