#ifndef REPORTGENERATOR_CODEC_MARKUPSCANNER_H
#define REPORTGENERATOR_CODEC_MARKUPSCANNER_H

#include <reportgenerator/reportbase/codec/limits.h>

#include <QtCore/QtGlobal>

#include <cstddef>
#include <cstring>
#include <string_view>
#include <vector>

namespace REPORTGENERATOR {

/// Looks through XML for what Qt's reader takes quadratic time for: it compares each attribute of a tag, declared
/// ones included, with all others, and looks for a prefix among all namespaces in scope.
///
/// It is fed the bytes that a reader gets, in pieces of any size, in an encoding that has ASCII in it. Whether
/// the XML is well-formed is the reader's business.
class MarkupScanner
{
public:
    /// What there is too much of.
    enum class Excess : int
    {
        None,
        Attributes, ///< in a tag, or of namespaces in scope
        Declared    ///< attributes in a document type
    };

    /// Looks at the next bytes. Returns false once there is too much of something.
    bool Feed(const char* next, const char* end)
    {
        while (next != end && m_excess == Excess::None)
            next = Step(next, end);
        return m_excess == Excess::None;
    }

    Excess Found() const { return m_excess; }

private:
    enum class Place : int
    {
        Content,
        Opened, ///< behind a '<'
        StartTag,
        Value,
        EndTag,
        Comment,
        CData,
        Instruction,
        DocumentType,
        Literal
    };

    /// An element that declares namespaces, and how many.
    struct Scope
    {
        qint64 depth;
        int namespaces;
    };

    /// Goes through the rest of the place, or one character on.
    const char* Step(const char* next, const char* end)
    {
        switch (m_place) {
        case Place::Content:
            return GoTo('<', Place::Opened, next, end);
        case Place::Opened:
            if (const char* const behind = PassBareTag(next, end))
                return behind;
            break;
        case Place::Value:
            return GoTo(m_quote, Place::StartTag, next, end);
        case Place::EndTag:
            next = GoTo('>', Place::Content, next, end);
            if (m_place == Place::Content)
                Leave();
            return next;
        default:
            break;
        }
        Take(*next);
        return next + 1;
    }

    /// Most start tags have no attributes. Returns null for whatever else.
    const char* PassBareTag(const char* next, const char* end)
    {
        if (m_last != 0 || m_openDeclarations > 0 || *next == '!' || *next == '?' || *next == '/')
            return nullptr;
        const char* const close = Find('>', next, end);
        if (!close || close == next || Find('=', next, close))
            return nullptr;
        Begin(Place::Content);
        m_depth += close[-1] == '/' ? 0 : 1;
        return close + 1;
    }

    static const char* Find(char character, const char* next, const char* end)
    {
        return static_cast<const char*>(std::memchr(next, character, static_cast<std::size_t>(end - next)));
    }

    const char* GoTo(char character, Place behind, const char* next, const char* end)
    {
        const char* const found = Find(character, next, end);
        if (!found)
            return end;
        m_place = behind;
        m_last = 0;
        return found + 1;
    }

    void Take(char character)
    {
        if (m_place == Place::StartTag) {
            TakeOfTag(character);
            return;
        }
        Remember(character);
        switch (m_place) {
        case Place::Opened:
            Enter();
            break;
        case Place::Comment:
            EndBy("-->");
            break;
        case Place::CData:
            EndBy("]]>");
            break;
        case Place::Instruction:
            EndBy("?>");
            break;
        case Place::DocumentType:
            TakeOfDocumentType(character);
            break;
        default:
            TakeOfLiteral(character);
        }
    }

    /// Sees by what comes behind '<' what begins there.
    void Enter()
    {
        if (Is("!") || Is("!-"))
            return;
        if (Is("!--"))
            Begin(Place::Comment);
        else if (Is("?"))
            Begin(Place::Instruction);
        else if (m_openDeclarations == 0 && Is("/"))
            Begin(Place::EndTag);
        else if (m_openDeclarations == 0 && Is("!["))
            Begin(Place::CData);
        else if (m_openDeclarations == 0 && IsOneCharacter())
            BeginTag();
        else
            BeginDeclaration();
    }

    void Begin(Place place)
    {
        m_place = place;
        m_last = 0;
    }

