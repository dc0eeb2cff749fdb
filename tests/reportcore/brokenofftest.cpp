// Where problems are said to stand in XML that breaks off.

#include "support/expect.h"

#include <reportcore/lint.h>
#include <reportcore/reportfile.h>

#include <gtest/gtest.h>

#include <QtCore/QStringList>

namespace {

using ReportCore::FindLint;
using ReportCore::Look;
using ReportCore::ReadReport;

QStringList LinesOf(const ReportCore::Problems& problems)
{
    QStringList lines;
    for (const ReportCore::Problem& problem : problems)
        lines << ReportCore::ProblemLine(problem);
    return lines;
}

TEST(BrokenOff, WhatIsMissingIsToldWhereItsObjectBegins)
{
    const QStringList lines = LinesOf(
        ReadReport(
            "<ReportBase>\n<Area Version=\"1.0\">\n<Name>Lake/Name>\n<Coordinate><Longitude>8</Longitude>"
            "<Latitude>2</Latitude></Coordinate>\n</Area>\n</ReportBase>")
            .problems);
    EXPECT_TRUE(lines.contains(
        QStringLiteral("2:1: OutOfRangeException: Area: Please set Coordinate properly. (area.coordinate)")))
        << lines.join(QLatin1Char('\n')).toStdString();
}

TEST(BrokenOff, WarningsHaveThePlaceOfTheObject)
{
    // The library gives the area up behind its first point; no end tag fits any more.
    const QByteArray bytes =
        "<ReportBase>\n <Area Version=\"1.0\"><Name>A</Name>\n"
        "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>\n"
        "<Name>B/Name>\n"
        "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate></Area></ReportBase>";
    const QStringList lint = LinesOf(FindLint(bytes, ReadReport(bytes), Look::Thorough));
    EXPECT_TEXT(lint.join(QLatin1Char('\n')),
                "2:2: TooFewPoints: 1 different points surround nothing (area.coordinate)\n"
                "4:1: RepeatedElement: element 'Name' comes a second time (area.name)");
}

} // namespace
