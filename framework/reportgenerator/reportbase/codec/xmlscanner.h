#ifndef REPORTGENERATOR_CODEC_XMLSCANNER_H
#define REPORTGENERATOR_CODEC_XMLSCANNER_H

#include <reportgenerator/reportbase/codec/fixednumbers.h>
#include <reportgenerator/reportbase/codec/name.h>
#include <reportgenerator/reportbase/codec/taggedelements.h>

#include <QtCore/QString>

#include <algorithm>
#include <cstddef>
#include <type_traits>

namespace REPORTGENERATOR {

/// Reads XML of the shape that the library writes: start tags with attributes in double quotes, end tags,
/// blanks and comments between them, and texts without markup and with no other references than to the characters that XML
/// itself uses. Whatever else XML knows, it calls odd by returning false. `Unit` is the unit of UTF-16 or a byte of UTF-8.
template <class Unit>
class XmlScanner
{
public:
    XmlScanner(const Unit* begin, const Unit* end) : m_next(begin), m_end(end) {}

    const Unit* Next() const { return m_next; }
    const Unit* End() const { return m_end; }
    void SetNext(const Unit* next) { m_next = next; }

    /// How many tags follow at most. Counted in steps of the unit's own width, which compilers turn into few
    /// instructions for many units.
    qint64 CountTags() const
    {
        qint64 count = 0;
        for (const Unit* next = m_next; next != m_end;) {
            const auto size = std::min<std::ptrdiff_t>(m_end - next, MOST_IN_A_UNIT);
            std::make_unsigned_t<Unit> tags = 0;
            for (std::ptrdiff_t i = 0; i < size; ++i)
                tags = static_cast<std::make_unsigned_t<Unit>>(tags + (next[i] == '<' ? 1 : 0));
            count += tags;
            next += size;
        }
        return count;
    }

    bool IsAtEndOfBlanks()
    {
        SkipBlanks();
        return m_next == m_end;
    }

    /// Goes into the start tag of an element `name` if one follows; attributes may come.
    bool EnterTag(const Name& name)
    {
        const Unit* const before = m_next;
        SkipBlanks();
        if (TakeBeginOfTag(name) || (IsAtComment() && SkipComments() && TakeBeginOfTag(name)))
            return true;
        m_next = before;
        return false;
    }

    /// The end of a start tag.
    bool LeaveTag()
    {
        SkipBlanks();
        return Take('>');
    }

    /// Hands the text of an attribute `name` to `read` if that one comes next. Returns false when it doesn't, when
    /// `read` does, and when the text goes on; the attribute then is still to come, which makes the tag an odd one.
    template <class Read>
    bool Attribute(const Name& name, Read&& read)
    {
        const Unit* const before = m_next;
        SkipBlanks();
        if (m_next != before && Take(name) && Take('=') && Take('"') && read(*this) && Take('"'))
            return true;
        m_next = before;
        return false;
    }

    /// An end tag that stands behind another tag or a text. A comment would divide the text.
    bool EndTag(const Name& name)
    {
        const bool isBehindTag = m_next[-1] == '>';
        SkipBlanks();
        return TakeEndTag(name) || (isBehindTag && IsAtComment() && SkipComments() && TakeEndTag(name));
    }

    /// An end tag that stands directly behind a text.
    bool TakeEndTag(const Name& name)
    {
        const Unit* const before = m_next;
        if (Take('<') && Take('/') && Take(name) && Take('>'))
            return true;
        m_next = before;
        return false;
    }

    /// Goes behind the comments that follow. Returns whether there are any.
    bool PassComments()
    {
        const Unit* const before = m_next;
        const Unit* const behind = SkipComments();
        m_next = behind ? behind : before;
        return m_next != before;
    }

    // Values

    bool Read(double& value)
    {
        const Unit* const end = numbers::ReadFixedPrefix(m_next, m_end, value);
        if (!end)
            return false;
        m_next = end;
        return true;
    }

    bool Read(bool& value)
    {
        value = Take(TRUE);
        return value || Take(FALSE);
    }

    /// Takes a text only if it holds nothing that a reader looks at twice, but for the characters that are always
    /// written as references.
    bool Read(QString& value)
    {
        if (!ReadPiece(value))
            return false;
        while (m_next != m_end && *m_next == '&') {
            QString piece;
            if (!TakeReference(value) || !ReadPiece(piece))
                return false;
            value += piece;
        }
        return std::all_of(value.cbegin(), value.cend(), IsPlain);
    }

    bool Take(const Name& name)
    {
        if (m_end - m_next < name.size)
            return false;
        for (int i = 0; i < name.size; ++i) {
            if (m_next[i] != static_cast<Unit>(name.latin1[i]))
                return false;
        }
        m_next += name.size;
        return true;
    }

private:
    static constexpr std::ptrdiff_t MOST_IN_A_UNIT = 255;

