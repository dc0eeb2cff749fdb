#include <reportcore/reportdocument.h>

#include <reportcore/form.h>
#include <reportcore/inspect/inspector.h>
#include <reportcore/inspect/sourcetext.h>
#include <reportcore/lint.h>
#include <reportcore/losses.h>

#include <algorithm>
#include <utility>

namespace ReportCore {

namespace {

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

    void Take(const Event& event)
    {
        switch (event.kind) {
        case Event::Kind::DocumentType:
            m_documentType = event.value;
            break;
        case Event::Kind::Surrounding:
            TakeRoot(event);
            m_around.push_back(event.inspector->Text().mid(static_cast<int>(event.begin),
                                                           static_cast<int>(event.end - event.begin)));
            break;
        case Event::Kind::SurroundingEnd:
            m_around.pop_back();
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
        case Event::Kind::Malformed:
            m_ranges.clear();
            break;
        default:
            break;
        }
    }

    /// Empty where the document is not well-formed.
    const std::vector<Range>& Found() const { return m_ranges; }

    const QString& RootName() const { return m_rootName; }

private:
    /// Behind a name in a tag.
    static bool EndsName(QChar unit)
    {
        return IsXmlBlank(unit.unicode()) || unit == QLatin1Char('>') || unit == QLatin1Char('/');
    }

    void TakeRoot(const Event& event)
    {
        if (m_rootName.isNull())
            m_rootName = event.name;
    }

    /// The elements around it may declare namespaces, the document type entities.
    void Begin(const Event& event)
    {
        TakeRoot(event);
        Range range = {event.begin, event.begin, m_documentType, QString()};
        for (const QString& tag : m_around) {
            range.before += tag;
            const auto end = std::find_if(tag.cbegin(), tag.cend(), EndsName);
            const auto size = static_cast<int>(end - tag.cbegin());
            range.behind.prepend(QStringLiteral("</%1>").arg(tag.mid(1, size - 1)));
        }
        m_ranges.push_back(range);
    }

    QString m_rootName;
    QString m_documentType;
    std::vector<QString> m_around; ///< start tags
    std::vector<Range> m_ranges;
};

/// UTF-8 has no half of a surrogate pair; texts may.
QByteArray Encoded(const QString& text)
{
    QByteArray bytes = text.toUtf8();
    if (QString::fromUtf8(bytes.constData(), bytes.size()) == text)
        return bytes;
    const QString marked = QChar(QChar::ByteOrderMark) + text;
    return QByteArray(reinterpret_cast<const char*>(marked.utf16()),
                      static_cast<int>(marked.size() * qint64(sizeof(QChar))));
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
    ReportRanges ranges;
    const auto inspector = Inspector::OfXml(bytes, [&ranges](const Event& event) { ranges.Take(event); });
    inspector->Run();
    m_rootName = ranges.RootName();
    if (ranges.Found().size() < 2)
        return;
    for (const ReportRanges::Range& range : ranges.Found()) {
        const QString report =
            inspector->Text().mid(static_cast<int>(range.begin), static_cast<int>(range.end - range.begin));
        const QByteArray part = Encoded(range.before + report + range.behind);
        m_parts.push_back(
            {part, SourceText(part).PlaceOf(range.before.size()), inspector->PlaceOf(range.begin)});
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
