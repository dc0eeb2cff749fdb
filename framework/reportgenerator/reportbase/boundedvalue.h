#ifndef REPORTGENERATOR_BOUNDEDVALUE_H
#define REPORTGENERATOR_BOUNDEDVALUE_H

#include <reportgenerator/reportbase/recordobject.h>

namespace REPORTGENERATOR {

/// What the records of `Frequency` and `IFBandwidth` have in common; they stand in their objects.
struct BoundedValueData : Record
{
    double value = 0.0;
    double min = 0.0;
    double max = 0.0;
};

/// What `Frequency` and `IFBandwidth` have in common: a number with an optional lower and upper bound.
///
/// The element has the attributes "Min" and "Max" and the value as text; there are tagged, compressed and raw
/// forms. The numbers bear no unit: all programs of a system use the same one. XML and tagged forms round to
/// hundredths; the raw form keeps the numbers as they are. The tags are the same in both classes, so that
/// either can read the other's elements.
///
/// The class is implemented for the records of these two only.
template <class Data>
class BoundedValue : public RecordObject<Data, OwnRecord<Data>>
{
public:
    /// Whether any field is set.
    bool AnyData() const;

    /// Whether the value is set, the one field that must be.
    bool HasData() const override;

    /// The number itself, 0.0 when not set. Written as the element's text with two decimals. Every number is
    /// valid.
    double GetValue() const;
    void SetValue(double value);
    bool IsValueSet() const;
    void ResetValue();
    bool IsValidValue(const double& value) const;
    double GetDefaultValue() const;

    /// The lower bound, 0.0 when not set. Written as the attribute "Min" with two decimals when set. Every
    /// number is valid, and none is compared with the value.
    double GetMin() const;
    void SetMin(double min);
    bool IsMinSet() const;
    void ResetMin();
    bool IsValidMin(const double& min) const;
    double GetDefaultMin() const;

    /// The upper bound: as the lower bound, with the attribute "Max".
    double GetMax() const;
    void SetMax(double max);
    bool IsMaxSet() const;
    void ResetMax();
    bool IsValidMax(const double& max) const;
    double GetDefaultMax() const;

    /// As `ReadValuesFromXml`.
    void ProcessXml(QXmlStreamReader& reader) override;

    /// Reads the element that the reader stands on. The value counts as set afterwards, whatever the text; a
    /// text that is not a number reads as 0. Other attributes and child elements draw no message, but the
    /// text of a child is a piece of the value's text, of which the last one before the first end tag counts.
    void ReadValuesFromXml(QXmlStreamReader& reader);

protected:
    /// Nothing set.
    BoundedValue();

    /// Copies kind, record and validate flag.
    BoundedValue(const BoundedValue& other);

    /// Takes the record over, and nothing else.
    BoundedValue& operator=(const BoundedValue& other);
    ~BoundedValue() override;

    using RecordObject<Data, OwnRecord<Data>>::m_record;
};

} // namespace REPORTGENERATOR

#endif
