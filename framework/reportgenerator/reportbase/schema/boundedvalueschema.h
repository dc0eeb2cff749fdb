#ifndef REPORTGENERATOR_SCHEMA_BOUNDEDVALUESCHEMA_H
#define REPORTGENERATOR_SCHEMA_BOUNDEDVALUESCHEMA_H

#include <reportgenerator/reportbase/boundedvalue.h>
#include <reportgenerator/reportbase/records/fields.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/schema/unit.h>

namespace REPORTGENERATOR {

/// The fields that frequency and IF bandwidth share. The tags are the same, so that either can read the other's body.
struct BoundedValueFields
{
    static constexpr Unit UNIT = Unit::Hertz;

    static constexpr auto VALUE =
        TextField(&BoundedValueData::value, REPORTBASE_NAME("Value"), PresenceBit{0, wire::Tag(0x8AFF57B3)})
            .Mandatory();
    static constexpr auto MIN =
        AttributeField(&BoundedValueData::min, REPORTBASE_NAME("Min"), PresenceBit{1, wire::Tag(0x4ECB4E58)});
    static constexpr auto MAX =
        AttributeField(&BoundedValueData::max, REPORTBASE_NAME("Max"), PresenceBit{2, wire::Tag(0x6E8DD7F5)});
};

} // namespace REPORTGENERATOR

#endif
