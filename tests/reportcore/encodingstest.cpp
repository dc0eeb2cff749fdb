// XML in UTF-16 and UTF-32, with and without byte order mark.

#include "support/expect.h"

#include <reportcore/form.h>
#include <reportcore/lint.h>
#include <reportcore/reportfile.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <algorithm>

namespace {

using ReportCore::FindLint;
using ReportCore::Look;
using ReportCore::ReadReport;
using ReportCore::ReportFile;

/// How wide the units are and in which order their bytes come.
struct Units
{
    const char* name;
    int size;
    bool isLowestFirst;
};

constexpr Units ALL_UNITS[] = {
    {"UTF-16LE", 2, true}, {"UTF-16BE", 2, false}, {"UTF-32LE", 4, true}, {"UTF-32BE", 4, false}};

/// Without characters that take two units of UTF-16.
QByteArray Encoded(const QString& text, const Units& units)
{
    QByteArray bytes;
    for (const QChar character : text) {
        QByteArray unit(units.size, '\0');
        unit[0] = static_cast<char>(character.unicode() & 0xFFU);
        unit[1] = static_cast<char>(character.unicode() >> 8U);
        if (!units.isLowestFirst)
            std::reverse(unit.begin(), unit.end());
        bytes += unit;
    }
    return bytes;
}

/// Problems and lint, a line each.
QString ToldOf(const QByteArray& bytes)
{
    const ReportFile file = ReadReport(bytes);
    QStringList lines;
    for (const ReportCore::Problem& problem : file.problems)
        lines << ReportCore::ProblemLine(problem);
    for (const ReportCore::Problem& warning : FindLint(bytes, file, Look::Thorough))
        lines << ReportCore::ProblemLine(warning);
    return lines.join(QLatin1Char('\n'));
}

QString WithoutDeclaration()
{
    return QStringLiteral(
        "<ReportBase>\n<Frequency>1</Frequency>\n<IFBandwidth>\u00FC</IFBandwidth></ReportBase>");
}

/// A declaration ends in front of the first line.
QString Declared(const QString& encoding)
{
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?>").arg(encoding) + WithoutDeclaration();
}

constexpr char TOLD[] =
    "3:14: NotANumber: value is no number and reads as 0 (ifBandwidth.value = \"\u00FC\")";

/// Two lines, then the bytes, in the encoding with this name or with the mark in front.
QByteArray OnTheThirdLine(const QByteArray& begin, const QByteArray& bytes)
{
    return begin + "<ReportBase>\n<!-- ok -->\n<Area><Name>Z" + bytes + "rich</Name></Area></ReportBase>";
}

TEST(Encodings, ThePlaceOfAWrongByteIsThatByte)
{
    const QString told = QStringLiteral("3:14: RGException: Encountered incorrectly encoded content.");
    EXPECT_EQ(ToldOf(OnTheThirdLine({}, "\xfc")), told);
    EXPECT_EQ(ToldOf(OnTheThirdLine("\xef\xbb\xbf", "\xfc")), told);
    EXPECT_EQ(ToldOf(OnTheThirdLine("<?xml version='1.0' encoding='utf-8'?>", "\xed\xa0\x80")), told);
    // What stands for such bytes may stand there by itself, and characters may take several units.
    EXPECT_EQ(ToldOf(OnTheThirdLine({}, "\xef\xbf\xbd\xf0\x9f\x98\x80\xfc")),
              QStringLiteral("3:16: RGException: Encountered incorrectly encoded content."));
}

TEST(Encodings, PlacesAreThoseOfCharactersWithoutMarkAndDeclaration)
{
    for (const Units& units : ALL_UNITS) {
        SCOPED_TRACE(units.name);
        EXPECT_TEXT(ToldOf(Encoded(WithoutDeclaration(), units)), QString::fromUtf8(TOLD));
        EXPECT_TEXT(ToldOf(Encoded(QLatin1String(" \n") + WithoutDeclaration(), units)),
                    QString::fromUtf8(TOLD).replace(0, 1, QStringLiteral("4")));
    }
}

TEST(Encodings, DeclarationNeedsNoMark)
{
    for (const Units& units : ALL_UNITS) {
        SCOPED_TRACE(units.name);
        const QString name = QLatin1String(units.name);
        EXPECT_TEXT(ToldOf(Encoded(Declared(name), units)), QString::fromUtf8(TOLD));
        EXPECT_TEXT(ToldOf(Encoded(Declared(name.left(6)), units)), QString::fromUtf8(TOLD));
    }
}

TEST(Encodings, MarkChangesNothing)
{
    for (const Units& units : ALL_UNITS) {
        SCOPED_TRACE(units.name);
        const QString name = QLatin1String(units.name);
        const QChar mark(0xFEFF);
        EXPECT_TEXT(ToldOf(Encoded(mark + WithoutDeclaration(), units)), QString::fromUtf8(TOLD));
        EXPECT_TEXT(ToldOf(Encoded(mark + Declared(name.left(6)), units)), QString::fromUtf8(TOLD));
    }
}

TEST(Encodings, ReaderGetsAMarkWhereCharactersAreWideOnly)
{
    const auto forReader = [](const QString& text, const Units& units) {
        return ReportCore::ForXmlReader(Encoded(text, units));
    };
    for (const Units& units : ALL_UNITS) {
        SCOPED_TRACE(units.name);
        const QByteArray marked = Encoded(QChar(0xFEFF) + WithoutDeclaration(), units);
        EXPECT_EQ(forReader(WithoutDeclaration(), units), marked);
        EXPECT_EQ(ReportCore::ForXmlReader(marked), marked);
    }
    const QByteArray utf8 = WithoutDeclaration().toUtf8();
    EXPECT_EQ(ReportCore::ForXmlReader(utf8), utf8);
    EXPECT_EQ(ReportCore::ForXmlReader("\xEF\xBB\xBF" + utf8), "\xEF\xBB\xBF" + utf8);
}

} // namespace
