#include <reportcore/inspect/sourcetext.h>

#include <reportcore/form.h>

#include <algorithm>

namespace ReportCore {

SourceText::SourceText(const QByteArray& bytes) : m_text(DecodeXml(bytes)) {}

void SourceText::FindLines() const
{
    m_lines = {0};
    for (int i = 0; i < m_text.size(); ++i) {
        if (m_text.at(i) == QLatin1Char('\n'))
            m_lines.push_back(i + 1);
        else if (m_text.at(i).isLowSurrogate())
            m_secondUnits.push_back(i);
    }
}

FilePlace SourceText::PlaceOf(qint64 position) const
{
    if (m_lines.empty())
        FindLines();
    position = std::min<qint64>(position, m_text.size());
    const auto next = std::upper_bound(m_lines.begin(), m_lines.end(), position);
    const qint64 lineStart = *(next - 1);
    const auto firstOfLine = std::lower_bound(m_secondUnits.begin(), m_secondUnits.end(), lineStart);
    const qint64 secondUnits = std::lower_bound(firstOfLine, m_secondUnits.end(), position) - firstOfLine;
    FilePlace place;
    place.line = next - m_lines.begin();
    place.column = position - lineStart - secondUnits + 1;
    return place;
}

qint64 SourceText::StartOfTag(qint64 end) const
{
    if (end <= 0 || end > m_text.size())
        return end;
    // No tag has another "<" in it.
    const auto start = m_text.lastIndexOf(QLatin1Char('<'), static_cast<int>(end) - 1);
    return start < 0 ? end : start;
}

SourceText::Attribute SourceText::FindAttribute(qint64 begin, qint64 end, const QString& name) const
{
    for (auto i = m_text.indexOf(name, static_cast<int>(begin)); i >= 0 && i < end;
         i = m_text.indexOf(name, i + 1)) {
        auto next = i + name.size();
        while (next < end && IsXmlBlank(m_text.at(next).unicode()))
            ++next;
        const bool isName =
            IsXmlBlank(m_text.at(i - 1).unicode()) && next < end && m_text.at(next) == QLatin1Char('=');
        if (!isName)
            continue;
        do
            ++next;
        while (next < end && IsXmlBlank(m_text.at(next).unicode()));
        const auto close = next < end ? m_text.indexOf(m_text.at(next), next + 1) : -1;
        return {i, close < 0 ? end : std::min<qint64>(close + 1, end), next + 1};
    }
    return {begin, end, begin};
}

} // namespace ReportCore
