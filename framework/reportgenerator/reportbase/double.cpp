#include <reportgenerator/reportbase/double.h>

#include <reportgenerator/reportbase/codec/invalidvalues.h>
#include <reportgenerator/reportbase/codec/numbers.h>
#include <reportgenerator/reportbase/codec/xmltools.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

namespace REPORTGENERATOR {

namespace {

constexpr Name MINIMUM = REPORTBASE_NAME("Minimum");
constexpr Name MAXIMUM = REPORTBASE_NAME("Maximum");
constexpr Name DEFAULT = REPORTBASE_NAME("Default");
constexpr Name UNIT = REPORTBASE_NAME("Unit");
constexpr Name DOUBLE_VALUE = REPORTBASE_NAME("DoubleValue");

constexpr char FORMAT = 'f';
constexpr int PRECISION = 6;

} // namespace

Double::Double()
    : m_minimum(INVALID_DOUBLE), m_maximum(INVALID_DOUBLE), m_default(INVALID_DOUBLE),
      m_value(INVALID_DOUBLE), m_format(FORMAT), m_precision(PRECISION),
      m_defaultInvalidValue(INVALID_DOUBLE), m_version(QStringLiteral("1.0"))
{
}

Double::Double(const Double& other) = default;

Double& Double::operator=(const Double& other) = default;

Double::~Double() = default;

bool Double::operator==(const Double& other) const
{
    return m_minimum == other.m_minimum && m_maximum == other.m_maximum && m_default == other.m_default &&
           m_value == other.m_value && m_unit == other.m_unit;
}

bool Double::operator!=(const Double& other) const
{
    return !(*this == other);
}

double Double::GetValue() const
{
    return m_value;
}

void Double::SetValue(double value)
{
    m_value = value;
}

double Double::GetMinimum() const
{
    return m_minimum;
}

void Double::SetMinimum(double minimum)
{
    m_minimum = minimum;
}

double Double::GetMaximum() const
{
    return m_maximum;
}

void Double::SetMaximum(double maximum)
{
    m_maximum = maximum;
}

double Double::GetDefault() const
{
    return m_default;
}

void Double::SetDefault(double value)
{
    m_default = value;
}

QString Double::GetUnit() const
{
    return m_unit;
}

void Double::SetUnit(const QString& unit)
{
    m_unit = unit;
}

const QString& Double::GetName() const
{
    return GetObjectName();
}

void Double::SetName(const QString& name)
{
    SetObjectName(name);
}

double Double::GetDefaultInvalidValue() const
{
    return m_defaultInvalidValue;
}

void Double::SetDefaultInvalidValue(double value)
{
    m_defaultInvalidValue = value;
    Reset();
}

void Double::SetFormat(char /*format*/, int /*precision*/)
{
    // The format is part of the form; what callers ask for is not looked at.
}

char Double::GetFormat() const
{
    return m_format;
}

int Double::GetPrecision() const
{
    return m_precision;
}

QString Double::GetFormattedString(double value) const
{
    return IsValid(value) ? numbers::ToText(value, m_format, m_precision) : QString();
}

QString Double::GetValueString() const
{
    return GetFormattedString(m_value);
}

QString Double::GetMinimumString() const
{
    return GetFormattedString(m_minimum);
}

QString Double::GetMaximumString() const
{
    return GetFormattedString(m_maximum);
}

bool Double::AnyData() const
{
    return IsValid(m_minimum) || IsValid(m_maximum) || IsValid(m_default) || IsValid(m_value) ||
           !m_unit.isEmpty();
}

bool Double::HasData() const
{
    return IsValid(m_value);
}

void Double::Reset()
{
    m_minimum = m_defaultInvalidValue;
    m_maximum = m_defaultInvalidValue;
    m_default = m_defaultInvalidValue;
    m_value = m_defaultInvalidValue;
    m_unit.clear();
}

void Double::Check() const
{
    if (!HasData())
        throw RGException(messages::DoubleNotSet(GetObjectName()));
}

bool Double::IsValid(double value) const
{
    return value != m_defaultInvalidValue;
}

void Double::GetXml(QXmlStreamWriter& writer) const
{
    Check();
    writer.writeStartElement(GetObjectName());
    const auto writeAttribute = [&writer](const Name& name, const QString& text) {
        if (!text.isEmpty())
            writer.writeAttribute(name.Text(), text);
    };
    writeAttribute(MINIMUM, GetMinimumString());
    writeAttribute(MAXIMUM, GetMaximumString());
    writeAttribute(DEFAULT, GetFormattedString(m_default));
    writeAttribute(UNIT, m_unit);
    writer.writeTextElement(DOUBLE_VALUE.Text(), GetValueString());
    writer.writeEndElement();
}

void Double::ProcessXml(QXmlStreamReader& reader)
{
    m_version = xmltools::VersionAttribute(reader);
    const QXmlStreamAttributes attributes = reader.attributes();
    const auto readNumber = [&attributes](const Name& name, double& number) {
        if (attributes.hasAttribute(name.Latin1()))
            number = numbers::FromText(attributes.value(name.Latin1()).toString());
    };
    readNumber(MINIMUM, m_minimum);
    readNumber(MAXIMUM, m_maximum);
    readNumber(DEFAULT, m_default);
    readNumber(DEFAULT, m_value);
    if (attributes.hasAttribute(UNIT.Latin1()))
        m_unit = attributes.value(UNIT.Latin1()).toString();
    IRGObject::ProcessXml(reader);
}

void Double::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    // Another child is left alone; its end element then ends the object's own reading.
    if (reader.name() == DOUBLE_VALUE.Latin1())
        m_value = numbers::FromText(GetTextValue(reader));
}

} // namespace REPORTGENERATOR
