#ifndef REPORTGENERATOR_FREQUENCYINFORMATION_H
#define REPORTGENERATOR_FREQUENCYINFORMATION_H

#include <reportgenerator/reportbase/frequencyholder.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>

namespace REPORTGENERATOR {

/// Where in the spectrum something was observed: either at a frequency with optional bounds or in a range.
/// Exactly one of the two must have data.
///
/// Its XML element is named "FrequencyInformation" and holds the element of the one that has data,
/// "Frequency" (see `ValueMinMax`) or "FrequencyRange" (see `FrequencyRangeOld`). There is no binary form.
/// The validate flag and the logger are not passed on to the range. A copy is complete and shares the logger.
/// Threads: see `IRGObject`.
///
///     REPORTGENERATOR::FrequencyInformation where;
///     where.SetFrequency(121500000.0);
///     const QString xml = where.GetXmlString();
class REPORTBASE_EXPORT FrequencyInformation : public FrequencyHolder
{
public:
    /// Nothing set.
    FrequencyInformation();

    /// Copies everything, base included.
    FrequencyInformation(const FrequencyInformation& other);
    FrequencyInformation& operator=(const FrequencyInformation& other);
    ~FrequencyInformation() override;

    /// Compare the numbers of frequency and range, set or not; a NaN differs from everything.
    bool operator==(const FrequencyInformation& other) const;
    bool operator!=(const FrequencyInformation& other) const;

    /// The range. The setter takes it whole, base included; the element of the range then bears its object
    /// name.
    const FrequencyRangeOld& GetFrequencyRange() const;
    FrequencyRangeOld& GetFrequencyRange();
    void SetFrequencyRange(const FrequencyRangeOld& range);

    /// Whether the frequency or an end of the range is set; bounds of the frequency don't count.
    bool AnyData() const;

    /// Whether one of the two is complete and the other has no data.
    bool HasData() const override;

    /// Unsets frequency, bounds and range.
    void Reset() override;

    using IRGObject::Check;

    /// Throws `RGException`, "FrequencyInformation: Please set either Frequency or FrequencyRange!", when
    /// both have data or neither has; otherwise what the check of the one that has data throws.
    void Check() const override;

    /// Writes the element; nothing unless `HasData`. Throws nothing.
    void GetXml(QXmlStreamWriter& writer) const override;

protected:
    /// Reads frequency or range, into what they hold already. Throws `RGException` "Unknown Tag '%1' in
    /// '%2'." for children that are neither.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    struct Q_DECL_HIDDEN Schema;

    FrequencyRangeOld m_range;
};

} // namespace REPORTGENERATOR

#endif
