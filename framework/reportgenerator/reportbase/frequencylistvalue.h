#ifndef REPORTGENERATOR_FREQUENCYLISTVALUE_H
#define REPORTGENERATOR_FREQUENCYLISTVALUE_H

#include <reportgenerator/reportbase/frequencyholder.h>

#include <QtCore/QDateTime>

namespace REPORTGENERATOR {

/// One entry of a list of frequencies: a frequency with optional bounds and an optional time stamp.
///
/// Its XML element is named "Value" and holds the element "Frequency" (see `ValueMinMax`) and, when there is
/// a time stamp, "TimeStamp" in UTC (see `Converters::ToString`). There is no binary form. A copy is complete
/// and shares the logger. Threads: see `IRGObject`.
///
///     REPORTGENERATOR::FrequencyListValue entry;
///     entry.SetFrequency(121500000.0);
///     const QString xml = entry.GetXmlString();
class REPORTBASE_EXPORT FrequencyListValue : public FrequencyHolder
{
public:
    /// Nothing set.
    FrequencyListValue();

    /// Copies everything, base included.
    FrequencyListValue(const FrequencyListValue& other);
    FrequencyListValue& operator=(const FrequencyListValue& other);
    ~FrequencyListValue() override;

    /// Compare the frequencies alone; bounds and time stamp don't count. A NaN differs from everything.
    bool operator==(const FrequencyListValue& other) const;
    bool operator!=(const FrequencyListValue& other) const;

    /// The moment that belongs to the frequency, null when there is none. Set by reading only.
    const QDateTime& GetTimeStamp() const;

    /// Whether the frequency or the time stamp is set; the bounds don't count.
    bool AnyData() const;

    /// Whether the frequency is set.
    bool HasData() const override;

    /// Unsets frequency, bounds and time stamp.
    void Reset() override;

    using IRGObject::Check;

    /// An empty entry passes. Throws `RGException` "FrequencyList: Please set Value!" for a time stamp
    /// without a frequency.
    void Check() const override;

    /// Writes the element; nothing without a frequency. Throws nothing.
    void GetXml(QXmlStreamWriter& writer) const override;

protected:
    /// Throws `RGException` "Unknown Tag '%1' in '%2'." for children that are neither frequency nor time
    /// stamp. The time stamp is read as by `Converters::ToDateTime`: a text that is not a date-time reads as
    /// null.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    struct Q_DECL_HIDDEN Schema;

    QDateTime m_timeStamp;
};

} // namespace REPORTGENERATOR

#endif
