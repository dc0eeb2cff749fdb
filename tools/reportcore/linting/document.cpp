#include <reportcore/linting/linting.h>

#include <reportcore/inspect/inspector.h>

#include <reportgenerator/reflection/nearname.h>
#include <reportgenerator/reflection/reportfields.h>

#include <cmath>
#include <unordered_set>

namespace ReportCore {

using REPORTGENERATOR::Place;
using Kind = Event::Kind;
using Role = Event::Role;

namespace {

class DocumentLint
{
public:
    void Take(const Event& event)
    {
        m_hasReport = m_hasReport || event.isInReport;
        switch (event.kind) {
        case Kind::Surrounding:
            TakeSurrounding(event);
            break;
        case Kind::AnotherReport:
            m_problems.push_back(ProblemOf(event, SECOND_REPORT,
                                           QStringLiteral("only the first report of a document is read"),
                                           event.name));
            break;
        case Kind::UnknownTag:
            TakeUnknown(Place::Element, event);
            break;
        case Kind::UnknownAttribute:
            TakeUnknown(Place::Attribute, event);
            break;
        case Kind::Entity:
            m_problems.push_back(ProblemOf(event, UNRESOLVED_ENTITY,
                                           QStringLiteral("the entity is not known and left out"),
                                           QStringLiteral("&%1;").arg(event.name)));
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

    Problems Found() const
    {
        Problems problems = m_problems;
        // It doesn't matter where there is a report after all.
        if (!m_hasReport && !m_misspeltRoot.name.isEmpty())
            problems.push_back(m_misspeltRoot);
        return problems;
    }

private:
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
            m_problems.push_back(ProblemOf(event, REPEATED_ELEMENT,
                                           QStringLiteral("%1 comes a second time").arg(Subject(event))));
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
        m_problems.push_back(
            ProblemOf(event, NOT_A_NUMBER, words.arg(event.path->Last().field->Name()), event.value));
        m_problems.back().place = event.inspector->PlaceOf(event.contentBegin);
    }

    static Problem Misspelt(const Event& event, const QString& known)
    {
        return ProblemOf(event, MISSPELT_NAME,
                         QStringLiteral("there is no %1, did you mean '%2'?").arg(Subject(event), known),
                         event.name);
    }

    bool m_hasReport = false;
    std::unordered_set<FieldPath, FieldPathHash> m_seen; ///< elements that come once, and have come
    Problem m_misspeltRoot;
    Problems m_problems;
};

} // namespace

Problems FindDocumentLint(const QByteArray& bytes, const FileForm& form)
{
    DocumentLint lint;
    Inspector::Of(bytes, form, [&lint](const Event& event) { lint.Take(event); })->Run();
    return lint.Found();
}

} // namespace ReportCore