    static constexpr Name COMMENT_BEGIN = REPORTBASE_NAME("<!--");
    static constexpr Name COMMENT_END = REPORTBASE_NAME("-->");
    static constexpr Name DASHES = REPORTBASE_NAME("--");

    static constexpr Name TRUE = REPORTBASE_NAME("true");
    static constexpr Name FALSE = REPORTBASE_NAME("false");

    /// A character that XML has a name for.
    struct Reference
    {
        Name name;
        char character;
    };

    static constexpr Reference REFERENCES[] = {{REPORTBASE_NAME("&amp;"), '&'},
                                               {REPORTBASE_NAME("&lt;"), '<'},
                                               {REPORTBASE_NAME("&gt;"), '>'},
                                               {REPORTBASE_NAME("&quot;"), '"'},
                                               {REPORTBASE_NAME("&apos;"), '\''}};

    /// The units that stand for themselves.
    bool ReadPiece(QString& piece)
    {
        const Unit* const begin = m_next;
        m_next = std::find_if_not(m_next, m_end, IsContent);
        return Decode(begin, piece);
    }

    /// The units from `begin` up to where the scanner stands.
    bool Decode(const Unit* begin, QString& piece) const
    {
        const auto size = static_cast<int>(m_next - begin);
        if constexpr (sizeof(Unit) == sizeof(QChar)) {
            piece = QString(reinterpret_cast<const QChar*>(begin), size);
            return true;
        } else {
            piece = QString::fromUtf8(begin, size);
            // What is not UTF-8 does not come back.
            return piece.toUtf8() == QByteArray::fromRawData(begin, size);
        }
    }

    bool TakeReference(QString& text)
    {
        for (const Reference& reference : REFERENCES) {
            if (Take(reference.name)) {
                text += QLatin1Char(reference.character);
                return true;
            }
        }
        return false;
    }

    static bool IsSame(char left, Unit right) { return static_cast<Unit>(left) == right; }

    template <class Character>
    static bool IsBlank(Character unit)
    {
        return unit == ' ' || unit == '\n' || unit == '\t' || unit == '\r';
    }

    static bool IsContent(Unit unit) { return unit != '<' && unit != '&' && unit != '>'; }

    /// A character that stands for itself and needs no second unit.
    static bool IsPlain(QChar character)
    {
        constexpr ushort firstSurrogate = 0xD800;
        return character.unicode() >= ' ' && character.unicode() < firstSurrogate;
    }

    static bool IsPlainAscii(Unit unit) { return (unit >= ' ' && unit < 0x7F) || IsBlank(unit); }

    bool Take(char character)
    {
        if (m_next == m_end || *m_next != static_cast<Unit>(character))
            return false;
        ++m_next;
        return true;
    }

    void SkipBlanks()
    {
        while (m_next != m_end && IsBlank(*m_next))
            ++m_next;
    }

    /// '<' and the whole name; or else the scanner stays where it is.
    bool TakeBeginOfTag(const Name& name)
    {
        const Unit* const before = m_next;
        if (Take('<') && Take(name) && m_next != m_end && (*m_next == '>' || IsBlank(*m_next)))
            return true;
        m_next = before;
        return false;
    }

    /// Or at something else that is markup and no tag.
    bool IsAtComment() const { return m_end - m_next > 1 && m_next[1] == '!'; }

    /// Blanks and comments. Returns where the last comment ends, or else where the scanner stood; null at one in which
    /// something stands that may not.
    Q_NEVER_INLINE const Unit* SkipComments()
    {
        const Unit* behind = m_next;
        for (SkipBlanks(); Take(COMMENT_BEGIN); SkipBlanks()) {
            const Unit* const begin = m_next;
            m_next = std::search(m_next, m_end, DASHES.latin1, DASHES.latin1 + DASHES.size,
                                 [](Unit unit, char dash) { return IsSame(dash, unit); });
            if (!MayBeComment(begin) || !Take(COMMENT_END))
                return nullptr;
            behind = m_next;
        }
        return behind;
    }

    /// Whether the units from `begin` up to where the scanner stands may be a comment's.
    bool MayBeComment(const Unit* begin) const
    {
        if (std::all_of(begin, m_next, IsPlainAscii))
            return true;
        QString text;
        return Decode(begin, text) && std::all_of(text.cbegin(), text.cend(), [](QChar character) {
                   return IsPlain(character) || IsBlank(character.unicode());
               });
    }

    const Unit* m_next;
    const Unit* m_end;
};

} // namespace REPORTGENERATOR

#endif
