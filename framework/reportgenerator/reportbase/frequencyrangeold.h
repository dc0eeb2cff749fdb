#ifndef REPORTGENERATOR_FREQUENCYRANGEOLD_H
#define REPORTGENERATOR_FREQUENCYRANGEOLD_H

#include <reportgenerator/reportbase/irgobject.h>

namespace REPORTGENERATOR {

/// A range of frequencies in the older, simple layout: a start and a stop frequency.
///
/// The range of `FrequencyInformation` and of `ScanParameter`. Its XML element is named "FrequencyRange",
/// with the child elements "StartFrequency" and "StopFrequency", both with two decimals. There is no binary
/// form. -111111.11 stands for "not set". A copy is complete, base included. One thread at a time.
///
///     REPORTGENERATOR::FrequencyRangeOld band;
///     band.SetStartFrequency(87500000.0);
///     band.SetStopFrequency(108000000.0);
///     const QString xml = band.GetXmlString();
class REPORTBASE_EXPORT FrequencyRangeOld : public IRGObject
{
public:
    /// Nothing set.
    FrequencyRangeOld();
    FrequencyRangeOld(const FrequencyRangeOld& other);
    FrequencyRangeOld& operator=(const FrequencyRangeOld& other);
    ~FrequencyRangeOld() override;

    /// Compare start and stop, set or not; a NaN differs from everything.
    bool operator==(const FrequencyRangeOld& other) const;
    bool operator!=(const FrequencyRangeOld& other) const;

    /// The lower end, in the unit that all programs of a system use. No relation to the upper end is
    /// enforced.
    double GetStartFrequency() const;
    void SetStartFrequency(double frequency);

    double GetStopFrequency() const;
    void SetStopFrequency(double frequency);

    /// Whether start or stop is set.
    bool AnyData() const;

    /// Whether both are set.
    bool HasData() const override;

    void Reset() override;

    using IRGObject::Check;

    /// Throws `RGException`, "FrequencyRange: Please set StartFrequency" (or StopFrequency), for the first
    /// that is not set.
    void Check() const override;

    /// Writes the element; nothing unless both are set.
    void GetXml(QXmlStreamWriter& writer) const override;

protected:
    /// Throws `RGException` "Unknown Tag '%1' in '%2'." for other children; a text that is not a number reads
    /// as 0.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    struct Description;

    double m_startFrequency;
    double m_stopFrequency;
};

} // namespace REPORTGENERATOR

#endif
