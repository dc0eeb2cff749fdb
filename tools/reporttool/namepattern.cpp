#include <reporttool/namepattern.h>

#include <QtCore/QChar>

namespace ReportTool {

namespace {

#ifdef Q_OS_WIN
constexpr bool HAS_ESCAPES = false;
#else
constexpr bool HAS_ESCAPES = true;
#endif

/// Halves of surrogate pairs that stand alone stay: they may be bytes of a name that is no UTF-8.
std::u32string CharactersOf(const QString& text)
{
#ifdef Q_OS_WIN
    const QString counted = text.toCaseFolded();
#else
    const QString& counted = text;
#endif
    std::u32string characters;
    for (int i = 0; i < counted.size(); ++i) {
        const bool isPair =
            counted.at(i).isHighSurrogate() && i + 1 < counted.size() && counted.at(i + 1).isLowSurrogate();
        const uint character =
            isPair ? QChar::surrogateToUcs4(counted.at(i), counted.at(i + 1)) : counted.at(i).unicode();
        characters += static_cast<char32_t>(character);
        i += isPair ? 1 : 0;
    }
    return characters;
}

} // namespace

NamePattern::NamePattern(const QString& pattern) : m_pattern(CharactersOf(pattern)) {}

/// What a star stands for is only ever made longer for the last one: if the rest fits behind a longer piece of an earlier
/// one, it does so behind the last one, too.
bool NamePattern::Fits(const QString& name) const
{
    const std::u32string characters = CharactersOf(name);
    std::size_t place = 0;
    std::size_t behindStar = std::u32string::npos;
    std::size_t endOfStar = 0;
    for (std::size_t i = 0; i < characters.size();) {
        std::size_t end = place;
        if (place < m_pattern.size() && m_pattern[place] == U'*') {
            behindStar = ++place;
            endOfStar = i;
        } else if (place < m_pattern.size() && FitsOne(characters[i], place, end)) {
            place = end;
            ++i;
        } else if (behindStar != std::u32string::npos) {
            place = behindStar;
            i = ++endOfStar;
        } else {
            return false;
        }
    }
    return m_pattern.find_first_not_of(U'*', place) == std::u32string::npos;
}

bool NamePattern::FitsOne(char32_t character, std::size_t begin, std::size_t& end) const
{
    end = begin + 1;
    if (m_pattern[begin] == U'?')
        return true;
    if (m_pattern[begin] == U'[' && FitsSet(character, begin, end))
        return true;
    if (end != begin + 1)
        return false;
    const bool isEscaped = HAS_ESCAPES && m_pattern[begin] == U'\\' && end < m_pattern.size();
    return character == m_pattern[isEscaped ? end++ : begin];
}

/// A bracket that is never closed is a character as others; then the end stays.
bool NamePattern::FitsSet(char32_t character, std::size_t begin, std::size_t& end) const
{
    std::size_t place = begin + 1;
    const bool isOther = place < m_pattern.size() && (m_pattern[place] == U'!' || m_pattern[place] == U'^');
    if (isOther)
        ++place;
    bool isIn = false;
    // What stands first is one of the characters, even if it is the bracket that would end them.
    for (const std::size_t first = place; place < m_pattern.size(); ++place) {
        if (m_pattern[place] == U']' && place != first) {
            end = place + 1;
            return isIn != isOther;
        }
        if (HAS_ESCAPES && m_pattern[place] == U'\\' && place + 1 < m_pattern.size())
            ++place;
        const char32_t lowest = m_pattern[place];
        const bool isRange =
            place + 2 < m_pattern.size() && m_pattern[place + 1] == U'-' && m_pattern[place + 2] != U']';
        if (isRange)
            place += 2;
        isIn = isIn || (lowest <= character && character <= m_pattern[place]);
    }
    return false;
}

} // namespace ReportTool
