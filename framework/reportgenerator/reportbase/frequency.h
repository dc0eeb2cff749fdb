#ifndef REPORTGENERATOR_FREQUENCY_H
#define REPORTGENERATOR_FREQUENCY_H

#include <reportgenerator/reportbase/boundedvalue.h>

namespace REPORTGENERATOR {

/// The record, which stands in the object.
struct FrequencyData : BoundedValueData
{
    bool use = true;
};

extern template class REPORTBASE_EXPORT RecordObject<FrequencyData, OwnRecord<FrequencyData>>;
extern template class REPORTBASE_EXPORT BoundedValue<FrequencyData>;

/// One frequency of a report: a value with optional bounds and a switch that says whether it is to be used.
///
/// A leaf object, held by value in `ReportBase`. Its element is named "Frequency"; see `BoundedValue` for its
/// forms. Copies are values. Threads: see `IRGObject`.
///
///     REPORTGENERATOR::Frequency frequency;
///     frequency.SetValue(121500000.0);
///     frequency.SetMin(121487500.0);
///     const QString xml = frequency.GetXmlString();
class REPORTBASE_EXPORT Frequency : public BoundedValue<FrequencyData>
{
public:
    /// Nothing set.
    Frequency();

    /// Copies fields and validate flag; the copy has no logger.
    Frequency(const Frequency& other);

    /// Takes the fields over. Name, id, validate flag and logger stay.
    Frequency& operator=(const Frequency& other);
    ~Frequency() override;

    /// Compare field by field: a field matches when it is set in neither object, or in both with equal
    /// values.
    bool operator==(const Frequency& other) const;
    bool operator!=(const Frequency& other) const;

    /// Whether the frequency is to be used, true when not set. Written as the attribute "Use", "true" or
    /// "false", when set. When read, "0" and "false" in any case are false and every other text is true.
    bool GetUse() const;
    void SetUse(bool use);
    bool IsUseSet() const;
    void ResetUse();
    bool GetDefaultUse() const;

    /// Makes the record and unsets all fields, and then counts "use" as set, to true.
    void ResetToDefault();
};

} // namespace REPORTGENERATOR

#endif
