#ifndef REPORTGENERATOR_DESCRIPTIONS_IFBANDWIDTHDESCRIPTION_H
#define REPORTGENERATOR_DESCRIPTIONS_IFBANDWIDTHDESCRIPTION_H

#include <reportgenerator/reportbase/descriptions/boundedvaluedescription.h>
#include <reportgenerator/reportbase/ifbandwidth.h>

namespace REPORTGENERATOR {

template <>
struct Description<IFBandwidthData> : BoundedValueRows
{
    using Object = IFBandwidth;

    static constexpr long long ID = 0xCF7B9707;
    static constexpr Name NAME = wire::IF_BANDWIDTH;

    static constexpr auto ROWS = std::make_tuple(MIN, MAX, VALUE);
};

extern template const ObjectIdentity& ClassIdentity<IFBandwidthData>();

} // namespace REPORTGENERATOR

#endif
