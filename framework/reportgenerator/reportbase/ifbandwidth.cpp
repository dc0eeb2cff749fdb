#include <reportgenerator/reportbase/ifbandwidth.h>

#include <reportgenerator/reportbase/records/boundedvalue.h>

namespace REPORTGENERATOR {

struct IFBandwidthData : BoundedValueData
{
};

template <>
struct Description<IFBandwidthData>
{
    static constexpr long long ID = 0xCF7B9707;
    static constexpr Name NAME = REPORTBASE_NAME("IFBandwidth");
    static constexpr auto FIELDS =
        std::make_tuple(MIN<IFBandwidthData>, MAX<IFBandwidthData>, VALUE<IFBandwidthData>);
};

template class RecordObject<IFBandwidthData>;
template class BoundedValue<IFBandwidthData>;

IFBandwidth::IFBandwidth() = default;

IFBandwidth::IFBandwidth(const IFBandwidth& other) = default;

IFBandwidth& IFBandwidth::operator=(const IFBandwidth& other) = default;

IFBandwidth::~IFBandwidth() = default;

bool IFBandwidth::operator==(const IFBandwidth& other) const
{
    return HasEqualRecord(other);
}

bool IFBandwidth::operator!=(const IFBandwidth& other) const
{
    return !HasEqualRecord(other);
}

} // namespace REPORTGENERATOR
