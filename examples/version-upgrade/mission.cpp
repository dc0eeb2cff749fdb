#include "mission.h"

#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

namespace {

const QLatin1String VERSION_ATTRIBUTE("Version");
const QLatin1String TITLE("Title");
const QLatin1String FREQUENCY_KILOHERTZ("FrequencyKilohertz");
const QLatin1String FREQUENCY_HERTZ("FrequencyHertz");
const QLatin1String PRIORITY("Priority");

QString FrequencyText(double frequency)
{
    return QString::number(frequency, 'f', 2);
}

} // namespace

Mission::Mission(const QString& version) : m_version(version)
{
    IRGObject::SetObjectName(QStringLiteral("Mission"));
}

QString Mission::GetTitle() const
{
    return m_title;
}

void Mission::SetTitle(const QString& title)
{
    m_title = title;
}

void Mission::Reset()
{
    m_title.clear();
}

void Mission::Check() const
{
    if (!HasData())
        throw RGException(GetObjectName() + QStringLiteral(": Please set all values."));
}

void Mission::GetXml(QXmlStreamWriter& writer) const
{
    if (!HasData())
        return;
    writer.writeStartElement(GetObjectName());
    writer.writeAttribute(VERSION_ATTRIBUTE, GetVersion());
    writer.writeTextElement(TITLE, m_title);
    WriteChildren(writer);
    writer.writeEndElement();
}

const QString& Mission::GetVersion() const
{
    return m_version;
}

void Mission::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    const QString name = reader.name().toString();
    const QString text = GetTextValue(reader);
    if (name == TITLE)
        m_title = text;
    else if (!ReadChild(name, text))
        throw RGException(QStringLiteral("Unknown Tag '%1' in '%2'.").arg(name, GetObjectName()));
}

Mission10::Mission10() : Mission(QStringLiteral("1.0"))
{
    IRGObject::SetInvalid(m_frequency);
}

double Mission10::GetFrequencyKilohertz() const
{
    return m_frequency;
}

void Mission10::SetFrequencyKilohertz(double frequency)
{
    m_frequency = frequency;
}

bool Mission10::HasData() const
{
    return IsValid(GetTitle()) && IsValid(m_frequency);
}

void Mission10::Reset()
{
    Mission::Reset();
    SetInvalid(m_frequency);
}

bool Mission10::ReadChild(const QString& name, const QString& text)
{
    if (name != FREQUENCY_KILOHERTZ)
        return false;
    m_frequency = text.toDouble();
    return true;
}

void Mission10::WriteChildren(QXmlStreamWriter& writer) const
{
    writer.writeTextElement(FREQUENCY_KILOHERTZ, FrequencyText(m_frequency));
}

Mission20::Mission20() : Mission(QStringLiteral("2.0"))
{
    IRGObject::SetInvalid(m_frequency);
    IRGObject::SetInvalid(m_priority);
}

double Mission20::GetFrequencyHertz() const
{
    return m_frequency;
}

void Mission20::SetFrequencyHertz(double frequency)
{
    m_frequency = frequency;
}

int Mission20::GetPriority() const
{
    return m_priority;
}

void Mission20::SetPriority(int priority)
{
    m_priority = priority;
}

bool Mission20::HasData() const
{
    return IsValid(GetTitle()) && IsValid(m_frequency) && IsValid(m_priority);
}

void Mission20::Reset()
{
    Mission::Reset();
    SetInvalid(m_frequency);
    SetInvalid(m_priority);
}

bool Mission20::ReadChild(const QString& name, const QString& text)
{
    if (name == FREQUENCY_HERTZ)
        m_frequency = text.toDouble();
    else if (name == PRIORITY)
        m_priority = text.toInt();
    else
        return false;
    return true;
}

void Mission20::WriteChildren(QXmlStreamWriter& writer) const
{
    writer.writeTextElement(FREQUENCY_HERTZ, FrequencyText(m_frequency));
    writer.writeTextElement(PRIORITY, QString::number(m_priority));
}
