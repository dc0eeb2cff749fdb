#include <reportcore/inspect/inspector.h>

#include <reportcore/inspect/sourcetext.h>

#include <reportgenerator/reflection/reportfields.h>

#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <utility>
#include <vector>

namespace ReportCore {

using REPORTGENERATOR::Place;
using Kind = Event::Kind;
using Role = Event::Role;

namespace {

constexpr int ENTITY_SIGNS = 2; ///< "&" and ";"

/// The field of the object that is the text of its element; null where none is.
const Field* TextOf(const ObjectInfo& object)
{
    const auto found = std::find_if(object.All().begin(), object.All().end(),
                                    [](const auto& field) { return field->Facts().place == Place::Text; });
    return found == object.All().end() ? nullptr : found->get();
}

class XmlInspector : public Inspector
{
public:
    XmlInspector(const QByteArray& bytes, Visitor visit)
        : Inspector(std::move(visit)), m_source(bytes), m_reader(ForXmlReader(bytes))
    {
    }

    void Run() override
    {
        while (!m_reader.atEnd()) {
            m_before = EndOfToken();
            TakeToken(m_reader.readNext());
        }
        BreakOff();
        if (m_reader.hasError())
            Visit(TokenOf(Kind::Malformed, m_before));
    }

    FilePlace PlaceOf(qint64 position) const override { return m_source.PlaceOf(position); }

    QString Text() const override { return m_source.Text(); }

private:
    /// An element of the first report that has begun and not ended yet.
    struct Element
    {
        const ObjectInfo* object = nullptr; ///< null for an element that is no object
        FieldPath path = {};                ///< empty for the report and for what is unknown
        bool isKnown = false;
        bool hasText = false; ///< other than blanks
        qint64 begin = 0;
        qint64 contentBegin = 0;
        qint64 valueBegin = 0;
        QString text = {};
    };

    void TakeToken(QXmlStreamReader::TokenType token)
    {
        switch (token) {
        case QXmlStreamReader::DTD: {
            Event event = TokenOf(Kind::DocumentType, m_before);
            event.value = m_reader.text().toString();
            Visit(event);
            break;
        }
        case QXmlStreamReader::StartElement:
            Start();
            break;
        case QXmlStreamReader::EndElement:
            End();
            break;
        case QXmlStreamReader::Characters:
            if (!m_elements.empty() && m_elements.back().isKnown)
                TakeCharacters(m_elements.back());
            break;
        case QXmlStreamReader::EntityReference:
            Visit(TokenOf(Kind::Entity, m_reader.characterOffset() - m_reader.name().size() - ENTITY_SIGNS));
            break;
        default:
            break;
        }
    }

    /// The reader has looked at the character behind a text, and counts it.
    qint64 EndOfToken() const
    {
        const qint64 end = m_reader.characterOffset();
        const QString& text = m_source.Text();
        const bool isTooFar = m_reader.isCharacters() && end > 0 && end <= text.size() &&
                              text.at(static_cast<int>(end - 1)) == QLatin1Char('<');
        return isTooFar ? end - 1 : end;
    }

    qint64 StartOfTag() const { return m_source.StartOfTag(m_reader.characterOffset()); }

    QString::const_iterator TextAt(qint64 position) const { return m_source.Text().cbegin() + position; }

    /// Of the token that the reader stands behind.
    Event TokenOf(Kind kind, qint64 begin) const
    {
        Event event = EventOf(kind, begin, m_reader.characterOffset());
        event.isInReport = !m_elements.empty();
        if (event.isInReport) {
            event.isWithinUnknown = !m_elements.back().isKnown;
            event.path = &m_elements.back().path;
            event.object = m_elements.back().object;
        }
        event.name = m_reader.name().toString();
        return event;
    }

    /// A value stands between the event's place and the end. It is never null.
    void GiveValue(Event& event, const FieldPath& path, const QString& value, qint64 end) const
    {
        event.path = &path;
        event.role = Role::Value;
        event.value = value.isNull() ? QStringLiteral("") : value;
        if (path.Last().field->Kind() == FieldKind::Text)
            event.hasReturns = std::find(TextAt(event.place), TextAt(end), QLatin1Char('\r')) != TextAt(end);
    }

    // --- Start tags

    void Start()
    {
        if (m_inAnother > 0) {
            ++m_inAnother;
        } else if (!m_elements.empty()) {
            StartWithin(m_elements.back());
        } else if (m_reader.name() != ReportInfo().ObjectName()) {
            Visit(TokenOf(Kind::Surrounding, StartOfTag()));
        } else if (!std::exchange(m_hasReport, true)) {
            Open({&ReportInfo(), FieldPath(), true});
        } else {
            Visit(TokenOf(Kind::AnotherReport, StartOfTag()));
            m_inAnother = 1;
        }
    }

    /// Tells elements apart by their names and by what stands around them, as the library does it.
    void StartWithin(const Element& parent)
    {
        const Field* const field =
            parent.object ? parent.object->FindElement(m_reader.name().toString(), Place::Element) : nullptr;
        if (field) {
            Open(ElementOf(parent, *field));
            return;
        }
        Event event = TokenOf(Kind::UnknownTag, StartOfTag());
        if (!parent.isKnown)
            event.path = &NoPath();
        event.role = Role::Unknown;
        event.readTo = event.end;
        Visit(event);
        Element unknown;
        // What stands in it is about the object around it.
        if (parent.object)
            unknown.path = parent.path;
        m_elements.push_back(std::move(unknown));
    }

