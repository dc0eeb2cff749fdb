#include "samples.h"
#include "toolrun.h"

#include "support/vectors.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>

namespace {

using ToolTest::FullCompressed;
using ToolTest::FullPlain;
using ToolTest::FullXml;
using ToolTest::InFile;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char TRY_HELP[] = "\nTry 'reporttool --help'.";

ToolRun RunIn(const Scratch& scratch, ToolTest::Arguments arguments)
{
    return RunTool(arguments, {{}, scratch.Folder(), {}});
}

/// A folder "to", and two reports beside it.
void MakeReports(const Scratch& scratch)
{
    EXPECT_TRUE(QDir(scratch.Folder()).mkdir(QStringLiteral("to")));
    scratch.Write("a.xml", FullXml());
    scratch.Write("b.c.bin", FullCompressed());
}

// --- Into a folder

TEST(ToolConvertMany, EachReportGetsAFileOfItsName)
{
    const Scratch scratch;
    MakeReports(scratch);
    const ToolRun run = RunIn(scratch, {"convert", "a.xml", "b.c.bin", "to", "--to", "plain"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "2 files: 2 written, 0 refused, 0 unusable\n");
    EXPECT_EQ(scratch.Read("to/a.plain"), FullPlain());
    EXPECT_EQ(scratch.Read("to/b.c.plain"), FullPlain());
    EXPECT_EQ(QDir(scratch.Path("to")).entryList(QDir::Files).size(), 2);
}

TEST(ToolConvertMany, SuffixIsThatOfTheForm)
{
    const Scratch scratch;
    MakeReports(scratch);
    for (const char* form : {"xml", "plain", "compressed", "file", "json"})
        EXPECT_EQ(RunIn(scratch, {"convert", "a.xml", "to/", "--to", form}).exitCode, 0) << form;
    EXPECT_EQ(RunIn(scratch, {"convert", "b.c.bin", "to/", "--to", "file", "--level", "9"}).exitCode, 0);
    EXPECT_EQ(QDir(scratch.Path("to")).entryList(QDir::Files, QDir::Name).join(QLatin1Char(' ')),
              QStringLiteral("a.compressed a.file a.json a.plain a.xml b.c.file"));
}

TEST(ToolConvertMany, FoldersAndListsNameReports)
{
    const Scratch scratch;
    MakeReports(scratch);
    scratch.Write("list", "a.xml\n");
    EXPECT_EQ(RunIn(scratch, {"convert", "to", "--files-from", "list", "--to", "plain"}).exitCode, 0);
    EXPECT_EQ(scratch.Read("to/a.plain"), FullPlain());
    EXPECT_EQ(RunIn(scratch, {"convert", "-r", "--pattern", "*.bin", ".", "to", "--to", "plain"}).exitCode,
              0);
    EXPECT_EQ(scratch.Read("to/b.c.plain"), FullPlain());
}

TEST(ToolConvertMany, WhatCannotBeConvertedDoesNotKeepTheOthersBack)
{
    const Scratch scratch;
    MakeReports(scratch);
    scratch.Write("bad", "x");
    const ToolRun run = RunIn(scratch, {"convert", "missing", "bad", "a.xml", "to", "--to", "plain"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Errors(), "reporttool: missing: no such file\n"
                              "reporttool: bad: UnknownForm: not a report in any known form\n"
                              "3 files: 1 written, 1 refused, 1 unusable\n");
    EXPECT_EQ(scratch.Read("to/a.plain"), FullPlain());
    EXPECT_EQ(RunIn(scratch, {"convert", "bad", "a.xml", "to", "--to", "plain"}).exitCode, 1);
}

TEST(ToolConvertMany, TwoFilesOfOneNameAreRefusedBeforehand)
{
    const Scratch scratch;
    MakeReports(scratch);
    EXPECT_UNUSABLE(RunIn(scratch, {"convert", "a.xml", "./a.bin", "to", "--to", "plain"}),
                    QStringLiteral("a.xml and ./a.bin would both become to/a.plain") +
                        QLatin1String(TRY_HELP));
    EXPECT_UNUSABLE(RunIn(scratch, {"convert", "a.xml", "-", "to", "--to", "plain"}),
                    QStringLiteral("standard input has no name for a file in a folder") +
                        QLatin1String(TRY_HELP));
    EXPECT_UNUSABLE(RunIn(scratch, {"convert", "a.xml", "b.c.bin", "new", "--to", "plain"}),
                    "new: no such folder");
    EXPECT_EQ(scratch.Names().size(), 3);
}

// --- JSON

TEST(ToolConvertJson, IsWhatShowWrites)
{
    const Scratch scratch;
    MakeReports(scratch);
    EXPECT_EQ(RunIn(scratch, {"convert", "a.xml", "a.json", "--to", "json"}).exitCode, 0);
    EXPECT_EQ(scratch.Read("a.json"), RunIn(scratch, {"show", "--json", "a.xml"}).output);
}

TEST(ToolConvertJson, WhatIsShownCanBeWrittenAgain)
{
    const Scratch scratch;
    const QByteArray xml = "\n" + FullXml().trimmed();
    int rounds = 0;
    for (const QByteArray& report : {FullPlain(), FullCompressed(), InFile(FullPlain())}) {
        scratch.Write("in", report);
        scratch.Write("json", RunIn(scratch, {"show", "--json", "in"}).output);
        const ToolRun run = RunIn(scratch, {"convert", "--from", "json", "json", "out"});
        EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
        // zlib's level isn't known of compressed data, only what they hold.
        const bool isCompressed = report == FullCompressed();
        EXPECT_EQ(
            RunIn(scratch, {"convert", "out", "again", "--to", isCompressed ? "plain" : "file"}).exitCode, 0);
        if (!isCompressed)
            EXPECT_EQ(scratch.Read("out"), report);
        else
            EXPECT_EQ(scratch.Read("again"), FullPlain());
        ++rounds;
    }
    EXPECT_EQ(rounds, 3);
}

TEST(ToolConvertJson, EveryGoodVectorComesBackWithTheSameBytes)
{
    const Scratch scratch;
    int count = 0;
    for (const QString& path : Support::VectorFiles()) {
        const bool isPlain = path.startsWith(QLatin1String("reportbase/")) &&
                             path.endsWith(QLatin1String(".hex")) &&
                             !path.endsWith(QLatin1String(".raw.hex"));
        if (!isPlain)
            continue;
        scratch.Write("in", Support::LoadVector(path).Data());
        // What the library writes of it: older versions are written as the present one.
        if (RunIn(scratch, {"convert", "in", "plain", "--to", "plain"}).exitCode != 0)
            continue;
        EXPECT_EQ(RunIn(scratch, {"convert", "plain", "json", "--to", "json"}).exitCode, 0)
            << path.toStdString();
        const ToolRun run = RunIn(scratch, {"convert", "--from", "json", "json", "out"});
        EXPECT_EQ(run.exitCode, 0) << path.toStdString() << run.errors.toStdString();
        EXPECT_EQ(scratch.Read("out"), scratch.Read("plain")) << path.toStdString();
        ++count;
    }
    EXPECT_GT(count, 2);
}

TEST(ToolConvertJson, PeopleMayWriteOnlyWhatTheyWant)
{
    const Scratch scratch;
    scratch.Write("json", "{\"frequency\": {\"value\": 121.5e6, \"use\": true}, \"area\": {\"name\": \"A\", "
                          "\"coordinates\": [{\"longitude\": 9.5, \"latitude\": 47.5}]}}");
    EXPECT_EQ(RunIn(scratch, {"convert", "--from", "json", "json", "out"}).exitCode, 0);
    scratch.Write(
        "expected",
        "<ReportBase><Frequency Use=\"true\">121500000</Frequency><Area Version=\"1.0\"><Name>A</Name>"
        "<Coordinate><Longitude>9.5</Longitude><Latitude>47.5</Latitude></Coordinate></Area></ReportBase>");
    const ToolRun diff = RunIn(scratch, {"diff", "out", "expected"});
    EXPECT_TEXT(diff.Output(), "");
    EXPECT_EQ(diff.exitCode, 0);
    EXPECT_TRUE(scratch.Read("out").contains("<ReportBase>"));
}

TEST(ToolConvertJson, WhatIsNoReportIsRefusedInWords)
{
    const struct
    {
        const char* json;
        const char* text;
    } rows[] = {{"{", "unterminated object at offset 1"},
                {"[]", "one report is expected, not 0"},
                {"[{}, {}]", "one report is expected, not 2"},
                {"[1]", "one report is expected, not 1"},
                {"[{\"error\": \"no such file\"}]", "there is no report: no such file"},
                {"[{\"valid\": false}]", "the report was not valid"},
                {"[{\"form\": \"unknown\"}]", "form: no form is called so"},
                {"[{\"frequancy\": null}]", "frequancy: there is no such field"},
                {"[{\"frequency\": 5}]", "frequency: an object is expected"},
                {"[{\"frequency\": {\"value\": \"5\"}}]", "frequency.value: a number is expected"},
                {"[{\"frequency\": {\"use\": 1}}]", "frequency.use: true or false is expected"},
                {"[{\"frequency\": {\"bounds\": null}}]", "frequency.bounds: there is no such field"},
                {"[{\"area\": {\"name\": 5}}]", "area.name: a text is expected"},
                {"[{\"area\": {\"coordinates\": {}}}]", "area.coordinate: an array is expected"},
                {"[{\"area\": {\"coordinates\": [5]}}]", "area.coordinate[1]: an object is expected"},
                {"[{\"area\": {\"coordinates\": [{\"latitude\": 91}]}}]",
                 "area.coordinate[1].latitude: OutOfRangeException: Parameters for m_latitude are not set "
                 "within range "
                 "(-90, 90) in 'Coordinate'."}};
    for (const auto& row : rows) {
        const Scratch scratch;
        scratch.Write("json", row.json);
        const ToolRun run = RunIn(scratch, {"convert", "--from", "json", "json", "out", "--to", "xml"});
        EXPECT_EQ(run.exitCode, 1) << row.json;
        EXPECT_TEXT(run.Errors(), QStringLiteral("reporttool: json: %1\n").arg(QString::fromUtf8(row.text)));
        EXPECT_EQ(scratch.Names(), QStringList(QStringLiteral("json"))) << row.json;
    }
}

TEST(ToolConvertJson, WhatWouldBeInvalidIsNotWritten)
{
    const Scratch scratch;
    scratch.Write("json", "{\"frequency\": {\"use\": true}}");
    const ToolRun run = RunIn(scratch, {"convert", "--from", "json", "json", "out"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(),
                "reporttool: out: OutOfRangeException: Frequency: Please set Value properly.\n");
    EXPECT_EQ(scratch.Names(), QStringList(QStringLiteral("json")));
}

} // namespace
