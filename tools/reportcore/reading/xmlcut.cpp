#include <reportcore/reading/xmlcut.h>

#include <reportcore/form.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

namespace ReportCore {

namespace {

using Index = decltype(QByteArray().size());

constexpr char DECLARATION[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
constexpr char COMMENT_BEGIN[] = "<!--";
constexpr char COMMENT_END[] = "-->";
constexpr Index COMMENT_SIGN_SIZE = 3; ///< of the end, and of the begin without "<"

/// Stands where the report was cut out. Documents that know it aren't cut.
constexpr char STAND_IN[] = "cut-out-report";

bool AreBlanks(const QByteArray& bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), IsXmlBlank<char>);
}

/// The first such byte, or `end`. Qt looks at one byte after the other; this is many times as fast in large files.
const char* FindByte(const char* begin, const char* end, char byte)
{
    const void* const found = std::memchr(begin, byte, static_cast<std::size_t>(end - begin));
    return found ? static_cast<const char*>(found) : end;
}

// --- Comments

bool IsXmlCharacter(QChar character)
{
    return character.unicode() >= 0x20 ? character.unicode() < QChar::ReplacementCharacter
                                       : IsXmlBlank(character.unicode());
}

/// Whether the text of a comment may stand in one, as far as that is easily told.
bool IsSoundComment(const QByteArray& text)
{
    const QString characters = QString::fromUtf8(text);
    return !text.contains("--") && !text.endsWith('-') &&
           std::all_of(characters.begin(), characters.end(), IsXmlCharacter);
}

Index BehindBlanks(const QByteArray& bytes, Index begin)
{
    while (begin < bytes.size() && IsXmlBlank(bytes.at(begin)))
        ++begin;
    return begin;
}

/// Leaves comments out of an element, where they stand between tags. One that divides a text does more than comment:
/// only the last piece counts.
class CommentRemover
{
public:
    explicit CommentRemover(QByteArray element) : m_element(std::move(element)) {}

    /// Null when there is a comment that has to stay.
    QByteArray Rest()
    {
        Index begin = 0;
        for (Index comment = FindComment(0); comment >= 0; comment = FindComment(begin)) {
            m_rest.append(m_element.constData() + begin, comment - begin);
            const Index end = BehindComments(comment);
            if (end < 0 || !IsBetweenTags(end))
                return QByteArray();
            begin = end;
        }
        if (begin == 0)
            return m_element;
        return m_rest.append(m_element.constData() + begin, m_element.size() - begin);
    }

private:
    /// Of the next comment; -1 when there is none. Of its signs the rarest one is looked for.
    Index FindComment(Index from) const
    {
        const char* const begin = m_element.constData();
        const char* const end = begin + m_element.size();
        for (const char* sign = FindByte(begin + from, end, '!'); sign != end;
             sign = FindByte(sign + 1, end, '!')) {
            if (sign != begin && IsCommentAt(static_cast<Index>(sign - 1 - begin)))
                return static_cast<Index>(sign - 1 - begin);
        }
        return -1;
    }

    bool IsCommentAt(Index position) const
    {
        return std::strncmp(m_element.constData() + position, COMMENT_BEGIN, sizeof COMMENT_BEGIN - 1) == 0;
    }

    /// Behind all comments that follow each other; -1 when one is malformed.
    Index BehindComments(Index begin) const
    {
        Index next = begin;
        do {
            const Index text = next + COMMENT_SIGN_SIZE + 1;
            const Index end = m_element.indexOf(COMMENT_END, text);
            if (end < 0 || !IsSoundComment(m_element.mid(text, end - text)))
                return -1;
            next = BehindBlanks(m_element, end + COMMENT_SIGN_SIZE);
        } while (next < m_element.size() && IsCommentAt(next));
        return next;
    }

    /// Whether the rest so far ends with a tag, and another one follows that doesn't end the same element.
    bool IsBetweenTags(Index next) const
    {
        Index last = m_rest.size() - 1;
        while (last >= 0 && IsXmlBlank(m_rest.at(last)))
            --last;
        if (last < 0 || m_rest.at(last) != '>' || next >= m_element.size() || m_element.at(next) != '<')
            return false;
        const Index tag = m_rest.lastIndexOf('<', last);
        const bool isBehindEnd = tag >= 0 && m_rest.at(tag + 1) == '/';
        const bool isBeforeEnd = m_element.mid(next, 2) == "</";
        return isBehindEnd || !isBeforeEnd;
    }

    const QByteArray m_element;
    QByteArray m_rest;
};

// --- What stands around the report

bool IsUtf8(const QString& encoding)
{
    return encoding.isEmpty() || encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) == 0;
}

/// The name of the root element; null when the document isn't sound, when the report isn't the only one, or when what is
/// declared there could mean something to the report.
QString RootAround(const QByteArray& before, const QByteArray& behind)
{
    if (before.contains(STAND_IN) || behind.contains(STAND_IN))
        return QString();
    const QString report = REPORTGENERATOR::ReportBase::GetStaticObjectName();
    QXmlStreamReader reader(before + '<' + STAND_IN + "/>" + behind);
    QString rootName;
    bool hasStandIn = false;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        const bool isDeclared =
            token == QXmlStreamReader::DTD || token == QXmlStreamReader::EntityReference ||
            (token == QXmlStreamReader::StartDocument && !IsUtf8(reader.documentEncoding().toString()));
        if (isDeclared)
            return QString();
        if (token != QXmlStreamReader::StartElement)
            continue;
        const bool isStandIn = reader.name() == QLatin1String(STAND_IN);
        if (reader.name() == report)
            return QString();
        hasStandIn = hasStandIn || isStandIn;
        if (rootName.isNull())
            rootName = isStandIn ? report : reader.name().toString();
    }
    return hasStandIn && !reader.hasError() ? rootName : QString();
}

/// Whether nothing stands there but a declaration as it usually is.
bool IsUsualBegin(const QByteArray& before)
{
    return AreBlanks(before.startsWith(DECLARATION) ? before.mid(int(sizeof DECLARATION) - 1) : before);
}

} // namespace

XmlCut CutReport(const QByteArray& bytes)
{
    static const QByteArray name = REPORTGENERATOR::ReportBase::GetStaticObjectName().toLatin1();
    static const QByteArray endTag = "</" + name + '>';
    const Index begin = bytes.indexOf('<' + name);
    const Index end = bytes.lastIndexOf(endTag);
    if (begin < 0 || end < begin)
        return {};
    const QByteArray before = bytes.left(begin);
    const QByteArray behind = bytes.mid(end + endTag.size());
    XmlCut cut;
    cut.rootName =
        IsUsualBegin(before) && AreBlanks(behind) ? QString::fromLatin1(name) : RootAround(before, behind);
    if (cut.rootName.isNull())
        return {};
    cut.element =
        CommentRemover(QByteArray::fromRawData(bytes.constData() + begin, end + endTag.size() - begin))
            .Rest();
    return cut;
}

} // namespace ReportCore
