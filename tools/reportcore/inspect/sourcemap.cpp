#include <reportcore/inspect/sourcemap.h>

#include <reportcore/inspect/inspector.h>

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace ReportCore {

namespace {

/// A value or an object as it stands in a file; without place one that doesn't.
struct Entry
{
    FilePlace place;
    FieldPath path;
    QString value; ///< null of an object
};

/// What stands where, as far as it is asked for.
class SourceMap
{
public:
    void Want(const Finding& finding)
    {
        if (!finding.path) {
            m_ends.try_emplace(finding.end);
            return;
        }
        FieldPath wanted = *finding.path;
        while (m_paths.try_emplace(wanted).second && !wanted.IsEmpty())
            wanted = wanted.Parent();
    }

    void Take(const Event& event)
    {
        if (event.role == Event::Role::None || event.role == Event::Role::Element)
            return;
        const auto path = event.role == Event::Role::Unknown ? m_paths.end() : m_paths.find(*event.path);
        const auto end = event.readTo < 0 ? m_ends.end() : m_ends.find(event.readTo);
        if (path == m_paths.end() && end == m_ends.end())
            return;
        const Entry entry = {event.inspector->PlaceOf(event.place), *event.path, event.value};
        if (path != m_paths.end())
            path->second = entry;
        if (end != m_ends.end()) {
            const bool isOfValue = event.role == Event::Role::Value || event.role == Event::Role::Size;
            (isOfValue ? end->second.value : end->second.object) = entry;
        }
    }

    void LocatePath(Finding& finding) const
    {
        FieldPath next = *finding.path;
        const Entry* entry = &m_paths.at(next);
        while (!entry->place.IsKnown() && !next.IsEmpty()) {
            next = next.Parent();
            entry = &m_paths.at(next);
        }
        finding.problem.path = finding.path->Text();
        finding.problem.place = entry->place;
        if (next == *finding.path)
            finding.problem.value = entry->value;
    }

    void LocateEnd(Finding& finding, const Inspector& inspector) const
    {
        const Ending& ending = m_ends.at(finding.end);
        const bool isObject = ending.object.place.IsKnown() &&
                              (finding.problem.Is(INCOMPLETE) || !ending.value.place.IsKnown());
        const Entry& entry = isObject ? ending.object : ending.value;
        if (!entry.place.IsKnown()) {
            finding.problem.place = inspector.PlaceOf(finding.end);
            return;
        }
        finding.path = entry.path;
        finding.problem.path = entry.path.Text();
        finding.problem.place = entry.place;
        finding.problem.value = entry.value;
    }

private:
    struct Ending
    {
        Entry value;
        Entry object;
    };

    std::unordered_map<qint64, Ending> m_ends;
    std::unordered_map<FieldPath, Entry, FieldPathHash> m_paths;
};

} // namespace

void Locate(Findings& findings, const QByteArray& bytes, const FileForm& form)
{
    if (findings.empty())
        return;
    SourceMap map;
    for (const Finding& finding : findings)
        map.Want(finding);
    const auto inspector = Inspector::Of(bytes, form, [&map](const Event& event) { map.Take(event); });
    inspector->Run();
    for (Finding& finding : findings) {
        if (finding.path)
            map.LocatePath(finding);
        else if (finding.end >= 0)
            map.LocateEnd(finding, *inspector);
    }
}

Problems ProblemsOf(const Findings& findings)
{
    Problems problems;
    std::transform(findings.begin(), findings.end(), std::back_inserter(problems),
                   [](const Finding& finding) { return finding.problem; });
    return problems;
}

} // namespace ReportCore
