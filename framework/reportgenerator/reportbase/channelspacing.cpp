#include <reportgenerator/reportbase/channelspacing.h>

#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/records/plainfield.h>
#include <reportgenerator/reportbase/records/schemarules.h>

#include <algorithm>

namespace REPORTGENERATOR {

struct ChannelSpacing::Schema
{
    static const ObjectIdentity& Identity()
    {
        static const ObjectIdentity identity = IdentityNamed(QStringLiteral("ChannelSpacing"));
        return identity;
    }

    static constexpr auto VISUAL = ElementField(&ChannelSpacing::m_visual, REPORTBASE_NAME("Visual"));
    // The files spell it with a small d, and so does the message that asks for it.
    static constexpr auto SAME_DISTANCE =
        ElementField(&ChannelSpacing::m_sameDistance, REPORTBASE_NAME("Samedistance")).Mandatory();
    static constexpr auto FIELDS = std::make_tuple(VISUAL, SAME_DISTANCE);
    static_assert(schema::AreFieldsDistinct(FIELDS), "two fields have the same name or member");

    static constexpr Name VALUE = REPORTBASE_NAME("Value");
    static constexpr NumberFormat VALUE_FORMAT = {};
};

namespace {

QString TrueText()
{
    return QStringLiteral("true");
}

QString FalseText()
{
    return QStringLiteral("false");
}

} // namespace

ChannelSpacing::ChannelSpacing() : IRGObject(Schema::Identity()) {}

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
    return m_sameDistance == TrueText();
}

void ChannelSpacing::SetSameDistance(bool sameDistance)
{
    m_sameDistance = sameDistance ? TrueText() : FalseText();
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
    // The display text doesn't count.
    return IsValidSameDistance() || !m_values.isEmpty();
}

bool ChannelSpacing::HasData() const
{
    return IsValidSameDistance() && !m_values.isEmpty();
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
        writer.writeTextElement(Schema::VALUE.Text(), numbers::ToFixedText(value, Schema::VALUE_FORMAT));
    writer.writeEndElement();
}

void ChannelSpacing::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    if (reader.name() == Schema::VALUE.Latin1())
        m_values.append(numbers::FromText(GetTextValue(reader)));
    else if (!ReadPlainElement(*this, reader, Schema::FIELDS))
        ThrowUnknownTag(*this, reader);
}

} // namespace REPORTGENERATOR
