#include <reportcore/reportdocument.h>

#include <reportcore/form.h>
#include <reportcore/inspect/sourcetext.h>
#include <reportcore/inspect/xmlinspector.h>
#include <reportcore/lint.h>
#include <reportcore/losses.h>

#include <algorithm>
#include <utility>

namespace ReportCore {

namespace {

// An element around a report that declares the namespaces of one around it in the document.

constexpr char START_OF_NAMESPACES[] = "<namespaces";
constexpr char END_OF_NAMESPACES[] = "</namespaces>";

/// Where the reports of a document stand.
class ReportRanges
{
public:
    struct Range
    {
        qint64 begin = 0;
        qint64 end = 0;
        QString before; ///< what of the document the report needs in front of it
        QString behind;
    };

    explicit ReportRanges(const QByteArray& bytes)
        : m_inspector(
              bytes, [this](const Event& event) { Take(event); }, Inspector::Extent::Document)
    {
    }

    /// Empty where the document is not well-formed.
    std::vector<Range> Find()
    {
        m_inspector.Run();
        return m_inspector.HasError() ? std::vector<Range>() : std::move(m_ranges);
    }

    const QString& RootName() const { return m_rootName; }

    /// Knows the document.
    const XmlInspector& Source() const { return m_inspector; }

private:
    void Take(const Event& event)
    {
        switch (event.kind) {
        case Event::Kind::DocumentType:
            m_documentType = event.value;
            break;
        case Event::Kind::Surrounding:
            TakeRoot(event);
            m_namespaces.push_back(StartOfNamespaces());
            break;
        case Event::Kind::SurroundingEnd:
            m_namespaces.pop_back();
            break;
        case Event::Kind::StartTag:
        case Event::Kind::AnotherReport:
            if (event.path->IsEmpty())
                Begin(event);
            break;
        case Event::Kind::EndTag:
        case Event::Kind::AnotherReportEnd:
            if (event.path->IsEmpty())
                m_ranges.back().end = event.end;
            break;
        default:
            break;
        }
    }

    void TakeRoot(const Event& event)
    {
        if (m_rootName.isNull())
            m_rootName = event.name;
    }

    void Begin(const Event& event)
    {
        TakeRoot(event);
        Range range = {event.begin, event.begin, m_documentType, QString()};
        // The inner ones hide the outer ones.
        for (const QString& start : m_namespaces) {
            range.before += start;
            range.behind += QLatin1String(start.isEmpty() ? "" : END_OF_NAMESPACES);
        }
        m_ranges.push_back(range);
    }

    /// Of the start tag that comes up; empty where it declares none.
    QString StartOfNamespaces() const
    {
        const QXmlStreamNamespaceDeclarations declarations = m_inspector.Namespaces();
        QString text = QLatin1String(START_OF_NAMESPACES);
        for (const QXmlStreamNamespaceDeclaration& declaration : declarations) {
            const QString prefix = declaration.prefix().toString();
            text += QStringLiteral(" xmlns%1=\"%2\"")
                        .arg(prefix.isEmpty() ? QString() : QLatin1Char(':') + prefix,
                             declaration.namespaceUri().toString().toHtmlEscaped());
        }
        return declarations.isEmpty() ? QString() : text + QLatin1Char('>');
    }

    XmlInspector m_inspector;
    QString m_rootName;
    QString m_documentType;
    std::vector<QString> m_namespaces; ///< of the elements around
    std::vector<Range> m_ranges;
};

/// UTF-8 has no half of a surrogate pair; texts may.
QByteArray Encoded(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    if (QString::fromUtf8(bytes.constData(), bytes.size()) == text)
        return bytes;
    const QString marked = QChar(QChar::ByteOrderMark) + text;
    return QByteArray(reinterpret_cast<const char*>(marked.utf16()),
                      static_cast<int>(marked.size() * qint64(sizeof(QChar))));
}

FilePlace PlaceIn(const QByteArray& bytes, qint64 position)
{
    return SourceText(bytes).PlaceOf(position);
}

bool IsAround(const Problem& loss)
{
    return loss.Is(SURROUNDING_ELEMENT);
}

bool IsBeside(const Problem& loss)
{
    return IsAround(loss) || loss.Is(SECOND_REPORT);
}

bool IsWithin(const Problem& loss)
{
    return !IsBeside(loss);
}

template <typename Test>
Problems Without(const Test& test, Problems losses)
{
    losses.erase(std::remove_if(losses.begin(), losses.end(), test), losses.end());
    return losses;
}

} // namespace

ReportDocument::ReportDocument(const QByteArray& bytes) : m_bytes(bytes)
{
    if (Recognise(bytes).form != Form::Xml)
        return;
    ReportRanges ranges(bytes);
    const std::vector<ReportRanges::Range> found = ranges.Find();
    m_rootName = ranges.RootName();
    if (found.size() < 2)
        return;
    const XmlInspector& source = ranges.Source();
    for (const ReportRanges::Range& range : found) {
        const auto size = static_cast<int>(range.end - range.begin);
        const QByteArray part =
            Encoded(range.before + source.Text().mid(static_cast<int>(range.begin), size) + range.behind);
        m_parts.push_back({part, PlaceIn(part, range.before.size()), source.PlaceOf(range.begin)});
    }
}

int ReportDocument::Count() const
{
    return std::max(1, static_cast<int>(m_parts.size()));
}

ReportFile ReportDocument::Read(int index) const
{
    if (!IsDivided())
        return ReadReport(m_bytes);
    const Part& part = m_parts.at(static_cast<std::size_t>(index));
    ReportFile file = ReadReport(part.bytes);
    file.size = m_bytes.size();
    file.objectName = m_rootName;
    file.problems = Moved(std::move(file.problems), part);
    return file;
}

Problems ReportDocument::LossesOf(int index, const ReportFile& file) const
{
    if (!IsDivided())
        return Without(&IsBeside, FindLosses(m_bytes, file));
    const Part& part = m_parts.at(static_cast<std::size_t>(index));
    return Moved(Without(&IsBeside, FindLosses(part.bytes, file)), part);
}

Problems ReportDocument::LossesBeside(int index) const
{
    const Problems all = FindLosses(m_bytes, ReadReport(m_bytes));
    if (!IsDivided())
        return Without(&IsWithin, all);
    Problems losses = Without([](const Problem& loss) { return !IsAround(loss); }, all);
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        if (static_cast<int>(i) != index)
            losses.push_back(
                {QLatin1String(SECOND_REPORT), QStringLiteral("another report"), m_parts[i].wholePlace});
    }
    std::stable_sort(losses.begin(), losses.end(), StandsBefore);
    return losses;
}

Problems ReportDocument::Moved(Problems problems, const Part& part)
{
    for (Problem& problem : problems) {
        FilePlace& place = problem.place;
        if (place.line == part.place.line)
            place.column += part.wholePlace.column - part.place.column;
        if (place.line > 0)
            place.line += part.wholePlace.line - part.place.line;
    }
    return problems;
}

} // namespace ReportCore
