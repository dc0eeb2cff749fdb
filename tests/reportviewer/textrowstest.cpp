#include <reportviewer/textrows.h>

#include <gtest/gtest.h>

namespace {

using ReportViewer::Span;
using ReportViewer::TextRows;

void ExpectSpan(const Span& span, qint64 begin, qint64 end)
{
    EXPECT_EQ(span.begin, begin);
    EXPECT_EQ(span.end, end);
}

TEST(TextRows, EachLineIsARow)
{
    const TextRows rows(QStringLiteral("one\n\nthree"));
    ASSERT_EQ(rows.Count(), 3);
    ExpectSpan(rows.SpanOf(0), 0, 4);
    ExpectSpan(rows.SpanOf(1), 4, 5);
    ExpectSpan(rows.SpanOf(2), 5, 10);
    EXPECT_EQ(rows.RowOf(3), 0);
    EXPECT_EQ(rows.RowOf(4), 1);
    EXPECT_EQ(rows.RowOf(9), 2);
    EXPECT_EQ(rows.LineOf(4), 2);
    EXPECT_EQ(rows.LineOf(9), 3);
}

TEST(TextRows, ALongLineTakesSeveralRows)
{
    const TextRows rows(QString(250, QLatin1Char('x')) + QStringLiteral("\ny"));
    ASSERT_EQ(rows.Count(), 4);
    ExpectSpan(rows.SpanOf(0), 0, 120);
    ExpectSpan(rows.SpanOf(1), 120, 240);
    ExpectSpan(rows.SpanOf(2), 240, 251);
    ExpectSpan(rows.SpanOf(3), 251, 252);
    EXPECT_TRUE(rows.BeginsLine(0));
    EXPECT_FALSE(rows.BeginsLine(1));
    EXPECT_TRUE(rows.BeginsLine(3));
    EXPECT_EQ(rows.LineOf(245), 1);
    EXPECT_EQ(rows.LineOf(251), 2);
}

TEST(TextRows, ALineThatJustFitsTakesOneRow)
{
    EXPECT_EQ(TextRows(QString(120, QLatin1Char('x'))).Count(), 1);
    EXPECT_EQ(TextRows(QString(120, QLatin1Char('x')) + QLatin1Char('\n')).Count(), 2);
    EXPECT_EQ(TextRows(QString(121, QLatin1Char('x'))).Count(), 2);
}

TEST(TextRows, NoCharacterIsTornApart)
{
    // U+1F310 takes two units, of which the second would be the first of the next row.
    const TextRows rows(QString(119, QLatin1Char('x')) + QString::fromUtf8("\xF0\x9F\x8C\x90") +
                        QStringLiteral("yz"));
    ASSERT_EQ(rows.Count(), 2);
    ExpectSpan(rows.SpanOf(0), 0, 121);
    ExpectSpan(rows.SpanOf(1), 121, 123);
}

TEST(TextRows, PlacesCountCharactersOfALine)
{
    const QString text = QString::fromUtf8("ab\n\xF0\x9F\x8C\x90"
                                           "cd");
    const TextRows rows(text);
    EXPECT_EQ(rows.PlaceOf(text, 1, 1), 0);
    EXPECT_EQ(rows.PlaceOf(text, 1, 2), 1);
    EXPECT_EQ(rows.PlaceOf(text, 2, 1), 3);
    EXPECT_EQ(rows.PlaceOf(text, 2, 2), 5);
    EXPECT_EQ(rows.PlaceOf(text, 2, 3), 6);
    EXPECT_EQ(rows.PlaceOf(text, 2, 99), 7);
    EXPECT_EQ(rows.PlaceOf(text, 9, 1), 7);
}

TEST(TextRows, AnEmptyTextIsAnEmptyRow)
{
    const TextRows rows{QString()};
    ASSERT_EQ(rows.Count(), 1);
    ExpectSpan(rows.SpanOf(0), 0, 0);
    EXPECT_EQ(rows.RowOf(0), 0);
}

} // namespace
