#include <reportcore/sourcemap.h>

#include <reportcore/xmlwalk.h>

#include <algorithm>

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

void SourceMap::TakeText(const QByteArray& bytes)
{
    m_isXml = true;
    m_text = DecodeXml(bytes);
    m_lines = {0};
    for (int i = 0; i < m_text.size(); ++i) {
        if (m_text.at(i) == QLatin1Char('\n'))
            m_lines.push_back(i + 1);
        else if (m_text.at(i).isLowSurrogate())
            m_secondUnits.push_back(i);
    }
}

const SourceEntry* SourceMap::FindEnd(qint64 end, bool isObject) const
{
    const auto found = m_ends.find(end);
    if (found == m_ends.end())
        return nullptr;
    const Ending& ending = found->second;
    if (ending.hasObject && (isObject || !ending.hasValue))
        return &ending.object;
    return ending.hasValue ? &ending.value : nullptr;
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
    FilePlace place;
    if (!m_isXml) {
        place.offset = m_bodyOffset + end;
        place.isUncompressed = m_isCompressed;
        return place;
    }
    end = std::min<qint64>(end, m_text.size());
    const auto next = std::upper_bound(m_lines.begin(), m_lines.end(), end);
    const qint64 lineStart = *(next - 1);
    const auto firstOfLine = std::lower_bound(m_secondUnits.begin(), m_secondUnits.end(), lineStart);
    const qint64 secondUnits = std::lower_bound(firstOfLine, m_secondUnits.end(), end) - firstOfLine;
    place.line = next - m_lines.begin();
    place.column = end - lineStart - secondUnits + 1;
    return place;
}

qint64 SourceMap::StartOfTag(qint64 end) const
{
    return XmlWalk::StartOfTag(m_text, end);
}

qint64 SourceMap::StartOfValue(qint64 end, const QString& attribute) const
{
    return XmlWalk::FindAttribute(m_text, StartOfTag(end), end, attribute).valueBegin;
}

void SourceMap::Add(const SourceEntry& entry)
{
    const auto found = m_paths.find(entry.path);
    if (found != m_paths.end())
        found->second = entry;
}

void SourceMap::AddEnd(qint64 end, const SourceEntry& entry, bool isObject)
{
    const auto found = m_ends.find(end);
    if (found == m_ends.end())
        return;
    Ending& ending = found->second;
    if (isObject) {
        ending.hasObject = true;
        ending.object = entry;
    } else {
        ending.hasValue = true;
        ending.value = entry;
    }
}

} // namespace ReportCore
