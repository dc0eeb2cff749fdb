#ifndef REPORTGENERATOR_SCHEMA_FREQUENCYSCHEMA_H
#define REPORTGENERATOR_SCHEMA_FREQUENCYSCHEMA_H

#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/schema/boundedvalueschema.h>

namespace REPORTGENERATOR {

template <>
struct Schema<FrequencyData> : BoundedValueFields
{
    using Object = Frequency;

    static constexpr long long ID = 0xC6B750E3;
    static constexpr Name NAME = wire::FREQUENCY;

    static constexpr auto USE =
        AttributeField(&FrequencyData::use, REPORTBASE_NAME("Use"), PresenceBit{3, wire::Tag(0xAA39C731)});
    static constexpr auto FIELDS = std::make_tuple(MIN, MAX, USE, VALUE);
};

extern template const ObjectIdentity& ClassIdentity<FrequencyData>();

} // namespace REPORTGENERATOR

#endif
