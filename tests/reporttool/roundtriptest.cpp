#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace {

using ToolTest::Scratch;
using ToolTest::ToolRun;

#ifdef Q_OS_WIN
/// Lines of text, and those of a saved report, end by two bytes on Windows. Takes the first of them away.
void ExpectLinesOfWindows(QByteArray& text)
{
    EXPECT_EQ(text.count('\n'), text.count("\r\n"));
    text.replace("\r\n", "\n");
}
#endif

ToolRun RunRoundTrip(const QStringList& paths)
{
    ToolRun run = ToolTest::RunProgram(QStringLiteral(REPORTGENERATOR_TEST_ROUNDTRIP), paths, {});
#ifdef Q_OS_WIN
    ExpectLinesOfWindows(run.output);
    ExpectLinesOfWindows(run.errors);
#endif
    return run;
}

/// The size of a saved report whose text has that size and so many lines.
int SavedSize(int textSize, int lines)
{
#ifdef Q_OS_WIN
    return textSize + lines;
#else
    Q_UNUSED(lines)
    return textSize;
#endif
}

TEST(RoundTripExample, TakesAReportDownTheWholeRoad)
{
    // Plain: 46 bytes of marker and object name, and 8 each of root, frequency and value in front of a size
    // and "1.00". XML: three lines, each behind a line feed.
    const Scratch scratch;
    const QString path = scratch.Write("a.xml", "<ReportBase><Frequency>1</Frequency></ReportBase>");
    const ToolRun run = RunRoundTrip({path});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "");
    const QStringList lines = run.Output().split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 7);
    EXPECT_TEXT(lines.at(0), "report  form            bytes  equal");
    EXPECT_TEXT(lines.at(1), "a.xml   XML, loaded        49  -");
    EXPECT_TEXT(lines.at(2), "a.xml   plain              78  yes");
    EXPECT_TRUE(lines.at(3).startsWith(QStringLiteral("a.xml   compressed  ")));
    EXPECT_TRUE(lines.at(3).endsWith(QStringLiteral("  yes")));
    EXPECT_TEXT(lines.at(4), "a.xml   binary file        82  yes");
    EXPECT_TEXT(lines.at(5), QStringLiteral("a.xml   XML                %1  yes").arg(SavedSize(59, 3)));
}

TEST(RoundTripExample, PrintsWhatTheReadmeShows)
{
    const QString examples = QStringLiteral(REPORTGENERATOR_TEST_EXAMPLES);
    QFile readme(examples + QStringLiteral("/../README.md"));
    ASSERT_TRUE(readme.open(QIODevice::ReadOnly | QIODevice::Text));
    const QString page = QString::fromUtf8(readme.readAll());
    const auto start = page.indexOf(QStringLiteral("\nreport "));
    QStringList shown = page.mid(start + 1, page.indexOf(QStringLiteral("\n...\n"), start) - start - 1)
                            .split(QLatin1Char('\n'));
    ASSERT_EQ(shown.size(), 6);

    QStringList paths;
    for (const QString& name :
         QDir(examples + QStringLiteral("/reports")).entryList({QStringLiteral("*.xml")}))
        paths << examples + QStringLiteral("/reports/") + name;
    QStringList printed = RunRoundTrip(paths).Output().split(QLatin1Char('\n')).mid(0, shown.size());
#ifdef Q_OS_WIN
    // The saved report has one byte more for each line.
    printed.removeLast();
    shown.removeLast();
#endif
    EXPECT_EQ(printed, shown);
}

TEST(RoundTripExample, TellsWhenAFormChangesTheReport)
{
    // All forms round to hundredths.
    const Scratch scratch;
    const QString path = scratch.Write("a.xml", "<ReportBase><Frequency>1.234</Frequency></ReportBase>");
    const ToolRun run = RunRoundTrip({path});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.output.contains("a.xml   plain              78  NO\n"));
}

TEST(RoundTripExample, TellsWhatCannotBeReadAndGoesOn)
{
    const Scratch scratch;
    const QString empty = scratch.Write("empty.xml", {});
    const QString other = scratch.Write("other.xml", "<Task/>");
    const QString invalid = scratch.Write("invalid.xml", "<ReportBase><Area/></ReportBase>");
    const QString good = scratch.Write("good.xml", "<ReportBase/>");
    const QString missing = scratch.Path("missing.xml");
    const ToolRun run = RunRoundTrip({empty, other, invalid, missing, good});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(),
                QStringLiteral("roundtrip: %1: RGException: Premature end of document.\n"
                               "roundtrip: %2: RGException: there is no report in it\n"
                               "roundtrip: %3: OutOfRangeException: Area: Please set Name properly.\n"
                               "roundtrip: %4: RGException: Can't open file for reading: '%4'\n")
                    .arg(empty, other, invalid, missing));
    EXPECT_TRUE(run.Output().contains(
        QStringLiteral("good.xml     XML                %1  yes\n").arg(SavedSize(14, 1))))
        << run.output.toStdString();
}

TEST(RoundTripExample, AsksForReportsWhenThereAreNone)
{
    const ToolRun run = RunRoundTrip({});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "Usage: roundtrip REPORT.xml...\n");
}

} // namespace
