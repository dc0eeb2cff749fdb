#include <reportcore/linting/linting.h>

#include <reportcore/inspect/inspector.h>

#include <reportgenerator/reflection/nearname.h>
#include <reportgenerator/reflection/reportfields.h>

#include <cmath>
#include <memory>
#include <unordered_set>
#include <utility>

namespace ReportCore {

using REPORTGENERATOR::Place;
using Kind = Event::Kind;
using Role = Event::Role;

namespace {

class DocumentLint
{
public:
    DocumentLint(const QByteArray& bytes, const FileForm& form)
        : m_inspector(Inspector::Of(
              bytes, form, [this](const Event& event) { Take(event); }, Inspector::Extent::Document))
    {
    }

    Problems Find()
    {
        m_inspector->Run();
        // It doesn't matter where there is a report after all.
        if (!m_hasReport && !m_misspeltRoot.name.isEmpty())
            m_problems.push_back(m_misspeltRoot);
        return std::move(m_problems);
    }

private:
    void Take(const Event& event)
    {
        m_hasReport = m_hasReport || event.isInReport;
        switch (event.kind) {
        case Kind::Surrounding:
            TakeSurrounding(event);
            break;
        case Kind::AnotherReport:
            Add(SECOND_REPORT, QStringLiteral("only the first report of a document is read"), event,
                event.name);
            break;
        case Kind::UnknownTag:
            TakeUnknown(Place::Element, event);
            break;
        case Kind::UnknownAttribute:
            TakeUnknown(Place::Attribute, event);
            break;
        case Kind::Entity:
            Add(UNRESOLVED_ENTITY, QStringLiteral("the entity is not known and left out"), event,
                QStringLiteral("&%1;").arg(event.name));
            break;
        case Kind::EndTag:
            LeaveElement(event);
            break;
        default:
            break;
        }
        if (event.role == Role::Element)
            EnterElement(event);
        else if (event.IsNumber())
            TakeNumber(event);
    }

    void TakeSurrounding(const Event& event)
    {
        const QString& known = ReportInfo().ObjectName();
        if (!m_hasReport && m_misspeltRoot.name.isEmpty() && IsNear(event.name, known))
            m_misspeltRoot = Misspelt(event, known);
    }

    void TakeUnknown(Place place, const Event& event)
    {
        const QString nearest = event.object ? NearestName(*event.object, place, event.name) : QString();
        if (!nearest.isNull())
            m_problems.push_back(Misspelt(event, nearest));
    }

    void EnterElement(const Event& event)
    {
        if (!m_seen.insert(*event.path).second)
            Add(REPEATED_ELEMENT, QStringLiteral("%1 comes a second time").arg(Subject(event)), event,
                QString());
    }

    /// In XML an object that comes once more is odd as a whole, and what stands in it comes for the first time.
    void LeaveElement(const Event& event)
    {
        if (!event.object)
            return;
        FieldPath path = *event.path;
        for (const auto& field : event.object->All()) {
            path.Enter(*field);
            m_seen.erase(path);
            path.Leave();
        }
    }

    void TakeNumber(const Event& event)
    {
        bool isNumber = false;
        const double number = event.value.toDouble(&isNumber);
        if (isNumber && std::isfinite(number))
            return;
        const QString words = isNumber ? QStringLiteral("%1 is no finite number")
                                       : QStringLiteral("%1 is no number and reads as 0");
        m_problems.push_back({QLatin1String(NOT_A_NUMBER), words.arg(event.path->Last().field->Name()),
                              m_inspector->PlaceOf(event.contentBegin), event.path->Text(), event.value});
    }

    Problem Misspelt(const Event& event, const QString& known) const
    {
        return {QLatin1String(MISSPELT_NAME),
                QStringLiteral("there is no %1, did you mean '%2'?").arg(Subject(event), known),
                m_inspector->PlaceOf(event.begin), event.path->Text(), event.name};
    }

    void Add(const char* name, const QString& text, const Event& event, const QString& value)
    {
        m_problems.push_back(
            {QLatin1String(name), text, m_inspector->PlaceOf(event.begin), event.path->Text(), value});
    }

    std::unique_ptr<Inspector> m_inspector;
    bool m_hasReport = false;
    std::unordered_set<FieldPath, FieldPathHash> m_seen; ///< elements that come once, and have come
    Problem m_misspeltRoot;
    Problems m_problems;
};

} // namespace

Problems FindDocumentLint(const QByteArray& bytes, const FileForm& form)
{
    return DocumentLint(bytes, form).Find();
}

} // namespace ReportCore
