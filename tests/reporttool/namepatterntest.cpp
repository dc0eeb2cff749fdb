// Patterns for the names of files.

#include <reporttool/namepattern.h>

#include <gtest/gtest.h>

namespace {

void ExpectFit(const char* pattern, const char* name, bool fits)
{
    EXPECT_EQ(ReportTool::NamePattern(QString::fromUtf8(pattern)).Fits(QString::fromUtf8(name)), fits)
        << pattern << " and " << name;
}

TEST(NamePattern, CharactersStandForThemselves)
{
    ExpectFit("a.xml", "a.xml", true);
    ExpectFit("a.xml", "a.xm", false);
    ExpectFit("a.xml", "a.xml2", false);
    ExpectFit("a.xml", "axxml", false);
    ExpectFit("a b;c", "a b;c", true);
    ExpectFit("a b", "a", false);
    ExpectFit("", "", true);
    ExpectFit("", "a", false);
}

TEST(NamePattern, StarStandsForAnyCharacters)
{
    ExpectFit("*", "", true);
    ExpectFit("*", ".a", true);
    ExpectFit("*.xml", "a.xml", true);
    ExpectFit("*.xml", ".xml", true);
    ExpectFit("*.xml", "a.xml.bak", false);
    ExpectFit("*.xml", "a.xml.xml", true);
    ExpectFit("a*b*c", "a-b-b-c", true);
    ExpectFit("a*b*c", "a-c-b", false);
    ExpectFit("a**", "a", true);
    ExpectFit("*ab", "aab", true);
}

TEST(NamePattern, ManyStarsTakeNoTimeWithoutEnd)
{
    EXPECT_FALSE(ReportTool::NamePattern(QStringLiteral("*a").repeated(100) + QLatin1Char('b'))
                     .Fits(QString(5000, QLatin1Char('a'))));
}

TEST(NamePattern, QuestionMarkStandsForOneCharacter)
{
    ExpectFit("?.xml", "a.xml", true);
    ExpectFit("?.xml", ".xml", false);
    ExpectFit("?.xml", "ab.xml", false);
    ExpectFit("?.xml", "\xC3\xBC.xml", true);
    ExpectFit("?.xml", "\xF0\x9F\x93\xA1.xml", true);
    ExpectFit("??.xml", "\xF0\x9F\x93\xA1.xml", false);
}

TEST(NamePattern, BracketsStandForOneOfTheirCharacters)
{
    ExpectFit("[abc].xml", "b.xml", true);
    ExpectFit("[abc].xml", "d.xml", false);
    ExpectFit("[a-c]", "b", true);
    ExpectFit("[c-a]", "b", false);
    ExpectFit("[!a-c]", "b", false);
    ExpectFit("[!a-c]", "d", true);
    ExpectFit("[^a]", "a", false);
    ExpectFit("[]a]", "]", true);
    ExpectFit("[!]a]", "]", false);
    ExpectFit("[a-]", "-", true);
    ExpectFit("[*?]", "?", true);
    ExpectFit("[*?]", "a", false);
    ExpectFit("[a][b]", "ab", true);
    ExpectFit("x*[0-9].xml", "x-1-2.xml", true);
    ExpectFit("[!a]", "", false);
}

TEST(NamePattern, BracketThatIsNeverClosedStandsForItself)
{
    ExpectFit("[a", "[a", true);
    ExpectFit("[a", "a", false);
    ExpectFit("[]", "[]", true);
    ExpectFit("[", "[", true);
}

TEST(NamePattern, HalfOfASurrogatePairIsACharacter)
{
    // A byte that is no UTF-8.
    const QString name = QString(QChar(0xDCFC)) + QStringLiteral(".xml");
    EXPECT_TRUE(ReportTool::NamePattern(QStringLiteral("*.xml")).Fits(name));
    EXPECT_TRUE(ReportTool::NamePattern(QStringLiteral("?.xml")).Fits(name));
    EXPECT_TRUE(ReportTool::NamePattern(name).Fits(name));
    EXPECT_FALSE(ReportTool::NamePattern(name).Fits(QString(QChar(0xDCFD)) + QStringLiteral(".xml")));
}

#ifdef Q_OS_WIN
TEST(NamePattern, CaseDoesNotCountAndBackslashesStandForThemselves)
{
    ExpectFit("*.XML", "a.xml", true);
    ExpectFit("[A-C]", "b", true);
    ExpectFit("a\\*", "a\\b", true);
}
#else
TEST(NamePattern, CaseCounts)
{
    ExpectFit("*.XML", "a.xml", false);
    ExpectFit("[A-C]", "b", false);
}

TEST(NamePattern, BackslashTakesTheMeaningAway)
{
    ExpectFit("a\\*", "a*", true);
    ExpectFit("a\\*", "ab", false);
    ExpectFit("\\?", "?", true);
    ExpectFit("\\?", "a", false);
    ExpectFit("\\[a]", "[a]", true);
    ExpectFit("[\\]a]", "]", true);
    ExpectFit("\\a", "a", true);
    ExpectFit("a\\", "a\\", true);
    ExpectFit("\\\\", "\\", true);
}
#endif

} // namespace
