#include <reportcore/inspect/xmlinspector.h>

#include <reportgenerator/reflection/reportfields.h>

#include <algorithm>
#include <utility>

namespace ReportCore {

using REPORTGENERATOR::Place;
using Kind = Event::Kind;
using Role = Event::Role;

namespace {

const FieldPath NO_PATH;

bool IsText(const Field& field)
{
    return field.Facts().place == Place::Text && !field.HasObjects();
}

/// Whether a field of the object is the text of its element.
bool HoldsText(const ObjectInfo& object)
{
    return std::any_of(object.All().begin(), object.All().end(),
                       [](const auto& field) { return IsText(*field); });
}

} // namespace

XmlInspector::XmlInspector(const QByteArray& bytes, Visitor visit, Extent extent)
    : Inspector(std::move(visit)), m_source(bytes), m_extent(extent), m_reader(ForXmlReader(bytes))
{
}

void XmlInspector::Run()
{
    while (!m_reader.atEnd() && !(m_isBehindReport && m_extent == Extent::FirstReport)) {
        m_before = EndOfToken();
        switch (m_reader.readNext()) {
        case QXmlStreamReader::DTD:
            TakeDocumentType();
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
    const bool isTooFar = m_reader.isCharacters() && end > 0 && end <= Text().size() &&
                          Text().at(static_cast<int>(end - 1)) == QLatin1Char('<');
    return isTooFar ? end - 1 : end;
}

qint64 XmlInspector::StartOfTag() const
{
    return sourcetext::StartOfTag(Text(), m_reader.characterOffset());
}

/// Of the token that the reader stands behind.
Event XmlInspector::EventOf(Kind kind, qint64 begin) const
{
    Event event;
    event.kind = kind;
    event.begin = begin;
    event.end = m_reader.characterOffset();
    event.depth = static_cast<int>(m_elements.size());
    event.isInReport = !m_elements.empty();
    event.isWithinUnknown = m_unknown > 0;
    event.path = event.isInReport ? &m_elements.back().path : &NO_PATH;
    event.object = event.isInReport ? m_elements.back().object : nullptr;
    event.name = m_reader.name().toString();
    event.place = begin;
    event.contentBegin = begin;
    return event;
}

/// A value stands between the event's place and the end. It is never null.
void XmlInspector::GiveValue(Event& event, const FieldPath& path, const QString& value, qint64 end) const
{
    event.path = &path;
    event.role = Role::Value;
    event.value = QLatin1String("") + value;
    if (path.Last().field->Kind() == FieldKind::Text)
        event.hasReturns = std::find(Text().cbegin() + event.place, Text().cbegin() + end,
                                     QLatin1Char('\r')) != Text().cbegin() + end;
}

// --- Start tags

void XmlInspector::Start()
{
    if (m_inAnother > 0)
        ++m_inAnother;
    else if (m_elements.empty())
        StartOutside();
    else
        StartWithin(m_elements.back());
}

void XmlInspector::StartOutside()
{
    const bool isReport = m_reader.name() == ReportInfo().ObjectName();
    if (isReport && !m_hasReport) {
        m_hasReport = true;
        Open({&ReportInfo(), FieldPath(), true});
        return;
    }
    Visit(EventOf(isReport ? Kind::AnotherReport : Kind::Surrounding, StartOfTag()));
    m_inAnother = isReport ? 1 : 0;
}

/// Tells elements apart by their names and by what stands around them, as the library does it.
void XmlInspector::StartWithin(const Element& parent)
{
    const Field* const field =
        parent.object ? parent.object->FindElement(m_reader.name().toString(), Place::Element) : nullptr;
    if (field) {
        Open(ElementOf(parent, *field));
        return;
    }
    Event event = EventOf(Kind::UnknownTag, StartOfTag());
    event.path = parent.isKnown ? &parent.path : &NO_PATH;
    event.role = Role::Unknown;
    event.readTo = event.end;
    Visit(event);
    Element unknown;
    // What stands in it is about the object around it.
    if (parent.object)
        unknown.path = parent.path;
    m_elements.push_back(std::move(unknown));
    ++m_unknown;
}

/// Of a list, the next item.
XmlInspector::Element XmlInspector::ElementOf(const Element& parent, const Field& field)
{
    Element element = {field.HasObjects() ? &field.Object() : nullptr, parent.path, true};
    element.path.Enter(field);
    if (field.Kind() == FieldKind::List)
        element.path.SetIndex(m_counts.Next(element.path));
    return element;
}

void XmlInspector::Open(Element element)
{
    const qint64 end = m_reader.characterOffset();
    element.begin = StartOfTag();
    element.contentBegin = end;
    element.valueBegin = end;
    m_elements.push_back(std::move(element));
    Event event = EventOf(Kind::StartTag, m_elements.back().begin);
    event.role = event.path->IsEmpty() || event.path->IsItem() ? Role::None : Role::Element;
    Visit(event);
    TakeAttributes(m_elements.back());
}

void XmlInspector::TakeAttributes(const Element& element)
{
    const QXmlStreamAttributes attributes = m_reader.attributes();
    if (element.object) {
        // By a version of the format, or without one, the object may have been emptied.
        for (const auto& field : element.object->All()) {
            if (field->Kind() == FieldKind::Version)
                m_counts.TakeVersion(element.path, *field,
                                     attributes.value(field->Facts().elementName).toString());
        }
    }
    for (const QXmlStreamAttribute& attribute : attributes)
        TakeAttribute(element, attribute);
}

void XmlInspector::TakeAttribute(const Element& element, const QXmlStreamAttribute& attribute)
{
    Event event = EventOf(Kind::UnknownAttribute, element.begin);
    event.name = attribute.name().toString();
    const Field* const field =
        element.object ? element.object->FindElement(event.name, Place::Attribute) : nullptr;
    if (!field) {
        Visit(event);
        return;
    }
    const sourcetext::Attribute found =
        sourcetext::FindAttribute(Text(), element.begin, event.end, event.name);
    event.kind = Kind::Attribute;
    event.begin = found.begin;
    event.end = found.end;
    event.place = found.valueBegin;
    event.contentBegin = found.valueBegin;
    FieldPath path = element.path;
    path.Enter(*field);
    GiveValue(event, path, attribute.value().toString(), found.end);
    Visit(event);
}

// --- End tags

void XmlInspector::End()
{
    if (m_inAnother > 0) {
        if (--m_inAnother == 0)
            Visit(EventOf(Kind::AnotherReportEnd, m_before));
        return;
    }
    if (m_elements.empty()) {
        Visit(EventOf(Kind::SurroundingEnd, m_before));
        return;
    }
    if (m_elements.back().isKnown) {
        EndKnown(m_elements.back());
    } else {
        Visit(EventOf(Kind::UnknownEnd, m_before));
        --m_unknown;
    }
    m_elements.pop_back();
    m_isBehindReport = m_elements.empty();
}

void XmlInspector::EndKnown(const Element& element)
{
    Event event = EventOf(Kind::EndTag, m_before);
    event.contentBegin = element.contentBegin;
    event.readTo = event.end;
    if (element.object) {
        for (const auto& field : element.object->All()) {
            if (IsText(*field))
                VisitText(element, *field);
        }
        event.role = Role::Object;
        event.place = element.begin;
    } else {
        event.place = element.valueBegin;
        GiveValue(event, element.path, element.text, m_before);
    }
    Visit(event);
}

void XmlInspector::VisitText(const Element& element, const Field& field)
{
    Event event = EventOf(Kind::Text, element.valueBegin);
    event.end = m_before;
    event.contentBegin = element.contentBegin;
    FieldPath path = element.path;
    path.Enter(field);
    GiveValue(event, path, element.text, m_before);
    Visit(event);
}

/// Tells of the objects that have begun and not ended, the innermost one first.
void XmlInspector::BreakOff()
{
    for (; !m_elements.empty(); m_elements.pop_back()) {
        if (!m_elements.back().object)
            continue;
        Event event = EventOf(Kind::Open, Text().size());
        event.end = event.begin;
        event.role = Role::Object;
        event.place = m_elements.back().begin;
        Visit(event);
    }
}

// --- What stands between tags

void XmlInspector::TakeDocumentType()
{
    Event event = EventOf(Kind::DocumentType, m_before);
    event.value = m_reader.text().toString();
    Visit(event);
}

void XmlInspector::TakeCharacters()
{
    if (m_elements.empty() || !m_elements.back().isKnown)
        return;
    Element& element = m_elements.back();
    // Of several pieces the last one counts.
    element.text = m_reader.text().toString();
    element.valueBegin = m_before;
    if (m_reader.isWhitespace() && !element.hasText)
        return;
    const bool isFirst = !std::exchange(element.hasText, true);
    if (isFirst && (!element.object || HoldsText(*element.object)))
        return;
    const auto begin = std::find_if_not(Text().cbegin() + m_before, Text().cend(),
                                        [](QChar unit) { return unit.isSpace(); });
    Event event = EventOf(isFirst ? Kind::UnknownText : Kind::DividedText, begin - Text().cbegin());
    event.value = element.text.trimmed();
    Visit(event);
}

void XmlInspector::TakeEntity()
{
    constexpr int AMPERSAND_AND_SEMICOLON = 2;
    Visit(
        EventOf(Kind::Entity, m_reader.characterOffset() - m_reader.name().size() - AMPERSAND_AND_SEMICOLON));
}

} // namespace ReportCore
