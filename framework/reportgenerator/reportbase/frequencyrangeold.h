#ifndef REPORTGENERATOR_FREQUENCYRANGEOLD_H
#define REPORTGENERATOR_FREQUENCYRANGEOLD_H

#include <reportgenerator/reportbase/irgobject.h>

namespace REPORTGENERATOR {

/// A range of frequencies in the older, simple layout: a start and a stop frequency.
///
/// The range of `FrequencyInformation` and of `ScanParameter`. Its XML element is named "FrequencyRange",
/// with the child elements "StartFrequency" and "StopFrequency", both with two decimals. There is no binary
/// form. -111111.11 stands for "not set"; any other number, NaN included, may be stored. The unit is the
/// client's. A copy is complete and shares the logger. Threads: see `IRGObject`.
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

    /// Copies everything, base included.
    FrequencyRangeOld(const FrequencyRangeOld& other);
    FrequencyRangeOld& operator=(const FrequencyRangeOld& other);
    ~FrequencyRangeOld() override;

    /// Compare start and stop, set or not; a NaN differs from everything.
    bool operator==(const FrequencyRangeOld& other) const;
    bool operator!=(const FrequencyRangeOld& other) const;

    /// Where the range starts, the child element "StartFrequency". No relation to its other end is enforced.
    double GetStartFrequency() const;
    void SetStartFrequency(double frequency);

    /// Where the range stops, the child element "StopFrequency".
    double GetStopFrequency() const;
    void SetStopFrequency(double frequency);

    /// Whether start or stop is set.
    bool AnyData() const;

    /// Whether both are set.
    bool HasData() const override;

    /// Unsets both.
    void Reset() override;

    using IRGObject::Check;

    /// Throws `RGException`, "FrequencyRange: Please set StartFrequency" (or StopFrequency), for the first
    /// that is not set. The message has no mark at its end.
    void Check() const override;

    /// Writes the element; nothing unless both are set. Throws nothing.
    void GetXml(QXmlStreamWriter& writer) const override;

protected:
    /// Throws `RGException` "Unknown Tag '%1' in '%2'." for other children; a text that is not a number reads
    /// as 0.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    struct Q_DECL_HIDDEN Schema;

    double m_startFrequency;
    double m_stopFrequency;
};

} // namespace REPORTGENERATOR

#endif
