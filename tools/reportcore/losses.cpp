#include <reportcore/losses.h>

#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/lint.h>
#include <reportcore/linting/linting.h>
#include <reportcore/losing/lostvalues.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace ReportCore {

using Kind = Event::Kind;
using Role = Event::Role;

namespace {

/// The name of what a report doesn't take; null for what it does.
const char* NameOfLoss(const Event& event)
{
    if (event.role == Role::Unknown)
        return UNKNOWN_ELEMENT;
    switch (event.kind) {
    case Kind::UnknownAttribute:
        return UNKNOWN_ATTRIBUTE;
    case Kind::UnknownText:
    case Kind::DividedText:
        return UNKNOWN_TEXT;
    case Kind::Entity:
        return UNRESOLVED_ENTITY;
    default:
        return nullptr;
    }
}

/// Finds what the bytes hold beside what their report has taken; in binary forms, what their body holds.
class DocumentLosses
{
public:
    explicit DocumentLosses(const ReportFile& file) : m_values(file) {}

    void Take(const Event& event)
    {
        // An unknown element is lost as a whole.
        if (!event.isInReport)
            TakeAround(event);
        else if (!event.isWithinUnknown)
            TakeWithin(event);
    }

    Problems Find(const QByteArray& bytes)
    {
        while (!m_around.empty())
            EndAround();
        const Problems values = m_values.Find(bytes);
        m_losses.insert(m_losses.end(), values.begin(), values.end());
        return std::move(m_losses);
    }

private:
    /// An element around or beside the report.
    struct Surrounding
    {
        QString text;
        std::size_t loss = 0; ///< the one that tells of it
        bool holdsReport = false;
    };

    void TakeAround(const Event& event)
    {
        if (event.kind == Kind::Surrounding) {
            m_around.push_back({Subject(event), m_losses.size()});
            m_losses.push_back(
                ProblemOf(event, SURROUNDING_ELEMENT, Subject(event) + QStringLiteral(" around the report")));
        } else if (event.kind == Kind::SurroundingEnd) {
            EndAround();
        } else if (event.kind == Kind::AnotherReport) {
            MarkAround();
            m_losses.push_back(ProblemOf(event, SECOND_REPORT, Subject(event)));
        }
    }

    void MarkAround()
    {
        for (Surrounding& around : m_around)
            around.holdsReport = true;
    }

    /// What is beside the report is lost as a whole.
    void EndAround()
    {
        const Surrounding around = m_around.back();
        m_around.pop_back();
        if (around.holdsReport)
            return;
        m_losses.resize(around.loss + 1);
        m_losses.back().text = around.text;
    }

    void TakeWithin(const Event& event)
    {
        if (event.kind == Kind::StartTag && event.path->IsEmpty())
            MarkAround();
        if (const char* const name = NameOfLoss(event))
            m_losses.push_back(ProblemOf(event, name, Subject(event)));
        if (event.role != Role::Value)
            return;
        m_values.Take(event);
        if (event.hasReturns) {
            m_losses.push_back(ProblemOf(event, CARRIAGE_RETURNS,
                                         QStringLiteral("carriage returns in ") + event.path->Text()));
            m_losses.back().place = event.inspector->PlaceOf(event.place);
        }
    }

    LostValues m_values;
    std::vector<Surrounding> m_around;
    Problems m_losses;
};

/// With such a problem there is no report.
bool IsAboutAll(const Problem& problem)
{
    return problem.Is(UNKNOWN_FORM) || problem.Is(NO_REPORT) || problem.Is(DAMAGED_DATA) ||
           problem.Is(TOO_LARGE);
}

/// The library's words for what it could not go on with.
bool EndsReading(const Problem& problem)
{
    return problem.Is("RGException") || problem.Is("BinaryParsingException");
}

/// Whether the report has all that its file says. What stands around an element in its document has not been read with it.
bool IsWhole(const ReportFile& file)
{
    return file.wasReadWhole &&
           (file.form.IsBinary() || file.objectName == REPORTGENERATOR::ReportBase::GetStaticObjectName());
}

/// Where the bytes end that hold the fields.
FilePlace EndOf(const QByteArray& bytes, const ReportFile& file)
{
    BinaryInspector inspector(bytes, file.form.isBinaryFile, [](const Event& /*event*/) {});
    inspector.Envelope();
    return {0, 0, inspector.BodyOffset() + inspector.BodyBytes().size(), inspector.IsCompressed()};
}

/// Reading broke off: an object that is lost then goes on to where nobody knows.
void LoseRest(const FilePlace& end, Problems& losses)
{
    const bool isLastObject = !losses.empty() && losses.back().Is(LOST_VALUE) && losses.back().value.isNull();
    if (!isLastObject)
        losses.push_back({QLatin1String(LOST_REST), QStringLiteral("what stands"), end});
    Problem& last = losses.back();
    last.name = QLatin1String(LOST_REST);
    last.text = QStringLiteral("%1 from %2 on").arg(last.text, PlaceText(last.place));
}

/// What reading itself has told: bytes that belong to nothing, claims that nothing stands behind, the rest of what it
/// could not read.
void AddProblems(const QByteArray& bytes, const ReportFile& file, Problems& losses)
{
    const bool isXml = file.form.form == Form::Xml;
    const bool isBrokenOff = std::any_of(file.problems.begin(), file.problems.end(), EndsReading);
    for (const Problem& problem : file.problems) {
        if (EndsReading(problem))
            LoseRest(isXml ? problem.place : EndOf(bytes, file), losses);
        else if (isXml && problem.Is(TRAILING_DATA))
            losses.push_back({problem.name,
                              QStringLiteral("what stands from %1 on").arg(PlaceText(problem.place)),
                              problem.place});
        else if (problem.Is(TRAILING_DATA) || (problem.Is(LENGTH_MISMATCH) && !isBrokenOff))
            losses.push_back(problem);
    }
}

} // namespace

Problems FindLosses(const QByteArray& bytes, const ReportFile& file)
{
    // Where reading broke off before the first element there is no report either.
    const auto all =
        std::find_if(file.problems.begin(), file.problems.end(), [&file](const Problem& problem) {
            return IsAboutAll(problem) || (EndsReading(problem) && file.objectName.isEmpty());
        });
    if (all != file.problems.end()) {
        Problem whole = *all;
        whole.text = QStringLiteral("the whole file: ") + all->text;
        return {whole};
    }
    Problems losses;
    if (!IsWhole(file)) {
        DocumentLosses found(file);
        Inspector::Of(bytes, file.form, [&found](const Event& event) { found.Take(event); })->Run();
        losses = found.Find(bytes);
    }
    std::stable_sort(losses.begin(), losses.end(), StandsBefore);
    AddProblems(bytes, file, losses);
    if (file.form.form == Form::Compressed) {
        const Problems behind = FindDataBehind(bytes, file.form.isBinaryFile);
        losses.insert(losses.end(), behind.begin(), behind.end());
    }
    std::stable_sort(losses.begin(), losses.end(), StandsBefore);
    return losses;
}

} // namespace ReportCore
