#include <reportgenerator/reportbase/scanparameter.h>

#include <reportgenerator/reportbase/codec/wireformat.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>
#include <reportgenerator/reportbase/records/schemarules.h>

namespace REPORTGENERATOR {

struct ScanParameter::Schema
{
    static const ObjectIdentity& Identity()
    {
        static const ObjectIdentity identity = IdentityNamed(QStringLiteral("ScanParameter"));
        return identity;
    }

    static constexpr auto STEP =
        ElementField(&ScanParameter::m_stepFrequency, REPORTBASE_NAME("FrequencyStep")).Mandatory();
    static constexpr auto DWELL = ElementField(&ScanParameter::m_dwellTime, REPORTBASE_NAME("DwellTime"));
    static constexpr auto HOLD = ElementField(&ScanParameter::m_holdTime, REPORTBASE_NAME("HoldTime"));
    static constexpr auto FIELDS = std::make_tuple(STEP, DWELL, HOLD);
    static_assert(schema::AreFieldsDistinct(FIELDS), "two fields have the same name or member");
};

ScanParameter::ScanParameter()
    : IRGObject(Schema::Identity()), m_version(QStringLiteral("1.0")), m_stepFrequency(INVALID_DOUBLE),
      m_dwellTime(INVALID_DOUBLE), m_holdTime(INVALID_DOUBLE)
{
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
    // The hold time doesn't count.
    return m_range.AnyData() || Schema::STEP.IsSetIn(*this) || Schema::DWELL.IsSetIn(*this);
}

bool ScanParameter::HasData() const
{
    return m_range.HasData() && AreMandatoryFieldsSet(*this, Schema::FIELDS);
}

void ScanParameter::Reset()
{
    m_range.Reset();
    UnsetFields(*this, Schema::FIELDS);
}

void ScanParameter::Check() const
{
    if (!AnyData())
        return;
    m_range.Check();
    // The two capitals are part of the message.
    RequireFields(*this, Schema::FIELDS, messages::PLeaseSet);
}

void ScanParameter::GetXml(QXmlStreamWriter& writer) const
{
    if (!HasData())
        return;
    writer.writeStartElement(GetObjectName());
    writer.writeAttribute(wire::VERSION_ATTRIBUTE.Text(), m_version);
    m_range.GetXml(writer);
    WritePlainFields(writer, *this, Schema::FIELDS);
    writer.writeEndElement();
}

const QString& ScanParameter::GetVersion() const
{
    return m_version;
}

void ScanParameter::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    if (reader.name() == m_range.GetObjectName())
        m_range.ProcessXml(reader);
    else if (!ReadPlainElement(*this, reader, Schema::FIELDS))
        ThrowUnknownTag(*this, reader);
}

} // namespace REPORTGENERATOR
