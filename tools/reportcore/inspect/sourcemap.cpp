#include <reportcore/inspect/sourcemap.h>

#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/inspect/xmlinspector.h>

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

void SourceMap::SearchXml(const QByteArray& bytes)
{
    m_isXml = true;
    m_text = SourceText(bytes);
    if (!m_ends.empty() || !m_paths.empty())
        XmlInspector(bytes, m_text.Text(), [this](const XmlEvent& event) { Take(event); }).Run();
}

void SourceMap::SearchBinary(const QByteArray& bytes, bool isBinaryFile)
{
    BinaryInspector inspector(bytes, isBinaryFile, [this](const WireField& field) { Take(field); });
    inspector.Envelope();
    m_isCompressed = inspector.IsCompressed();
    m_bodyOffset = inspector.BodyOffset();
    inspector.Body();
}

void SourceMap::Take(const Event& event)
{
    if (event.role == Event::Role::None)
        return;
    const auto path = event.role == Event::Role::Unknown ? m_paths.end() : m_paths.find(*event.path);
    const auto end = event.readTo < 0 ? m_ends.end() : m_ends.find(event.readTo - m_bodyOffset);
    if (path == m_paths.end() && end == m_ends.end())
        return;
    const SourceEntry entry = {PlaceOf(event.place - m_bodyOffset), *event.path, event.value};
    if (path != m_paths.end())
        path->second = entry;
    if (end != m_ends.end())
        (event.role == Event::Role::Value ? end->second.value : end->second.object) = entry;
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

const SourceEntry* SourceMap::FindNearest(const FieldPath& path) const
{
    FieldPath next = path;
    const SourceEntry* entry = FindPath(next);
    while (!entry && !next.IsEmpty()) {
        next = next.Parent();
        entry = FindPath(next);
    }
    return entry;
}

FilePlace SourceMap::PlaceOf(qint64 end) const
{
    return m_isXml ? m_text.PlaceOf(end) : FilePlace{0, 0, m_bodyOffset + end, m_isCompressed};
}

} // namespace ReportCore
