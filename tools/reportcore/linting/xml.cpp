#include <reportcore/linting/linting.h>

#include <reportcore/inspect/sourcetext.h>
#include <reportcore/inspect/xmlinspector.h>

#include <reportgenerator/reflection/nearname.h>
#include <reportgenerator/reflection/reportfields.h>

#include <set>
#include <utility>
#include <vector>

namespace ReportCore {

using REPORTGENERATOR::Place;
using Kind = XmlEvent::Kind;

namespace {

class XmlLint
{
public:
    explicit XmlLint(const QByteArray& bytes)
        : m_text(bytes), m_inspector(
                             bytes, m_text.Text(), [this](const XmlEvent& event) { Take(event); },
                             XmlInspector::Extent::Document)
    {
    }

    Problems Find()
    {
        m_inspector.Run();
        if (!m_hasReport && !m_misspeltRoot.name.isEmpty())
            m_problems.push_back(m_misspeltRoot);
        return std::move(m_problems);
    }

private:
    void Add(const char* name, const QString& text, qint64 position, const FieldPath& path,
             const QString& value)
    {
        m_problems.push_back({QLatin1String(name), text, m_text.PlaceOf(position), path.Text(), value});
    }

    Problem Misspelt(const QString& what, const QString& known, const XmlEvent& event) const
    {
        return {QLatin1String(MISSPELT_NAME),
                QStringLiteral("there is no %1 '%2', did you mean '%3'?").arg(what, event.name, known),
                m_text.PlaceOf(event.begin), event.path->Text(), event.name};
    }

    void Take(const XmlEvent& event)
    {
        switch (event.kind) {
        case Kind::Surrounding:
            TakeSurrounding(event);
            break;
        case Kind::AnotherReport:
            Add(SECOND_REPORT, QStringLiteral("only the first report of a document is read"), event.begin, {},
                event.name);
            break;
        case Kind::StartTag:
            TakeStart(event);
            break;
        case Kind::UnknownTag:
            TakeUnknown(QStringLiteral("element"), Place::Element, event);
            m_seen.emplace_back();
            break;
        case Kind::UnknownAttribute:
            TakeUnknown(QStringLiteral("attribute"), Place::Attribute, event);
            break;
        case Kind::Entity:
            Add(UNRESOLVED_ENTITY, QStringLiteral("the entity is not known and left out"), event.begin,
                *event.path, QStringLiteral("&%1;").arg(event.name));
            break;
        case Kind::EndTag:
        case Kind::UnknownEnd:
            m_seen.pop_back();
            TakeValue(event);
            break;
        case Kind::Attribute:
        case Kind::Text:
            TakeValue(event);
            break;
        default:
            break;
        }
    }

    /// It doesn't matter where there is a report after all.
    void TakeSurrounding(const XmlEvent& event)
    {
        const QString& known = ReportInfo().ObjectName();
        if (!m_hasReport && m_misspeltRoot.name.isEmpty() && IsNear(event.name, known))
            m_misspeltRoot = Misspelt(QStringLiteral("element"), known, event);
    }

    void TakeStart(const XmlEvent& event)
    {
        const Field* const field = event.element->field;
        if (field && field->Kind() != FieldKind::List && !m_seen.back().insert(field).second)
            Add(REPEATED_ELEMENT, QStringLiteral("element '%1' comes a second time").arg(event.name),
                event.begin, *event.path, QString());
        m_hasReport = true;
        m_seen.emplace_back();
    }

    void TakeUnknown(const QString& what, Place place, const XmlEvent& event)
    {
        if (!event.element->object)
            return;
        const QString nearest = NearestName(*event.element->object, place, event.name);
        if (!nearest.isNull())
            m_problems.push_back(Misspelt(what, nearest, event));
    }

    void TakeValue(const XmlEvent& event)
    {
        if (event.role == Event::Role::Value && event.path->Last().field->Kind() == FieldKind::Number &&
            !IsFiniteNumber(event.value))
            m_problems.push_back(NoNumber(m_text.PlaceOf(event.contentBegin), *event.path, event.value));
    }

    SourceText m_text;
    XmlInspector m_inspector;
    bool m_hasReport = false;
    std::vector<std::set<const Field*>> m_seen; ///< in each element that is open
    Problem m_misspeltRoot;
    Problems m_problems;
};

} // namespace

Problems FindXmlLint(const QByteArray& bytes)
{
    return XmlLint(bytes).Find();
}

} // namespace ReportCore
