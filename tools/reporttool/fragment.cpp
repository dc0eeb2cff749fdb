#include <reporttool/fragment.h>

#include <QtCore/QStringList>
#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <cstddef>

namespace ReportTool {

namespace {

/// Several elements need one around them to be a document.
constexpr char ROOT[] = "<Fragment>";
constexpr char ROOT_END[] = "</Fragment>";

/// Deeper elements are named as if they stood here: paths would take room by the square of the depth.
constexpr int DEEPEST = 16;

/// Where tags begin in the text between the tags of the root. It only goes forwards.
class Cursor
{
public:
    explicit Cursor(const QString& whole) : m_whole(whole) {}

    /// To the tag that ends there.
    void GoToTag(qint64 end)
    {
        // No tag has another "<" in it.
        const auto start = m_whole.lastIndexOf(QLatin1Char('<'), static_cast<int>(end) - 1);
        for (; m_position < start; ++m_position) {
            if (m_whole.at(m_position) == QLatin1Char('\n')) {
                ++m_line;
                m_lineStart = m_position + 1;
            }
        }
    }

    qint64 Line() const { return m_line; }
    qint64 Column() const { return m_position - m_lineStart + 1; }

private:
    const QString& m_whole;
    qint64 m_line = 1;
    int m_lineStart = sizeof ROOT - 1;
    int m_position = 0;
};

} // namespace

Fragment Fragment::Parse(const QString& text)
{
    const QString whole = QLatin1String(ROOT) + text + QLatin1String(ROOT_END);
    Fragment fragment;
    QXmlStreamReader reader(whole);
    Cursor cursor(whole);
    QStringList path;
    int depth = -1;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::EndElement) {
            --depth;
            path = path.mid(0, depth);
        }
        if (token != QXmlStreamReader::StartElement || ++depth == 0)
            continue;
        cursor.GoToTag(reader.characterOffset());
        FragmentPart part = {reader.name().toString(), QString(), cursor.Line(), cursor.Column(), depth};
        if (depth <= DEEPEST)
            path << part.name;
        part.path = path.join(QLatin1Char('.'));
        fragment.m_parts.push_back(part);
        for (const QXmlStreamAttribute& attribute : reader.attributes())
            fragment.m_parts.push_back({QString(), part.path + QLatin1Char('@') + attribute.name().toString(),
                                        part.line, part.column, depth + 1});
    }
    if (reader.hasError())
        throw FragmentError{QStringLiteral("line %1: %2").arg(reader.lineNumber()).arg(reader.errorString())};
    fragment.FindEnds();
    return fragment;
}

void Fragment::FindEnds()
{
    m_ends.resize(m_parts.size());
    for (std::size_t i = m_parts.size(); i-- > 0;) {
        std::size_t end = i + 1;
        while (end < m_parts.size() && m_parts[end].depth > m_parts[i].depth)
            end = m_ends[end];
        m_ends[i] = end;
    }
}

const FragmentPart* Fragment::FindElement(const QString& name) const
{
    const auto found = std::find_if(m_parts.begin(), m_parts.end(),
                                    [&name](const FragmentPart& part) { return part.name == name; });
    return found == m_parts.end() ? nullptr : &*found;
}

void Fragment::MarkTaken(const FragmentPart& element, const QString& written)
{
    QSet<QString> paths;
    for (const FragmentPart& part : Parse(written).m_parts)
        paths.insert(part.path);
    const auto index = static_cast<std::size_t>(&element - m_parts.data());
    const auto prefix = element.path.size() - element.name.size();
    const std::size_t end = m_ends[index];
    for (std::size_t i = index; i < end; ++i)
        m_parts[i].isTaken = m_parts[i].isTaken || paths.contains(m_parts[i].path.mid(prefix));
}

std::vector<const FragmentPart*> Fragment::NotTaken() const
{
    // Where the next one is that was taken.
    std::vector<std::size_t> nextTaken(m_parts.size() + 1, m_parts.size());
    for (std::size_t i = m_parts.size(); i-- > 0;)
        nextTaken[i] = m_parts[i].isTaken ? i : nextTaken[i + 1];
    std::vector<const FragmentPart*> rest;
    for (std::size_t i = 0; i < m_parts.size();) {
        const bool holdsTaken = nextTaken[i] < m_ends[i];
        if (!holdsTaken)
            rest.push_back(&m_parts[i]);
        i = holdsTaken ? i + 1 : m_ends[i];
    }
    return rest;
}

} // namespace ReportTool
