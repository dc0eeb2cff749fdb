#include <reportgenerator/reportbase/xmltools_p.h>

#include <reportgenerator/reportbase/xmlnames_p.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QXmlStreamReader>

#include <algorithm>

namespace REPORTGENERATOR::xmltools {

namespace {

// The full stop is the only character of element names that means something in a regular expression: any
// character.
constexpr char16_t ANY_CHARACTER = u'.';

/// Characters that mean something in a regular expression. A name with one of them cannot be an element's.
constexpr Name SPECIAL_CHARACTERS = REPORTBASE_NAME("\\^$*+?()[]{}|");

/// Those of them that let the expression's rest take part in what the name matches.
constexpr Name REACHING_CHARACTERS = REPORTBASE_NAME("\\$|");

bool ContainsAny(const QString& name, const Name& characters)
{
    return std::any_of(name.cbegin(), name.cend(), [&](QChar c) { return characters.Latin1().contains(c); });
}

bool MatchesName(QChar character, QChar pattern)
{
    return pattern.unicode() == ANY_CHARACTER || character == pattern;
}

bool Matches(const QString& xml, const QString& pattern)
{
    const QRegularExpression expression(pattern, QRegularExpression::DotMatchesEverythingOption);
    return expression.isValid() && expression.match(xml).hasMatch();
}

bool MatchesExpression(const QString& xml, const QString& name)
{
    if (ContainsAny(name, REACHING_CHARACTERS))
        return Matches(xml, QStringLiteral("<%1([^>]*)?/?>").arg(name));
    // The rest of the expression asks for any '>' behind the name; asked by itself it would look for one at
    // each place.
    const auto last = xml.lastIndexOf(QLatin1Char('>'));
    return last >= 0 && Matches(xml.left(last), QLatin1Char('<') + name);
}

} // namespace

bool MayContainElement(const QString& xml, const QString& name)
{
    if (ContainsAny(name, SPECIAL_CHARACTERS))
        return MatchesExpression(xml, name);
    const QString pattern = QLatin1Char('<') + name;
    const auto start = std::search(xml.cbegin(), xml.cend(), pattern.cbegin(), pattern.cend(), MatchesName);
    // A '>' behind the first place serves every later one too.
    return start != xml.cend() &&
           std::find(start + pattern.size(), xml.cend(), QLatin1Char('>')) != xml.cend();
}

QString VersionAttribute(const QXmlStreamReader& reader)
{
    return reader.attributes().value(VERSION_ATTRIBUTE.Latin1()).toString();
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
