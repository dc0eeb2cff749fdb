#ifndef REPORTGENERATOR_DESCRIPTIONS_BOUNDEDVALUEDESCRIPTION_H
#define REPORTGENERATOR_DESCRIPTIONS_BOUNDEDVALUEDESCRIPTION_H

#include <reportgenerator/reportbase/boundedvalue.h>
#include <reportgenerator/reportbase/descriptions/unit.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/rows.h>

namespace REPORTGENERATOR {

/// The rows that frequency and IF bandwidth share.
struct BoundedValueRows
{
    static constexpr Unit UNIT = Unit::Hertz;

    static constexpr auto VALUE =
        TextField(&BoundedValueData::value, REPORTBASE_NAME("Value"), Flagged{0, wire::tag::VALUE})
            .Mandatory();
    static constexpr auto MIN =
        AttributeField(&BoundedValueData::min, REPORTBASE_NAME("Min"), Flagged{1, wire::tag::MIN});
    static constexpr auto MAX =
        AttributeField(&BoundedValueData::max, REPORTBASE_NAME("Max"), Flagged{2, wire::tag::MAX});
};

} // namespace REPORTGENERATOR

#endif
