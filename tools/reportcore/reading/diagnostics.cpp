#include <reportcore/reading/diagnostics.h>

#include <reportgenerator/reflection/reportfields.h>

#include <algorithm>
#include <unordered_set>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;

namespace {

/// A problem whose path is known, so that it can be told once.
struct Finding
{
    Problem problem;
    bool hasPath = false;
    FieldPath path = {};
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

Paths PathsOf(const Findings& findings, bool ofHolders)
{
    Paths paths;
    for (const Finding& finding : findings) {
        if (finding.hasPath)
            paths.insert(ofHolders ? finding.path.Parent() : finding.path);
    }
    return paths;
}

void TakePath(Finding& finding, const FieldPath& path)
{
    finding.hasPath = true;
    finding.path = path;
    finding.problem.path = path.Text();
}

Findings FindingsOfReading(const LogRecords& read, const SourceMap& map)
{
    Findings findings;
    for (const LogRecord& record : read) {
        Finding finding{{record.name, record.text}};
        if (const SourceEntry* const entry = map.FindEnd(record.end, IsIncomplete(record.name))) {
            finding.problem.place = entry->place;
            finding.problem.value = entry->value;
            TakePath(finding, entry->path);
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
        Finding finding{{checked.at(i).name, checked.at(i).text}};
        if (!complaints.empty()) {
            const FieldPath& path = complaints.at(i).path;
            TakePath(finding, path);
            if (const SourceEntry* const entry = map.FindNearest(path)) {
                finding.problem.place = entry->place;
                finding.problem.value = entry->path == path ? entry->value : QString();
            }
        }
        findings.push_back(finding);
    }
    return findings;
}

} // namespace

Diagnostics::Diagnostics(const ReportBase& report, const LogRecords& read, const LogRecords& checked,
                         bool isChecked)
    : m_read(read), m_checked(checked)
{
    FieldPath path;
    if (isChecked)
        Complain(report, ReportInfo(), path, m_complaints);
    // The words are the library's; where they are others than expected, they are told without a path.
    if (!AreOf(m_complaints, checked))
        m_complaints.clear();
    for (const LogRecord& record : read)
        m_map.WantEnd(record.end);
    for (const Complaint& complaint : m_complaints)
        m_map.WantPath(complaint.path);
}

Problems Diagnostics::Tell() const
{
    const Findings read = FindingsOfReading(m_read, m_map);
    const Findings checked = FindingsOfCheck(m_checked, m_complaints, m_map);
    const Paths refused = PathsOf(read, false);
    const Paths incomplete = PathsOf(checked, true);
    Problems problems;
    for (const Finding& finding : read) {
        // An item is incomplete because of a field that the check names.
        if (!IsIncomplete(finding.problem.name) || incomplete.count(finding.path) == 0)
            problems.push_back(finding.problem);
    }
    for (const Finding& finding : checked) {
        if (!finding.hasPath || refused.count(finding.path) == 0)
            problems.push_back(finding.problem);
    }
    return problems;
}

} // namespace ReportCore
