#include <reportgenerator/reportbase/forms/xmltools.h>

#include <reportgenerator/reportbase/forms/wirefacts.h>

#include <QtCore/QXmlStreamReader>

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

QString::const_iterator FindStart(const QString& xml, const QString& pattern)
{
    if (pattern.contains(QChar(ANY_CHARACTER)))
        return std::search(xml.cbegin(), xml.cend(), pattern.cbegin(), pattern.cend(), MatchesName);
    const auto place = xml.indexOf(pattern);
    return place < 0 ? xml.cend() : xml.cbegin() + place;
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

void ReadToName(QXmlStreamReader& reader, const QString& name)
{
    while (!reader.atEnd() && reader.name() != name)
        reader.readNext();
}

void SkipElement(QXmlStreamReader& reader)
{
    const QString name = reader.name().toString();
    reader.readNext();
    ReadToName(reader, name);
}

} // namespace REPORTGENERATOR::xmltools