    /// Of a list, the next item.
    Element ElementOf(const Element& parent, const Field& field)
    {
        Element element = {field.HasObjects() ? &field.Object() : nullptr, parent.path, true};
        element.path.Enter(field);
        if (field.Kind() == FieldKind::List)
            element.path.SetIndex(NextItem(element.path));
        return element;
    }

    void Open(Element element)
    {
        const qint64 end = m_reader.characterOffset();
        element.begin = StartOfTag();
        element.contentBegin = end;
        element.valueBegin = end;
        m_elements.push_back(std::move(element));
        Event event = TokenOf(Kind::StartTag, m_elements.back().begin);
        event.role = event.path->IsEmpty() || event.path->IsItem() ? Role::None : Role::Element;
        Visit(event);
        TakeAttributes(m_elements.back());
    }

    void TakeAttributes(const Element& element)
    {
        const QXmlStreamAttributes attributes = m_reader.attributes();
        if (element.object) {
            // By a version of the format, or without one, the object may have been emptied.
            for (const auto& field : element.object->All()) {
                if (field->Kind() == FieldKind::Version)
                    TakeVersion(element.path, *field,
                                attributes.value(field->Facts().elementName).toString());
            }
        }
        for (const QXmlStreamAttribute& attribute : attributes)
            TakeAttribute(element, attribute);
    }

    void TakeAttribute(const Element& element, const QXmlStreamAttribute& attribute)
    {
        Event event = TokenOf(Kind::UnknownAttribute, element.begin);
        event.name = attribute.name().toString();
        const Field* const field =
            element.object ? element.object->FindElement(event.name, Place::Attribute) : nullptr;
        FieldPath path = element.path;
        if (field) {
            const SourceText::Attribute found = m_source.FindAttribute(element.begin, event.end, event.name);
            path.Enter(*field);
            event.kind = Kind::Attribute;
            event.begin = found.begin;
            event.end = found.end;
            event.place = found.valueBegin;
            event.contentBegin = found.valueBegin;
            GiveValue(event, path, attribute.value().toString(), found.end);
        }
        Visit(event);
    }

    // --- End tags

    void End()
    {
        if (m_inAnother > 1) {
            --m_inAnother;
        } else if (m_elements.empty()) {
            const bool isOfReport = std::exchange(m_inAnother, 0) > 0;
            Visit(TokenOf(isOfReport ? Kind::AnotherReportEnd : Kind::SurroundingEnd, m_before));
        } else {
            if (m_elements.back().isKnown)
                EndKnown(m_elements.back());
            else
                Visit(TokenOf(Kind::UnknownEnd, m_before));
            m_elements.pop_back();
        }
    }

    void EndKnown(const Element& element)
    {
        Event event = TokenOf(Kind::EndTag, m_before);
        event.contentBegin = element.contentBegin;
        event.readTo = event.end;
        if (element.object) {
            if (const Field* const text = TextOf(*element.object))
                VisitText(element, *text);
            event.role = Role::Object;
            event.place = element.begin;
        } else {
            event.place = element.valueBegin;
            GiveValue(event, element.path, element.text, m_before);
        }
        Visit(event);
    }

    void VisitText(const Element& element, const Field& field)
    {
        Event event = TokenOf(Kind::Text, element.valueBegin);
        event.end = m_before;
        event.contentBegin = element.contentBegin;
        FieldPath path = element.path;
        path.Enter(field);
        GiveValue(event, path, element.text, m_before);
        Visit(event);
    }

    /// Tells of the objects that have begun and not ended, the innermost one first.
    void BreakOff()
    {
        for (; !m_elements.empty(); m_elements.pop_back()) {
            if (!m_elements.back().object)
                continue;
            Event event = TokenOf(Kind::Open, Text().size());
            event.end = event.begin;
            event.role = Role::Object;
            event.place = m_elements.back().begin;
            Visit(event);
        }
    }

    // --- What stands between tags

    void TakeCharacters(Element& element)
    {
        // Of several pieces the last one counts.
        element.text = m_reader.text().toString();
        element.valueBegin = m_before;
        if (m_reader.isWhitespace() && !element.hasText)
            return;
        const bool isFirst = !std::exchange(element.hasText, true);
        if (isFirst && (!element.object || TextOf(*element.object)))
            return;
        const auto begin = std::find_if_not(TextAt(m_before), m_source.Text().cend(),
                                            [](QChar unit) { return unit.isSpace(); });
        Event event = TokenOf(isFirst ? Kind::UnknownText : Kind::DividedText, begin - TextAt(0));
        event.value = element.text.trimmed();
        Visit(event);
    }

    SourceText m_source;
    QXmlStreamReader m_reader;
    qint64 m_before = 0; ///< where the token begins that the reader stands behind
    bool m_hasReport = false;
    int m_inAnother = 0; ///< elements that are open in another report, with its own
    std::vector<Element> m_elements;
};

} // namespace

std::unique_ptr<Inspector> Inspector::OfXml(const QByteArray& bytes, Visitor visit)
{
    return std::make_unique<XmlInspector>(bytes, std::move(visit));
}

} // namespace ReportCore
