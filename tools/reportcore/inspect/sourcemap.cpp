#include <reportcore/inspect/sourcemap.h>

namespace ReportCore {

void SourceMap::WantEnd(qint64 end)
{
    m_ends.try_emplace(end);
}

void SourceMap::WantPath(const FieldPath& path)
{
    FieldPath wanted = path;
    while (m_paths.try_emplace(wanted).second && !wanted.IsEmpty())
        wanted = wanted.Parent();
}

void SourceMap::Search(const QByteArray& bytes, const FileForm& form)
{
    m_inspector = Inspector::Of(bytes, form, [this](const Event& event) { Take(event); });
    if (!m_ends.empty() || !m_paths.empty())
        m_inspector->Run();
}

void SourceMap::Take(const Event& event)
{
    if (event.role == Event::Role::None || event.role == Event::Role::Element)
        return;
    const auto path = event.role == Event::Role::Unknown ? m_paths.end() : m_paths.find(*event.path);
    const auto end = event.readTo < 0 ? m_ends.end() : m_ends.find(event.readTo);
    if (path == m_paths.end() && end == m_ends.end())
        return;
    const SourceEntry entry = {PlaceOf(event.place), *event.path, event.value};
    if (path != m_paths.end())
        path->second = entry;
    if (end != m_ends.end()) {
        const bool isOfValue = event.role == Event::Role::Value || event.role == Event::Role::Size;
        (isOfValue ? end->second.value : end->second.object) = entry;
    }
}

const SourceEntry* SourceMap::FindEnd(qint64 end, bool isObject) const
{
    const auto found = m_ends.find(end);
    if (found == m_ends.end())
        return nullptr;
    const Ending& ending = found->second;
    if (ending.object && (isObject || !ending.value))
        return &*ending.object;
    return ending.value ? &*ending.value : nullptr;
}

const SourceEntry* SourceMap::FindPath(const FieldPath& path) const
{
    const auto found = m_paths.find(path);
    return found == m_paths.end() || !found->second.place.IsKnown() ? nullptr : &found->second;
}

void SourceMap::Locate(Problem& problem, const FieldPath& path) const
{
    problem.path = path.Text();
    FieldPath next = path;
    const SourceEntry* entry = FindPath(next);
    while (!entry && !next.IsEmpty()) {
        next = next.Parent();
        entry = FindPath(next);
    }
    if (!entry)
        return;
    problem.place = entry->place;
    if (next == path)
        problem.value = entry->value;
}

} // namespace ReportCore
