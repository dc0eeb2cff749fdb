#include <reportgenerator/reportbase/channelspacing.h>

#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>

#include <algorithm>

namespace REPORTGENERATOR {

struct ChannelSpacing::Schema
{
    static constexpr Name NAME = REPORTBASE_NAME("ChannelSpacing");
    static constexpr auto VISUAL =
        ElementField(&ChannelSpacing::m_visual, REPORTBASE_NAME("Visual"), NO_DATA);
    // The files spell it with a small d, and so does the message that asks for it.
    static constexpr auto SAME_DISTANCE =
        ElementField(&ChannelSpacing::m_sameDistance, REPORTBASE_NAME("Samedistance")).Mandatory();
    static constexpr auto FIELDS = std::make_tuple(VISUAL, SAME_DISTANCE);

    static constexpr Name VALUE = REPORTBASE_NAME("Value");
};

ChannelSpacing::ChannelSpacing() : IRGObject(IdentityNamed<Schema::NAME>())
{
    InitNumbers<Schema>(*this);
}

ChannelSpacing::ChannelSpacing(const ChannelSpacing& other) = default;

ChannelSpacing& ChannelSpacing::operator=(const ChannelSpacing& other) = default;

ChannelSpacing::~ChannelSpacing() = default;

bool ChannelSpacing::operator==(const ChannelSpacing& other) const
{
    // "false" and no text at all are the same, which is part of the interface. The spacings one by one:
    // vectors that share their data would otherwise be equal in spite of a NaN.
    return m_visual == other.m_visual && IsSameDistance() == other.IsSameDistance() &&
           std::equal(m_values.cbegin(), m_values.cend(), other.m_values.cbegin(), other.m_values.cend());
}

bool ChannelSpacing::operator!=(const ChannelSpacing& other) const
{
    return !(*this == other);
}

const QString& ChannelSpacing::GetVisual() const
{
    return m_visual;
}

void ChannelSpacing::SetVisual(const QString& visual)
{
    m_visual = visual;
}

bool ChannelSpacing::IsSameDistance() const
{
    return m_sameDistance == ToText(true, {});
}

void ChannelSpacing::SetSameDistance(bool sameDistance)
{
    m_sameDistance = ToText(sameDistance, {});
}

bool ChannelSpacing::IsValidSameDistance() const
{
    return Schema::SAME_DISTANCE.IsSetIn(*this);
}

const QVector<double>& ChannelSpacing::GetValues() const
{
    return m_values;
}

void ChannelSpacing::SetValues(const QVector<double>& values)
{
    m_values = values;
}

bool ChannelSpacing::AnyData() const
{
    return IsAnyFieldSet(*this, Schema::FIELDS) || !m_values.isEmpty();
}

bool ChannelSpacing::HasData() const
{
    return AreMandatoryFieldsSet(*this, Schema::FIELDS) && !m_values.isEmpty();
}

void ChannelSpacing::Reset()
{
    UnsetFields(*this, Schema::FIELDS);
    m_values.clear();
}

void ChannelSpacing::Check() const
{
    if (!AnyData())
        return;
    RequireFields(*this, Schema::FIELDS, messages::PleaseSet);
    // The message names the object twice.
    if (m_values.isEmpty())
        throw RGException(messages::PleaseSet(GetObjectName(), GetObjectName()));
}

void ChannelSpacing::GetXml(QXmlStreamWriter& writer) const
{
    if (!HasData())
        return;
    writer.writeStartElement(GetObjectName());
    WritePlainFields(writer, *this, Schema::FIELDS);
    // Held, since the writer's device may change them.
    const QVector<double> values = m_values;
    for (const double value : values)
        writer.writeTextElement(Schema::VALUE.Text(), ToText(value, {}));
    writer.writeEndElement();
}

void ChannelSpacing::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    if (reader.name() == Schema::VALUE.Latin1())
        m_values.append(numbers::FromText(GetTextValue(reader)));
    else
        ReadPlainElement(*this, reader, Schema::FIELDS);
}

} // namespace REPORTGENERATOR
