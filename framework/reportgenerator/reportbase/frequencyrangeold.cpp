#include <reportgenerator/reportbase/frequencyrangeold.h>

#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>

namespace REPORTGENERATOR {

struct FrequencyRangeOld::Schema
{
    static constexpr Name NAME = REPORTBASE_NAME("FrequencyRange");
    static constexpr auto START =
        ElementField(&FrequencyRangeOld::m_startFrequency, REPORTBASE_NAME("StartFrequency")).Mandatory();
    static constexpr auto STOP =
        ElementField(&FrequencyRangeOld::m_stopFrequency, REPORTBASE_NAME("StopFrequency")).Mandatory();
    static constexpr auto FIELDS = std::make_tuple(START, STOP);
};

FrequencyRangeOld::FrequencyRangeOld() : IRGObject(IdentityNamed<Schema::NAME>())
{
    InitNumbers<Schema>(*this);
}

FrequencyRangeOld::FrequencyRangeOld(const FrequencyRangeOld& other) = default;

FrequencyRangeOld& FrequencyRangeOld::operator=(const FrequencyRangeOld& other) = default;

FrequencyRangeOld::~FrequencyRangeOld() = default;

bool FrequencyRangeOld::operator==(const FrequencyRangeOld& other) const
{
    return AreValuesEqual(*this, other, Schema::FIELDS);
}

bool FrequencyRangeOld::operator!=(const FrequencyRangeOld& other) const
{
    return !(*this == other);
}

double FrequencyRangeOld::GetStartFrequency() const
{
    return m_startFrequency;
}

void FrequencyRangeOld::SetStartFrequency(double frequency)
{
    m_startFrequency = frequency;
}

double FrequencyRangeOld::GetStopFrequency() const
{
    return m_stopFrequency;
}

void FrequencyRangeOld::SetStopFrequency(double frequency)
{
    m_stopFrequency = frequency;
}

bool FrequencyRangeOld::AnyData() const
{
    return IsAnyFieldSet(*this, Schema::FIELDS);
}

bool FrequencyRangeOld::HasData() const
{
    return AreMandatoryFieldsSet(*this, Schema::FIELDS);
}

void FrequencyRangeOld::Reset()
{
    UnsetFields(*this, Schema::FIELDS);
}

void FrequencyRangeOld::Check() const
{
    // The message has no mark at its end, unlike those of the other classes.
    RequireFields(*this, Schema::FIELDS, messages::PleaseSetWithoutMark);
}

void FrequencyRangeOld::GetXml(QXmlStreamWriter& writer) const
{
    WritePlainObject(writer, *this, Schema::FIELDS);
}

void FrequencyRangeOld::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    ReadPlainElement(*this, reader, Schema::FIELDS);
}

} // namespace REPORTGENERATOR
