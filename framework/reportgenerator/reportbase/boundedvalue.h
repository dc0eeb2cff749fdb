#ifndef REPORTGENERATOR_BOUNDEDVALUE_H
#define REPORTGENERATOR_BOUNDEDVALUE_H

#include <reportgenerator/reportbase/recordobject.h>

namespace REPORTGENERATOR {

/// What `Frequency` and `IFBandwidth` have in common: a number with an optional lower and upper bound.
///
/// The element has the attributes "Min" and "Max" and the value as text; there are tagged, compressed and raw
/// forms. The numbers bear no unit: all programs of a system use the same one. XML and tagged forms round to
/// hundredths; the raw form keeps the numbers as they are. The tags are the same in both classes, so that
/// either can read the other's elements.
///
/// The class is implemented for the records of these two only.
template <class Data>
class BoundedValue : public RecordObject<Data>
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

    using RecordObject<Data>::Check;

    /// Throws `RGException` named "OutOfRangeException" when the value is not set: the object name, then ":
    /// Please set Value properly.". With `logOnly` and a logger the failure is logged instead.
    void Check(bool logOnly) const override;

    /// Writes the element: the attributes that are set, and the value even when it is not set, which can only
    /// happen when the object doesn't validate. Throws as `Check` when validating.
    void GetXml(QXmlStreamWriter& writer) const override;

    /// Writes one tagged element per field that is set, the value last. Numbers travel as the text of their
    /// two decimals.
    bool GetBinary(QDataStream& stream, int tag, bool withTag) const override;

    /// Reads the elements into the unset object.
    void SetBinary(QDataStream& stream, int length) override;

    void ProcessXml(QXmlStreamReader& reader) override;

    /// Reads the element that the reader stands on. The value counts as set afterwards, whatever the text; a
    /// text that is not a number reads as 0. Other attributes and child elements are passed over.
    void ReadValuesFromXml(QXmlStreamReader& reader);

    /// The raw form of the older binary versions, without tags, lengths and checks: a byte with a bit for
    /// each field that is set (value, min, max, and so on, from bit 0), the value, and the other fields that
    /// are set.
    void GetVersionSpecificBinaryWithoutValidation(QDataStream& stream) const;
    void SetVersionSpecificBinaryWithoutValidation(QDataStream& stream);

protected:
    BoundedValue();
    BoundedValue(const BoundedValue& other);
    BoundedValue& operator=(const BoundedValue& other);
    ~BoundedValue() override;

    using RecordObject<Data>::m_data;
};

} // namespace REPORTGENERATOR

#endif
