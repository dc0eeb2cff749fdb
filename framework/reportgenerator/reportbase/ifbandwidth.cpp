#include <reportgenerator/reportbase/ifbandwidth.h>

#include <reportgenerator/reportbase/records/boundedvalue_p.h>
#include <reportgenerator/reportbase/schema/ifbandwidthschema.h>

namespace REPORTGENERATOR {

template const ObjectIdentity& ClassIdentity<IFBandwidthData>();
template class RecordObject<IFBandwidthData, OwnRecord<IFBandwidthData>>;
template class BoundedValue<IFBandwidthData>;

IFBandwidth::IFBandwidth() = default;

IFBandwidth::IFBandwidth(const IFBandwidth& other) = default;

IFBandwidth& IFBandwidth::operator=(const IFBandwidth& other) = default;

IFBandwidth::~IFBandwidth() = default;

bool IFBandwidth::operator==(const IFBandwidth& other) const
{
    return IsRecordEqual(*this, other);
}

bool IFBandwidth::operator!=(const IFBandwidth& other) const
{
    return !IsRecordEqual(*this, other);
}

} // namespace REPORTGENERATOR
