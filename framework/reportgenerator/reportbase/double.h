#ifndef REPORTGENERATOR_DOUBLE_H
#define REPORTGENERATOR_DOUBLE_H

#include <reportgenerator/reportbase/irgobject.h>

#include <QtCore/QString>

namespace REPORTGENERATOR {

/// A named number that describes itself: a value with optional minimum, maximum, default and unit.
///
/// Its XML element bears the name given by `SetName`, "AnyType" until then, and has the optional attributes
/// "Minimum", "Maximum", "Default" and "Unit" and the child element "DoubleValue"; all numbers are written in
/// fixed notation with six decimals. There is no binary form.
///
/// What stands for "not set" is decided by the object: see `SetDefaultInvalidValue`. A copy is complete and
/// shares the logger. Threads: see `IRGObject`.
///
///     REPORTGENERATOR::Double dwell;
///     dwell.SetName(QStringLiteral("DwellTime"));
///     dwell.SetUnit(QStringLiteral("s"));
///     dwell.SetValue(0.25);
///     const QString xml = dwell.GetXmlString();
class REPORTBASE_EXPORT Double : public IRGObject
{
public:
    /// Nothing set, object name "AnyType".
    Double();

    /// Copies everything, base included.
    Double(const Double& other);
    Double& operator=(const Double& other);
    ~Double() override;

    /// Compare minimum, maximum, default, value and unit; a NaN differs from everything. Name, number that
    /// stands for "not set" and version don't count.
    bool operator==(const Double& other) const;
    bool operator!=(const Double& other) const;

    /// The value itself, the one field that must be set; minimum and maximum don't restrict it.
    double GetValue() const;
    void SetValue(double value);

    /// The lower bound, optional.
    double GetMinimum() const;
    void SetMinimum(double minimum);

    /// The upper bound, optional. It may lie below the lower one.
    double GetMaximum() const;
    void SetMaximum(double maximum);

    /// The default, optional. Setting it leaves the value as it is; reading it doesn't (see `ProcessXml`).
    double GetDefault() const;
    void SetDefault(double value);

    /// The unit as free text, empty when there is none.
    QString GetUnit() const;
    void SetUnit(const QString& unit);

    /// The object name, which is the XML element name.
    const QString& GetName() const;
    void SetName(const QString& name);

    /// The number that stands for "not set" in this object, -111111.11 unless it is changed. Changing it
    /// resets the object.
    double GetDefaultInvalidValue() const;
    void SetDefaultInvalidValue(double value);

    /// The format of the numbers in texts: always 'f' with 6 decimals, which is part of the form. `SetFormat`
    /// doesn't look at its arguments and restores these two.
    void SetFormat(char format, int precision);
    char GetFormat() const;
    int GetPrecision() const;

    /// The number as text, empty when it is not set.
    QString GetFormattedString(double value) const;
    QString GetValueString() const;
    QString GetMinimumString() const;
    QString GetMaximumString() const;

    /// Whether any of the numbers or the unit is set.
    bool AnyData() const;

    /// Whether the value is set.
    bool HasData() const override;

    /// Unsets numbers and unit; name, version and the number that stands for "not set" stay.
    void Reset() override;

    using IRGObject::Check;

    /// Throws `RGException` when the value is not set: the name, directly followed by "The double has not
    /// been set! Please use SetValue first".
    void Check() const override;

    using IRGObject::IsValid;

    /// Whether the number differs from the one that stands for "not set" in this object.
    bool IsValid(double value) const override;

    /// Writes the element. Throws as `Check`, also when not validating.
    void GetXml(QXmlStreamWriter& writer) const override;

    /// Reads the element. An attribute "Default" sets both default and value; a missing attribute leaves its
    /// field as it is; a text that is not a number reads as 0. A child of another name draws no message: a
    /// "DoubleValue" within it is read, and its end tag ends the reading.
    void ProcessXml(QXmlStreamReader& reader) override;

protected:
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    double m_minimum;
    double m_maximum;
    double m_default;
    double m_value;
    QString m_unit;
    char m_format;
    int m_precision;
    double m_defaultInvalidValue;
    QString m_version;
};

} // namespace REPORTGENERATOR

#endif
