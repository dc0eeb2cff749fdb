#include <reportcore/reading/diagnostics.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reportbase/reportexception.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <unordered_set>
#include <utility>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;

namespace {

/// A problem, and what it is about where that is known.
struct Finding
{
    Problem problem;
    std::optional<FieldPath> path = {};
};

using Findings = std::vector<Finding>;
using Paths = std::unordered_set<FieldPath, FieldPathHash>;

/// In the order of the library's check.
void Complain(const IRGObject& object, const ObjectInfo& info, FieldPath& path, Complaints& complaints)
{
    for (const auto& field : info.All()) {
        path.Enter(*field);
        if (!field->IsGoodIn(object))
            complaints.push_back({path, field->Complaint(object)});
        const int count = field->CountIn(object);
        for (int i = 0; i < count; ++i) {
            if (field->Kind() == FieldKind::List)
                path.SetIndex(i);
            Complain(field->ItemIn(object, i), field->Object(), path, complaints);
        }
        path.Leave();
    }
}

bool AreOf(const Complaints& complaints, const LogRecords& records)
{
    return std::equal(
        complaints.begin(), complaints.end(), records.begin(), records.end(),
        [](const Complaint& complaint, const LogRecord& record) { return complaint.text == record.text; });
}

bool IsIncomplete(const QString& name)
{
    return name == QLatin1String("IncompleteDefinitionException");
}

/// Calls what the library does; what is thrown is kept among what it has told. Returns whether it came to the end.
template <typename Call>
bool Keeping(ProblemLogger& logger, const Call& call)
{
    try {
        return call();
    } catch (const ReportException& exception) {
        logger.Catch(exception);
        return false;
    }
}

Findings FindingsOfReading(const LogRecords& read, const SourceMap& map)
{
    Findings findings;
    for (const LogRecord& record : read) {
        Finding finding{{record.name, record.text}};
        if (const SourceEntry* const entry = map.FindEnd(record.end, IsIncomplete(record.name))) {
            finding.problem.place = entry->place;
            finding.problem.path = entry->path.Text();
            finding.problem.value = entry->value;
            finding.path = entry->path;
        } else if (record.end >= 0) {
            finding.problem.place = map.PlaceOf(record.end);
        }
        findings.push_back(finding);
    }
    return findings;
}

Findings FindingsOfCheck(const LogRecords& checked, const Complaints& complaints, const SourceMap& map)
{
    Findings findings;
    for (std::size_t i = 0; i < checked.size(); ++i) {
        Finding finding{{checked[i].name, checked[i].text}};
        if (!complaints.empty()) {
            finding.path = complaints[i].path;
            map.Locate(finding.problem, *finding.path);
        }
        findings.push_back(finding);
    }
    return findings;
}

Problems ToldOnce(const Findings& read, const Findings& checked)
{
    Problems problems;
    Paths incomplete;
    for (const Finding& finding : checked) {
        if (finding.path)
            incomplete.insert(finding.path->Parent());
    }
    Paths refused;
    for (const Finding& finding : read) {
        if (finding.path)
            refused.insert(*finding.path);
        // An item is incomplete because of a field that the check names; what has no path is the report.
        if (!IsIncomplete(finding.problem.name) || incomplete.count(finding.path.value_or(FieldPath())) == 0)
            problems.push_back(finding.problem);
    }
    for (const Finding& finding : checked) {
        if (!finding.path || refused.count(*finding.path) == 0)
            problems.push_back(finding.problem);
    }
    return problems;
}

} // namespace

Diagnostics::Diagnostics(const ReportBase& report, const std::function<bool()>& read,
                         std::function<qint64()> position)
{
    const auto logger = std::make_shared<ProblemLogger>();
    report.SetValidate(false);
    report.SetLogger(logger);
    logger->Follow(std::move(position));
    m_isRead = Keeping(*logger, read);
    // The members keep the logger, and what tells the position is gone when they use it.
    logger->Follow(nullptr);
    m_read = logger->Take();
    if (!m_isRead)
        return;
    Keeping(*logger, [&report] {
        report.Check(true);
        return true;
    });
    m_checked = logger->Take();
    if (m_checked.empty())
        return;
    FieldPath path;
    Complain(report, ReportInfo(), path, m_complaints);
    // The words are the library's; where they are others than expected, they are told without a path.
    if (!AreOf(m_complaints, m_checked))
        m_complaints.clear();
}

Problems Diagnostics::Find(const QByteArray& bytes, const FileForm& form)
{
    for (const LogRecord& record : m_read)
        m_map.WantEnd(record.end);
    for (const Complaint& complaint : m_complaints)
        m_map.WantPath(complaint.path);
    m_map.Search(bytes, form);
    return ToldOnce(FindingsOfReading(m_read, m_map), FindingsOfCheck(m_checked, m_complaints, m_map));
}

} // namespace ReportCore
