#include <reportcore/inspect/xmlinspector.h>

#include <reportcore/form.h>
#include <reportcore/inspect/sourcetext.h>

#include <reportgenerator/reflection/reportfields.h>

#include <utility>

namespace ReportCore {

using REPORTGENERATOR::Place;
using Kind = XmlEvent::Kind;

namespace {

const FieldPath NO_PATH;

} // namespace

XmlInspector::XmlInspector(const QByteArray& bytes, const QString& text, Visitor visit, Extent extent)
    : m_visit(std::move(visit)), m_text(text), m_extent(extent), m_reader(ForXmlReader(bytes))
{
}

void XmlInspector::Run()
{
    while (!m_reader.atEnd() && !(m_isBehindReport && m_extent == Extent::FirstReport)) {
        m_before = EndOfToken();
        switch (m_reader.readNext()) {
        case QXmlStreamReader::DTD:
            m_visit(EventOf(Kind::DocumentType, m_before));
            break;
        case QXmlStreamReader::StartElement:
            Start();
            break;
        case QXmlStreamReader::EndElement:
            End();
            break;
        case QXmlStreamReader::Characters:
            TakeCharacters();
            break;
        case QXmlStreamReader::EntityReference:
            TakeEntity();
            break;
        default:
            break;
        }
    }
    BreakOff();
}

/// The reader has looked at the character behind a text, and counts it.
qint64 XmlInspector::EndOfToken() const
{
    const qint64 end = m_reader.characterOffset();
    const bool isTooFar = m_reader.isCharacters() && end > 0 && end <= m_text.size() &&
                          m_text.at(static_cast<int>(end - 1)) == QLatin1Char('<');
    return isTooFar ? end - 1 : end;
}

/// Of the token that the reader stands behind.
XmlEvent XmlInspector::EventOf(Kind kind, qint64 begin) const
{
    XmlEvent event;
    event.kind = kind;
    event.begin = begin;
    event.end = m_reader.characterOffset();
    event.depth = static_cast<int>(m_elements.size());
    event.element = m_elements.empty() ? nullptr : &m_elements.back();
    event.path = m_elements.empty() ? &NO_PATH : &m_elements.back().path;
    event.place = begin;
    event.name = m_reader.name().toString();
    if (kind == Kind::DocumentType || kind == Kind::Characters)
        event.value = m_reader.text().toString();
    return event;
}

// --- Elements

void XmlInspector::Start()
{
    const QString name = m_reader.name().toString();
    if (m_inAnother > 0)
        ++m_inAnother;
    else if (m_elements.empty())
        StartOutside(name);
    else
        StartElement(m_elements.back(), name);
}

void XmlInspector::StartOutside(const QString& name)
{
    const qint64 begin = sourcetext::StartOfTag(m_text, m_reader.characterOffset());
    if (name != ReportInfo().ObjectName()) {
        m_visit(EventOf(Kind::Surrounding, begin));
    } else if (m_hasReport) {
        m_visit(EventOf(Kind::AnotherReport, begin));
        m_inAnother = 1;
    } else {
        m_hasReport = true;
        Open({XmlElements::Report()});
    }
}

void XmlInspector::StartElement(const Element& parent, const QString& name)
{
    Element element = {m_known.Within(parent, name)};
    if (element.IsKnown()) {
        Open(std::move(element));
        return;
    }
    XmlEvent event = EventOf(Kind::UnknownTag, sourcetext::StartOfTag(m_text, m_reader.characterOffset()));
    if (!parent.IsKnown())
        event.path = &NO_PATH;
    event.role = Event::Role::Unknown;
    event.readTo = event.end;
    m_visit(event);
    // What stands in it is about the object around it.
    if (parent.object)
        element.path = parent.path;
    m_elements.push_back(std::move(element));
}

void XmlInspector::Open(Element element)
{
    const qint64 end = m_reader.characterOffset();
    element.begin = sourcetext::StartOfTag(m_text, end);
    element.contentBegin = end;
    element.valueBegin = end;
    m_elements.push_back(std::move(element));
    m_visit(EventOf(Kind::StartTag, m_elements.back().begin));
    TakeAttributes(m_elements.back());
}

void XmlInspector::TakeAttributes(const Element& element)
{
    const QXmlStreamAttributes attributes = m_reader.attributes();
    if (element.object)
        m_known.TakeVersion(element, attributes);
    for (const QXmlStreamAttribute& attribute : attributes)
        TakeAttribute(element, attribute);
}

void XmlInspector::TakeAttribute(const Element& element, const QXmlStreamAttribute& attribute)
{
    const QString name = attribute.name().toString();
    const Field* const field = element.object ? element.object->FindElement(name, Place::Attribute) : nullptr;
    XmlEvent event = EventOf(Kind::UnknownAttribute, element.begin);
    event.name = name;
    event.value = QLatin1String("") + attribute.value().toString();
    if (!field) {
        m_visit(event);
        return;
    }
    const sourcetext::Attribute found =
        sourcetext::FindAttribute(m_text, element.begin, m_reader.characterOffset(), name);
    FieldPath path = element.path;
    path.Enter(*field);
    event.kind = Kind::Attribute;
    event.begin = found.begin;
    event.end = found.end;
    event.path = &path;
    event.role = Event::Role::Value;
    event.place = found.valueBegin;
    event.contentBegin = found.valueBegin;
    m_visit(event);
}

void XmlInspector::End()
{
    if (m_inAnother > 0) {
        if (--m_inAnother == 0)
            m_visit(EventOf(Kind::AnotherReportEnd, m_before));
        return;
    }
    if (m_elements.empty()) {
        m_visit(EventOf(Kind::SurroundingEnd, m_before));
        return;
    }
    if (m_elements.back().IsKnown())
        EndKnown(m_elements.back());
    else
        m_visit(EventOf(Kind::UnknownEnd, m_before));
    m_elements.pop_back();
    m_isBehindReport = m_elements.empty();
}

void XmlInspector::EndKnown(const Element& element)
{
    XmlEvent event = EventOf(Kind::Text, element.valueBegin);
    event.end = m_before;
    event.role = Event::Role::Value;
    event.place = element.valueBegin;
    event.contentBegin = element.contentBegin;
    event.value = QLatin1String("") + element.text;
    if (element.object) {
        for (const auto& field : element.object->All()) {
            if (field->Facts().place != Place::Text || field->HasObjects())
                continue;
            FieldPath path = element.path;
            path.Enter(*field);
            event.path = &path;
            m_visit(event);
        }
        event.path = &element.path;
        event.role = Event::Role::Object;
        event.place = element.begin;
        event.value = QString();
    }
    event.kind = Kind::EndTag;
    event.begin = m_before;
    event.end = m_reader.characterOffset();
    event.readTo = event.end;
    m_visit(event);
}

/// Tells of the objects that have begun and not ended, the innermost one first.
void XmlInspector::BreakOff()
{
    for (; !m_elements.empty(); m_elements.pop_back()) {
        if (!m_elements.back().object)
            continue;
        XmlEvent event = EventOf(Kind::Open, m_text.size());
        event.end = event.begin;
        event.role = Event::Role::Object;
        event.place = m_elements.back().begin;
        m_visit(event);
    }
}

// --- What stands between tags

void XmlInspector::TakeCharacters()
{
    if (m_elements.empty())
        return;
    XmlEvent event = EventOf(Kind::Characters, m_before);
    event.isBlank = m_reader.isWhitespace();
    // Of several pieces the last one counts.
    m_elements.back().text = event.value;
    m_elements.back().valueBegin = m_before;
    m_visit(event);
}

void XmlInspector::TakeEntity()
{
    constexpr int AMPERSAND_AND_SEMICOLON = 2;
    m_visit(
        EventOf(Kind::Entity, m_reader.characterOffset() - m_reader.name().size() - AMPERSAND_AND_SEMICOLON));
}

} // namespace ReportCore
