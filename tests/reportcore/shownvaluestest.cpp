// How values are shown in the lines of problems.

#include "support/expect.h"

#include <reportcore/problem.h>

#include <gtest/gtest.h>

namespace {

QString Shown(const QString& value)
{
    ReportCore::Problem problem;
    problem.value = value;
    return ReportCore::FieldText(problem);
}

TEST(ShownValues, LongOnesAreCutBehindEightyCharacters)
{
    const QString eighty(80, QLatin1Char('a'));
    EXPECT_TEXT(Shown(eighty), QLatin1Char('"') + eighty + QLatin1Char('"'));
    EXPECT_TEXT(Shown(eighty + QLatin1Char('b')), QLatin1Char('"') + eighty + QStringLiteral("\"..."));
}

TEST(ShownValues, CharacterOfTwoUnitsCountsOnceAndStaysWhole)
{
    const QString antenna = QStringLiteral("\U0001F4E1");
    const QString almost(79, QLatin1Char('a'));
    EXPECT_TEXT(Shown(almost + antenna), QLatin1Char('"') + almost + antenna + QLatin1Char('"'));
    EXPECT_TEXT(Shown(almost + antenna + antenna),
                QLatin1Char('"') + almost + antenna + QStringLiteral("\"..."));
    EXPECT_TEXT(Shown(antenna.repeated(80)), QLatin1Char('"') + antenna.repeated(80) + QLatin1Char('"'));
}

TEST(ShownValues, HalfOfAPairIsACharacter)
{
    const QString half(QChar(0xD83D));
    EXPECT_TEXT(Shown(QString(79, QLatin1Char('a')) + half + QLatin1Char('b')),
                QLatin1Char('"') + QString(79, QLatin1Char('a')) + QStringLiteral("\\ud83d\"..."));
}

} // namespace
