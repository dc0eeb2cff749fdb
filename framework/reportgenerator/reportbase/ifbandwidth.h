#ifndef REPORTGENERATOR_IFBANDWIDTH_H
#define REPORTGENERATOR_IFBANDWIDTH_H

#include <reportgenerator/reportbase/boundedvalue.h>

namespace REPORTGENERATOR {

/// The record, which stands in the object.
struct IFBandwidthData : BoundedValueData
{
};

extern template class REPORTBASE_EXPORT RecordObject<IFBandwidthData, OwnRecord<IFBandwidthData>>;
extern template class REPORTBASE_EXPORT BoundedValue<IFBandwidthData>;

/// The bandwidth of a report's intermediate frequency: a value with optional bounds.
///
/// A leaf object, held by value in `ReportBase`. Its element is named "IFBandwidth"; see `BoundedValue` for
/// its forms. Copies are values. Threads: see `IRGObject`.
///
///     REPORTGENERATOR::IFBandwidth bandwidth;
///     bandwidth.SetValue(8333.33);
///     const QString xml = bandwidth.GetXmlString();
class REPORTBASE_EXPORT IFBandwidth : public BoundedValue<IFBandwidthData>
{
public:
    /// Nothing set.
    IFBandwidth();

    /// Copies fields and validate flag; the copy has no logger.
    IFBandwidth(const IFBandwidth& other);

    /// Takes the fields over. Name, id, validate flag and logger stay.
    IFBandwidth& operator=(const IFBandwidth& other);
    ~IFBandwidth() override;

    /// Compare field by field: a field matches when it is set in neither object, or in both with equal
    /// values.
    bool operator==(const IFBandwidth& other) const;
    bool operator!=(const IFBandwidth& other) const;
};

} // namespace REPORTGENERATOR

#endif
