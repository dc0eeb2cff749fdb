#ifndef REPORTGENERATOR_DESCRIPTIONS_FREQUENCYDESCRIPTION_H
#define REPORTGENERATOR_DESCRIPTIONS_FREQUENCYDESCRIPTION_H

#include <reportgenerator/reportbase/descriptions/boundedvaluedescription.h>
#include <reportgenerator/reportbase/frequency.h>

namespace REPORTGENERATOR {

template <>
struct Description<FrequencyData> : BoundedValueRows
{
    using Object = Frequency;

    static constexpr long long ID = 0xC6B750E3;
    static constexpr Name NAME = wire::FREQUENCY;

    static constexpr auto USE =
        AttributeField(&FrequencyData::use, REPORTBASE_NAME("Use"), Flagged{3, wire::tag::USE});
    static constexpr auto ROWS = std::make_tuple(MIN, MAX, USE, VALUE);
};

extern template const ObjectIdentity& ClassIdentity<FrequencyData>();

} // namespace REPORTGENERATOR

#endif
