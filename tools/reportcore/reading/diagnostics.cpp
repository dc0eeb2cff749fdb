#include <reportcore/reading/diagnostics.h>

#include <reportcore/problemlogger.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reportbase/reportexception.h>

#include <algorithm>
#include <memory>
#include <unordered_set>
#include <utility>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;

namespace {

/// The library's name of all that its check says.
constexpr char CHECKED[] = "OutOfRangeException";

/// Says what the library's check says of the object, in its order.
void Check(const IRGObject& object, const ObjectInfo& info, FieldPath& path, Findings& findings)
{
    for (const auto& field : info.All()) {
        path.Enter(*field);
        if (!field->IsGoodIn(object))
            findings.push_back({{QLatin1String(CHECKED), field->Complaint(object)}, path});
        const int count = field->CountIn(object);
        for (int i = 0; i < count; ++i) {
            if (field->Kind() == FieldKind::List)
                path.SetIndex(i);
            Check(field->ItemIn(object, i), field->Object(), path, findings);
        }
        path.Leave();
    }
}

} // namespace

Diagnostics::Diagnostics(const ReportBase& report, const std::function<bool()>& read,
                         std::function<qint64()> position)
{
    const auto logger = std::make_shared<ProblemLogger>();
    report.SetValidate(false);
    report.SetLogger(logger);
    logger->Follow(std::move(position));
    try {
        m_isRead = read();
    } catch (const ReportException& exception) {
        logger->Catch(exception);
    }
    // The members keep the logger, and what tells the position is gone when they use it.
    logger->Follow(nullptr);
    m_findings = logger->Take();
    m_countOfReading = m_findings.size();
    FieldPath path;
    if (m_isRead)
        Check(report, ReportInfo(), path, m_findings);
}

Problems Diagnostics::Find(const QByteArray& bytes, const FileForm& form)
{
    Locate(m_findings, bytes, form);
    const auto checked = m_findings.begin() + static_cast<std::ptrdiff_t>(m_countOfReading);
    std::unordered_set<FieldPath, FieldPathHash> incomplete;
    std::for_each(checked, m_findings.end(),
                  [&](const Finding& finding) { incomplete.insert(finding.path->Parent()); });
    std::unordered_set<FieldPath, FieldPathHash> refused;
    Problems problems;
    std::for_each(m_findings.begin(), checked, [&](const Finding& finding) {
        if (finding.path)
            refused.insert(*finding.path);
        // An item is incomplete because of a field that the check names; what has no path is the report.
        if (!finding.problem.Is(INCOMPLETE) || incomplete.count(finding.path.value_or(FieldPath())) == 0)
            problems.push_back(finding.problem);
    });
    std::for_each(checked, m_findings.end(), [&](const Finding& finding) {
        if (refused.count(*finding.path) == 0)
            problems.push_back(finding.problem);
    });
    return problems;
}

} // namespace ReportCore
