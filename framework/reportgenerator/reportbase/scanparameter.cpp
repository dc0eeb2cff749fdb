#include <reportgenerator/reportbase/scanparameter.h>

#include <reportgenerator/reportbase/codec/wireformat.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>

namespace REPORTGENERATOR {

struct ScanParameter::Schema
{
    static constexpr Name NAME = REPORTBASE_NAME("ScanParameter");
    static constexpr auto VERSION =
        AttributeField(&ScanParameter::m_version, wire::VERSION_ATTRIBUTE).Mandatory();
    static constexpr auto RANGE = ElementField(&ScanParameter::m_range, REPORTBASE_NAME("FrequencyRange"));
    static constexpr auto STEP =
        ElementField(&ScanParameter::m_stepFrequency, REPORTBASE_NAME("FrequencyStep")).Mandatory();
    static constexpr auto DWELL = ElementField(&ScanParameter::m_dwellTime, REPORTBASE_NAME("DwellTime"));
    static constexpr auto HOLD =
        ElementField(&ScanParameter::m_holdTime, REPORTBASE_NAME("HoldTime"), NO_DATA);
    static constexpr auto FIELDS = std::make_tuple(RANGE, STEP, DWELL, HOLD);
    static constexpr auto WRITTEN = std::tuple_cat(std::make_tuple(VERSION), FIELDS);
};

ScanParameter::ScanParameter() : IRGObject(IdentityNamed<Schema::NAME>()), m_version(QStringLiteral("1.0"))
{
    InitNumbers<Schema>(*this);
}

ScanParameter::ScanParameter(const ScanParameter& other) = default;

ScanParameter& ScanParameter::operator=(const ScanParameter& other) = default;

ScanParameter::~ScanParameter() = default;

const FrequencyRangeOld& ScanParameter::GetFrequencyRange() const
{
    return m_range;
}

FrequencyRangeOld& ScanParameter::GetFrequencyRange()
{
    return m_range;
}

void ScanParameter::SetFrequencyRange(const FrequencyRangeOld& range)
{
    m_range = range;
}

double ScanParameter::GetStepFrequency() const
{
    return m_stepFrequency;
}

void ScanParameter::SetStepFrequency(double frequency)
{
    m_stepFrequency = frequency;
}

double ScanParameter::GetDwellTime() const
{
    return m_dwellTime;
}

void ScanParameter::SetDwellTime(double time)
{
    m_dwellTime = time;
}

double ScanParameter::GetHoldTime() const
{
    return m_holdTime;
}

void ScanParameter::SetHoldTime(double time)
{
    m_holdTime = time;
}

bool ScanParameter::AnyData() const
{
    return IsAnyFieldSet(*this, Schema::FIELDS);
}

bool ScanParameter::HasData() const
{
    return AreMandatoryFieldsSet(*this, Schema::FIELDS);
}

void ScanParameter::Reset()
{
    UnsetFields(*this, Schema::FIELDS);
}

void ScanParameter::Check() const
{
    // The two capitals are part of the message.
    if (AnyData())
        RequireFields(*this, Schema::FIELDS, messages::PLeaseSet);
}

void ScanParameter::GetXml(QXmlStreamWriter& writer) const
{
    WritePlainObject(writer, *this, Schema::WRITTEN);
}

const QString& ScanParameter::GetVersion() const
{
    return m_version;
}

void ScanParameter::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    ReadPlainElement(*this, reader, Schema::FIELDS);
}

} // namespace REPORTGENERATOR
