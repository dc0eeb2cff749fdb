#include "support/expect.h"

#include <reportviewer/textrows.h>

#include <gtest/gtest.h>

namespace {

using ReportViewer::TextRows;

/// A character that takes two units.
QString Globe()
{
    return QString::fromUtf8("\xF0\x9F\x8C\x90");
}

TEST(TextColumns, AreCountedInTheLineOfThePlace)
{
    const QString text = QStringLiteral("ab\n") + Globe() + QStringLiteral("cd\n\n");
    const TextRows rows(text);
    EXPECT_EQ(rows.ColumnOf(text, 0), 1);
    EXPECT_EQ(rows.ColumnOf(text, 1), 2);
    EXPECT_EQ(rows.ColumnOf(text, 2), 3);
    EXPECT_EQ(rows.ColumnOf(text, 3), 1);
    EXPECT_EQ(rows.ColumnOf(text, 5), 2);
    EXPECT_EQ(rows.ColumnOf(text, 6), 3);
    EXPECT_EQ(rows.ColumnOf(text, 8), 1);
    EXPECT_EQ(rows.ColumnOf(text, text.size()), 1);
}

TEST(TextColumns, GoOnInTheRowsOfALongLine)
{
    // The globe is the 120th character and belongs to the first row, with both of its units.
    const QString text = QStringLiteral("a\n") + QString(119, QLatin1Char('x')) + Globe() +
                         QString(200, QLatin1Char('y')) + QStringLiteral("\nz");
    const TextRows rows(text);
    const struct
    {
        qint64 place;
        qint64 line;
        qint64 column;
    } places[] = {{2, 2, 1},     {120, 2, 119}, {121, 2, 120}, {123, 2, 121}, {242, 2, 240},
                  {243, 2, 241}, {322, 2, 320}, {323, 2, 321}, {324, 3, 1},   {325, 3, 2}};
    for (const auto& each : places) {
        EXPECT_EQ(rows.LineOf(each.place), each.line) << each.place;
        EXPECT_EQ(rows.ColumnOf(text, each.place), each.column) << each.place;
        EXPECT_EQ(rows.PlaceOf(text, each.line, each.column), each.place);
    }
    // Columns behind the end of a line count on behind it.
    EXPECT_EQ(rows.PlaceOf(text, 1, 4), 3);
    EXPECT_EQ(rows.PlaceOf(text, 2, 1000), 325);
}

} // namespace
