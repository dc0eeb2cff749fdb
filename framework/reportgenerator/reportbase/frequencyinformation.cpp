#include <reportgenerator/reportbase/frequencyinformation.h>

#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>

namespace REPORTGENERATOR {

struct FrequencyInformation::Schema
{
    static constexpr Name NAME = REPORTBASE_NAME("FrequencyInformation");
    static constexpr auto FREQUENCY =
        ElementField(&FrequencyInformation::m_frequency, REPORTBASE_NAME("Frequency"));
    static constexpr auto RANGE =
        ElementField(&FrequencyInformation::m_range, REPORTBASE_NAME("FrequencyRange"));
    static constexpr auto FIELDS = std::make_tuple(FREQUENCY, RANGE);
};

FrequencyInformation::FrequencyInformation() : FrequencyHolder(IdentityNamed<Schema::NAME>())
{
    InitNumbers<Schema>(*this);
}

FrequencyInformation::FrequencyInformation(const FrequencyInformation& other) = default;

FrequencyInformation& FrequencyInformation::operator=(const FrequencyInformation& other) = default;

FrequencyInformation::~FrequencyInformation() = default;

bool FrequencyInformation::operator==(const FrequencyInformation& other) const
{
    return AreValuesEqual(*this, other, Schema::FIELDS);
}

bool FrequencyInformation::operator!=(const FrequencyInformation& other) const
{
    return !(*this == other);
}

const FrequencyRangeOld& FrequencyInformation::GetFrequencyRange() const
{
    return m_range;
}

FrequencyRangeOld& FrequencyInformation::GetFrequencyRange()
{
    return m_range;
}

void FrequencyInformation::SetFrequencyRange(const FrequencyRangeOld& range)
{
    m_range = range;
}

bool FrequencyInformation::AnyData() const
{
    return IsAnyFieldSet(*this, Schema::FIELDS);
}

bool FrequencyInformation::HasData() const
{
    return m_frequency.AnyData() != m_range.AnyData() && (m_frequency.HasData() || m_range.HasData());
}

void FrequencyInformation::Reset()
{
    UnsetFields(*this, Schema::FIELDS);
}

void FrequencyInformation::Check() const
{
    if (m_frequency.AnyData() == m_range.AnyData())
        throw RGException(
            messages::PleaseSetEither(GetObjectName(), FrequencyName(), m_range.GetObjectName()));
    if (m_frequency.AnyData())
        m_frequency.Check();
    else
        m_range.Check();
}

void FrequencyInformation::GetXml(QXmlStreamWriter& writer) const
{
    if (m_frequency.HasData())
        WritePlainObject(writer, *this, std::make_tuple(Schema::FREQUENCY));
    else
        WritePlainObject(writer, *this, std::make_tuple(Schema::RANGE));
}

void FrequencyInformation::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    ReadPlainElement(*this, reader, Schema::FIELDS);
}

} // namespace REPORTGENERATOR
