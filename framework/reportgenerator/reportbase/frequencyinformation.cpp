#include <reportgenerator/reportbase/frequencyinformation.h>

#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>

namespace REPORTGENERATOR {

namespace {

const ObjectIdentity& Identity()
{
    static const ObjectIdentity identity = IdentityNamed(QStringLiteral("FrequencyInformation"));
    return identity;
}

} // namespace

FrequencyInformation::FrequencyInformation() : FrequencyHolder(Identity()) {}

FrequencyInformation::FrequencyInformation(const FrequencyInformation& other) = default;

FrequencyInformation& FrequencyInformation::operator=(const FrequencyInformation& other) = default;

FrequencyInformation::~FrequencyInformation() = default;

bool FrequencyInformation::operator==(const FrequencyInformation& other) const
{
    return GetFrequency() == other.GetFrequency() && GetFrequencyMin() == other.GetFrequencyMin() &&
           GetFrequencyMax() == other.GetFrequencyMax() && m_range == other.m_range;
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
    return m_frequency.AnyData() || m_range.AnyData();
}

bool FrequencyInformation::HasData() const
{
    if (m_frequency.AnyData() && m_range.AnyData())
        return false;
    return m_frequency.HasData() || m_range.HasData();
}

void FrequencyInformation::Reset()
{
    m_frequency.Reset();
    m_range.Reset();
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
    if (!HasData())
        return;
    writer.writeStartElement(GetObjectName());
    if (m_frequency.HasData())
        m_frequency.GetXml(writer);
    else
        m_range.GetXml(writer);
    writer.writeEndElement();
}

void FrequencyInformation::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    // The range goes by the name that it was assigned with.
    if (reader.name() == FrequencyName())
        m_frequency.ReadValuesFromXml(reader);
    else if (reader.name() == m_range.GetObjectName())
        m_range.ProcessXml(reader);
    else
        ThrowUnknownTag(*this, reader);
}

} // namespace REPORTGENERATOR