    void EndBy(std::string_view mark)
    {
        if (EndsWith(mark))
            Begin(m_openDeclarations > 0 ? Place::DocumentType : Place::Content);
    }

    // Tags

    void BeginTag()
    {
        m_place = Place::StartTag;
        m_attributes = 0;
        m_namespaces = 0;
    }

    void TakeOfTag(char character)
    {
        if (IsBlank(character)) {
            m_hasBlank = true;
            return;
        }
        if (m_hasBlank && character != '=')
            m_last = 0;
        m_hasBlank = false;
        if (character == '"' || character == '\'') {
            m_quote = character;
            m_place = Place::Value;
            return;
        }
        if (character == '>') {
            EndTag(EndsWith("/"));
            return;
        }
        if ((character == '=' || character == ':') && Is("xmlns"))
            ++m_namespaces;
        if (character == '=' && ++m_attributes > limits::MAX_ATTRIBUTES)
            m_excess = Excess::Attributes;
        Remember(character);
    }

    void EndTag(bool isSelfClosing)
    {
        Begin(Place::Content);
        if (isSelfClosing)
            return;
        ++m_depth;
        if (m_namespaces == 0)
            return;
        m_scopes.push_back({m_depth, m_namespaces});
        m_inScope += m_namespaces;
        if (m_inScope > limits::MAX_ATTRIBUTES)
            m_excess = Excess::Attributes;
    }

    void Leave()
    {
        if (!m_scopes.empty() && m_scopes.back().depth == m_depth) {
            m_inScope -= m_scopes.back().namespaces;
            m_scopes.pop_back();
        }
        --m_depth;
    }

    // Document types, of which entities may hold declarations and tags too

    void BeginDeclaration()
    {
        ++m_openDeclarations;
        m_isAttributeList = false;
        m_place = Place::DocumentType;
    }

    void TakeOfDocumentType(char character)
    {
        if (EndsWith(ATTRIBUTE_LIST))
            m_isAttributeList = true;
        if (character == '"' || character == '\'') {
            m_quote = character;
            if (m_isAttributeList)
                CountDeclared();
            Begin(Place::Literal);
        } else if (character == '<') {
            Begin(Place::Opened);
        } else if (character == '>' && --m_openDeclarations == 0) {
            Begin(Place::Content);
        }
    }

    void TakeOfLiteral(char character)
    {
        if (character == m_quote)
            Begin(Place::DocumentType);
        else if (character == '=')
            CountDeclared();
        else if (EndsWith(ATTRIBUTE_LIST))
            m_excess = Excess::Declared;
    }

    void CountDeclared()
    {
        if (++m_declared > limits::MAX_DECLARED_ATTRIBUTES)
            m_excess = Excess::Declared;
    }

    // The last characters

    void Remember(char character) { m_last = m_last << 8 | static_cast<unsigned char>(character); }

    static constexpr quint64 Packed(std::string_view text)
    {
        quint64 packed = 0;
        for (const char character : text)
            packed = packed << 8 | static_cast<unsigned char>(character);
        return packed;
    }

    /// Whether the place has begun with that text, of fewer than eight characters, and nothing else came.
    bool Is(std::string_view text) const { return m_last == Packed(text); }

    bool IsOneCharacter() const { return m_last <= 0xFF; }

    bool EndsWith(std::string_view text) const
    {
        const quint64 mask = (quint64(1) << (8 * text.size())) - 1;
        return (m_last & mask) == Packed(text);
    }

    static bool IsBlank(char character)
    {
        return character == ' ' || character == '\t' || character == '\n' || character == '\r';
    }

    static constexpr std::string_view ATTRIBUTE_LIST = "ATTLIST";

    Place m_place = Place::Content;
    Excess m_excess = Excess::None;
    quint64 m_last = 0; ///< characters of the place, eight at most
    char m_quote = '\0';
    bool m_hasBlank = false;
    int m_attributes = 0;
    int m_namespaces = 0;
    qint64 m_depth = 0;
    int m_inScope = 0;
    std::vector<Scope> m_scopes;
    int m_openDeclarations = 0;
    bool m_isAttributeList = false;
    int m_declared = 0;
};

} // namespace REPORTGENERATOR

#endif
