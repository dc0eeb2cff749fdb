#ifndef REPORTGENERATOR_SCANPARAMETER_H
#define REPORTGENERATOR_SCANPARAMETER_H

#include <reportgenerator/reportbase/frequencyrangeold.h>

namespace REPORTGENERATOR {

/// The parameters of a frequency scan: the range, the frequency step, and optional dwell and hold times.
///
/// Its XML element is named "ScanParameter", with the attribute "Version" ("1.0", not read back), the element
/// of the range, and the child elements "FrequencyStep" and, when set, "DwellTime" and "HoldTime", all with
/// two decimals. There is no binary form. -111111.11 stands for "not set"; any other number, NaN included,
/// may be stored. The units are the client's. The validate flag and the logger are not passed on to the
/// range. A copy is complete and shares the logger. Threads: see `IRGObject`.
///
///     REPORTGENERATOR::ScanParameter scan;
///     scan.GetFrequencyRange().SetStartFrequency(118000000.0);
///     scan.GetFrequencyRange().SetStopFrequency(137000000.0);
///     scan.SetStepFrequency(8333.33);
///     const QString xml = scan.GetXmlString();
class REPORTBASE_EXPORT ScanParameter : public IRGObject
{
public:
    /// Nothing set.
    ScanParameter();

    /// Copies everything, base included.
    ScanParameter(const ScanParameter& other);
    ScanParameter& operator=(const ScanParameter& other);
    ~ScanParameter() override;

    /// The range to scan. The setter takes it whole, base included; the element of the range then bears its
    /// object name.
    const FrequencyRangeOld& GetFrequencyRange() const;
    FrequencyRangeOld& GetFrequencyRange();
    void SetFrequencyRange(const FrequencyRangeOld& range);

    /// The frequency step, the child element "FrequencyStep".
    double GetStepFrequency() const;
    void SetStepFrequency(double frequency);

    /// The dwell time, the child element "DwellTime". Optional.
    double GetDwellTime() const;
    void SetDwellTime(double time);

    /// The hold time, the child element "HoldTime". Optional; alone it does not count as data.
    double GetHoldTime() const;
    void SetHoldTime(double time);

    /// Whether anything but the hold time is set.
    bool AnyData() const;

    /// Whether range and step are set.
    bool HasData() const override;

    /// Unsets everything; the version stays.
    void Reset() override;

    using IRGObject::Check;

    /// Parameters without any data pass. Throws `RGException`: what the check of the range throws, then
    /// "ScanParameter: PLease set FrequencyStep!" (with that capital L) when the step is not set.
    void Check() const override;

    /// Writes the element; nothing unless range and step are set. Throws nothing.
    void GetXml(QXmlStreamWriter& writer) const override;

    /// The format version of this class, "1.0".
    const QString& GetVersion() const override;

protected:
    /// Throws `RGException` "Unknown Tag '%1' in '%2'." for other children; a text that is not a number reads
    /// as 0.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    struct Q_DECL_HIDDEN Schema;

    QString m_version;
    FrequencyRangeOld m_range;
    double m_stepFrequency;
    double m_dwellTime;
    double m_holdTime;
};

} // namespace REPORTGENERATOR

#endif
