#ifndef REPORTGENERATOR_VALUEMINMAX_H
#define REPORTGENERATOR_VALUEMINMAX_H

#include <reportgenerator/reportbase/irgobject.h>

#include <QtCore/QString>

namespace REPORTGENERATOR {

/// A named number with an optional minimum and maximum; the frequency of `FrequencyInformation` and of
/// `FrequencyListValue`.
///
/// Its XML element bears the name given by `SetName`, not the object name, and has the optional attributes
/// "Min" and "Max" and the value as text, all with two decimals. It is read by `ReadValuesFromXml` alone: the
/// object's own loading looks for an element of the object name and reads nothing from it. There is no binary
/// form. -111111.11 stands for "not set"; any other number, NaN included, may be stored. The unit is that of
/// the holder. A copy is complete and shares the logger. Threads: see `IRGObject`.
///
///     REPORTGENERATOR::ValueMinMax value(121500000.0);
///     value.SetName(QStringLiteral("Frequency"));
///     const QString xml = value.GetXmlString();
class REPORTBASE_EXPORT ValueMinMax : public IRGObject
{
public:
    /// Nothing set and no name.
    ValueMinMax();

    /// Only the value set, and no name.
    explicit ValueMinMax(double value);

    /// Copies everything, base included.
    ValueMinMax(const ValueMinMax& other);
    ValueMinMax& operator=(const ValueMinMax& other);
    ~ValueMinMax() override;

    /// Compare name, value, minimum and maximum; a NaN differs from everything.
    bool operator==(const ValueMinMax& other) const;
    bool operator!=(const ValueMinMax& other) const;

    /// The name of the XML element, empty until it is set; the object name stays "AnyType".
    QString GetName() const;
    void SetName(const QString& name);

    /// The number itself; neither bound restricts it.
    double GetValue() const;
    void SetValue(double value);

    /// The lower bound, written as the attribute "Min".
    double GetMin() const;
    void SetMin(double min);

    /// The upper bound, written as the attribute "Max". It may lie below the lower one.
    double GetMax() const;
    void SetMax(double max);

    using IRGObject::IsValid;

    /// Whether the number differs from the one that stands for "not set".
    bool IsValid(double value); // Not const, so that it hides the base's operation instead of overriding it.

    /// What the base says of a value of another type. Not const, like the operation above, so that a call on
    /// an object that is not const has one best match.
    template <class Value>
    bool IsValid(const Value& value)
    {
        return static_cast<const IRGObject&>(*this).IsValid(value);
    }

    /// Whether the value is set; the bounds don't count.
    bool AnyData() const;
    bool HasData() const override;

    /// Unsets the three numbers; the name stays.
    void Reset() override;

    using IRGObject::Check;

    /// Throws `RGException` "ValueMinMax: Please set object name!" when there is no name. The numbers are not
    /// looked at.
    void Check() const override;

    /// Writes the element; nothing without a name or a value. Throws nothing.
    void GetXml(QXmlStreamWriter& writer) const override;

    /// Reads attributes and text of the element that the reader stands on; a missing attribute unsets its
    /// bound. The value counts as set afterwards: a text that is not a number, the empty one included, reads
    /// as 0. The name of the element is not looked at.
    ///
    /// Malformed XML throws `RGException` with the reader's own text, logged as FATAL ERROR to the logger of
    /// this object; the bounds have been read by then, the value is as before.
    void ReadValuesFromXml(QXmlStreamReader& reader);

private:
    struct Q_DECL_HIDDEN Schema;

    QString m_name;
    double m_value;
    double m_min;
    double m_max;
};

} // namespace REPORTGENERATOR

#endif
