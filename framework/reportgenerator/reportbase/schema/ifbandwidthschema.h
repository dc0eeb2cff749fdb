#ifndef REPORTGENERATOR_SCHEMA_IFBANDWIDTHSCHEMA_H
#define REPORTGENERATOR_SCHEMA_IFBANDWIDTHSCHEMA_H

#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/schema/boundedvalueschema.h>

namespace REPORTGENERATOR {

template <>
struct Schema<IFBandwidthData> : BoundedValueFields
{
    using Object = IFBandwidth;

    static constexpr long long ID = 0xCF7B9707;
    static constexpr Name NAME = wire::IF_BANDWIDTH;

    static constexpr auto FIELDS = std::make_tuple(MIN, MAX, VALUE);
};

extern template const ObjectIdentity& ClassIdentity<IFBandwidthData>();

} // namespace REPORTGENERATOR

#endif
