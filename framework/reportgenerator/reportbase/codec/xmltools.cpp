#include <reportgenerator/reportbase/codec/xmltools.h>

#include <reportgenerator/reportbase/codec/buffer.h>
#include <reportgenerator/reportbase/codec/wireformat.h>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#    include <QtCore/QRegExp>
#else
#    include <QtCore/QRegularExpression>
#endif

#include <algorithm>

namespace REPORTGENERATOR::xmltools {

namespace {

// The full stop is the only character of element names that means something in a regular expression: any
// character.
constexpr char16_t ANY_CHARACTER = u'.';

/// Characters that mean something in a regular expression. A name with one of them cannot be an element's.
constexpr Name SPECIAL_CHARACTERS = REPORTBASE_NAME("\\^$*+?()[]{}|");

/// So many characters are looked at together.
constexpr int BLOCK = 64;

constexpr QLatin1Char ALTERNATIVE = QLatin1Char('|');

bool ContainsSpecialCharacter(const QString& name)
{
    return std::any_of(name.cbegin(), name.cend(),
                       [](QChar c) { return SPECIAL_CHARACTERS.Latin1().contains(c); });
}

bool MatchesName(QChar character, QChar pattern)
{
    return pattern.unicode() == ANY_CHARACTER || character == pattern;
}

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
bool Matches(const QString& xml, const QString& pattern)
{
    return xml.contains(QRegExp(pattern));
}
#else
/// Of Perl's dialect, which takes some names for a regular expression that the older one refused.
bool Matches(const QString& xml, const QString& pattern)
{
    const QRegularExpression expression(pattern, QRegularExpression::DotMatchesEverythingOption);
    return expression.isValid() && expression.match(xml).hasMatch();
}
#endif

bool MatchesExpression(const QString& xml, const QString& name)
{
    // A match ends with a '>' unless the name has alternatives. What stands behind the last one would be
    // searched anew from each start tag.
    const bool endsWithTag = !name.contains(ALTERNATIVE);
    const QString searched = endsWithTag ? xml.left(xml.lastIndexOf(QLatin1Char('>')) + 1) : xml;
    return Matches(searched, QStringLiteral("<%1([^>]*)?/?>").arg(name));
}

/// Whether the pattern may begin in the block: whether its first two characters and its last one stand in
/// their places somewhere. Of the form that compilers turn into few instructions for many characters.
bool MayBeginInBlock(const ushort* block, const QString& pattern)
{
    const ushort* const units = UnitsOf(pattern);
    const ushort first = units[0];
    const ushort second = units[1];
    const ushort last = units[pattern.size() - 1];
    const ushort* const ends = block + pattern.size() - 1;
    ushort found = 0;
    for (int i = 0; i < BLOCK; ++i) {
        const bool isHere = (block[i] == first) & (block[i + 1] == second) & (ends[i] == last);
        found = static_cast<ushort>(found | static_cast<ushort>(isHere));
    }
    return found != 0;
}

/// Where the pattern begins for the first time; the end of the text if it doesn't.
QString::const_iterator FindStart(const QString& xml, const QString& pattern)
{
    const auto search = [&pattern](QString::const_iterator begin, QString::const_iterator end) {
        return std::search(begin, end, pattern.cbegin(), pattern.cend(), MatchesName);
    };
    auto next = xml.cbegin();
    if (pattern.size() < 2 || pattern.contains(QChar(ANY_CHARACTER)))
        return search(next, xml.cend());
    for (; xml.cend() - next >= BLOCK + pattern.size(); next += BLOCK) {
        if (!MayBeginInBlock(reinterpret_cast<const ushort*>(next), pattern))
            continue;
        const auto blockEnd = next + BLOCK + pattern.size() - 1;
        const auto found = search(next, blockEnd);
        if (found != blockEnd)
            return found;
    }
    return search(next, xml.cend());
}

} // namespace

bool MayContainElement(const QString& xml, const QString& name)
{
    if (ContainsSpecialCharacter(name))
        return MatchesExpression(xml, name);
    const QString pattern = QLatin1Char('<') + name;
    const auto start = FindStart(xml, pattern);
    // A '>' behind the first place serves every later one too.
    return start != xml.cend() &&
           std::find(start + pattern.size(), xml.cend(), QLatin1Char('>')) != xml.cend();
}

QString VersionAttribute(const QXmlStreamReader& reader)
{
    return reader.attributes().value(wire::VERSION_ATTRIBUTE.Latin1()).toString();
}

bool ReadNext(QXmlStreamReader& reader)
{
    return !reader.atEnd() && reader.readNext() != QXmlStreamReader::Invalid;
}

void ReadToName(QXmlStreamReader& reader, const QString& name)
{
    while (reader.name() != name && ReadNext(reader)) {
    }
}

void SkipElement(QXmlStreamReader& reader)
{
    const QString name = reader.name().toString();
    if (ReadNext(reader))
        ReadToName(reader, name);
}

} // namespace REPORTGENERATOR::xmltools
