#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::FullCompressed;
using ToolTest::FullPlain;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char FREQUENCY[] = "<ReportBase><Frequency Min=\"1.00\">5.00</Frequency></ReportBase>";
constexpr char TRY_HELP[] = "\nTry 'reporttool --help'.";

QByteArray Point(const char* longitude, const char* latitude)
{
    return QByteArray("<Coordinate><Longitude>") + longitude + "</Longitude><Latitude>" + latitude +
           "</Latitude></Coordinate>";
}

QByteArray Lake(const QByteArray& points)
{
    return "<ReportBase><Area Version=\"1.0\"><Name>Lake</Name>" + points + "</Area></ReportBase>";
}

/// What `show` says of the file, without the lines that tell of the file itself.
QString Shown(const Scratch& scratch, const char* name)
{
    const QString text = RunTool({"show", name}, {{}, scratch.Folder(), {}}).Output();
    return text.mid(text.indexOf(QLatin1String("    frequency:")));
}

ToolRun RunIn(const Scratch& scratch, ToolTest::Arguments arguments)
{
    return RunTool(arguments, {{}, scratch.Folder(), {}});
}

/// Expects that nothing was written, for this reason.
void ExpectRefused(const QByteArray& report, ToolTest::Arguments arguments, const char* line)
{
    const Scratch scratch;
    scratch.Write("in", report);
    const ToolRun run = RunIn(scratch, arguments);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), QStringLiteral("reporttool: %1\n").arg(QString::fromUtf8(line)));
    EXPECT_EQ(scratch.Names(), QStringList(QStringLiteral("in")));
}

TEST(ToolSet, SetsAndUnsetsFields)
{
    const Scratch scratch;
    scratch.Write("in", FREQUENCY);
    const ToolRun run = RunIn(scratch, {"set", "in", "frequency.value=121.5e6", "frequency.use=true",
                                        "ifBandwidth.value=25000", "--unset", "frequency.min", "-o", "out"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_TEXT(Shown(scratch, "out"), "    frequency:\n"
                                       "        value:         121500000\n"
                                       "        min:           not set\n"
                                       "        max:           not set\n"
                                       "        use:           true\n"
                                       "    IF bandwidth:\n"
                                       "        value:         25000\n"
                                       "        min:           not set\n"
                                       "        max:           not set\n"
                                       "    area:              not present\n"
                                       "    problems:          none\n");
    EXPECT_EQ(scratch.Read("in"), FREQUENCY);
}

TEST(ToolSet, KeepsTheForm)
{
    const Scratch scratch;
    for (const QByteArray& report : {FullPlain(), ToolTest::InFile(FullPlain())}) {
        scratch.Write("in", report);
        // The name is the one that it had.
        EXPECT_EQ(RunIn(scratch, {"set", "in", "area.name=Zürichsee", "-o", "out"}).exitCode, 0);
        EXPECT_EQ(scratch.Read("out"), report);
    }
    scratch.Write("in", FullCompressed());
    EXPECT_EQ(RunIn(scratch, {"set", "in", "area.name=Zürichsee", "-o", "out"}).exitCode, 0);
    EXPECT_TRUE(RunIn(scratch, {"show", "out"}).output.contains("compressed representation"));
    EXPECT_EQ(RunIn(scratch, {"diff", "in", "out"}).exitCode, 0);
}

TEST(ToolSet, ReplacesItsOwnInput)
{
    const Scratch scratch;
    scratch.Write("in", FREQUENCY);
    EXPECT_EQ(RunIn(scratch, {"set", "in", "frequency.value=6", "-o", "in"}).exitCode, 0);
    EXPECT_TEXT(QString::fromUtf8(scratch.Read("in")).trimmed(),
                "<ReportBase>\n    <Frequency Min=\"1.00\">6.00</Frequency>\n</ReportBase>");
    EXPECT_EQ(scratch.Names(), QStringList(QStringLiteral("in")));
}

TEST(ToolSet, ItemsKeepTheirNumbersUntilAllIsSet)
{
    const Scratch scratch;
    scratch.Write("in", Lake(Point("1", "1") + Point("2", "2") + Point("3", "3") + Point("4", "4")));
    EXPECT_EQ(RunIn(scratch, {"set", "in", "area.coordinate[4].latitude=4.5", "--unset", "area.coordinate[1]",
                              "--unset", "area.coordinate[3]", "-o", "out"})
                  .exitCode,
              0);
    scratch.Write("expected", Lake(Point("2", "2") + Point("4", "4.5")));
    EXPECT_EQ(RunIn(scratch, {"diff", "out", "expected"}).exitCode, 0);
}

TEST(ToolSet, ItemIsRemovedOnceHoweverOftenItIsNamed)
{
    const Scratch scratch;
    scratch.Write("in", Lake(Point("1", "1") + Point("2", "2") + Point("3", "3") + Point("4", "4")));
    EXPECT_EQ(RunIn(scratch, {"set", "in", "--unset", "area.coordinate[2]", "--unset", "area.coordinate[1]",
                              "--unset", "area.coordinates[2]", "-o", "out"})
                  .exitCode,
              0);
    scratch.Write("expected", Lake(Point("3", "3") + Point("4", "4")));
    EXPECT_EQ(RunIn(scratch, {"diff", "out", "expected"}).exitCode, 0);
}

TEST(ToolSet, FieldsOfItemsAreUnsetBeforeItemsAreRemoved)
{
    const Scratch scratch;
    scratch.Write("in", Lake(Point("1", "1") + Point("2", "2") + Point("3", "3")));
    const ToolRun run = RunIn(scratch, {"set", "in", "--unset", "area.coordinate[2]", "--unset",
                                        "area.coordinate[2].latitude", "-o", "out"});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    scratch.Write("expected", Lake(Point("1", "1") + Point("3", "3")));
    EXPECT_EQ(RunIn(scratch, {"diff", "out", "expected"}).exitCode, 0);
}

TEST(ToolSet, WhatIsNotSetCanBeUnsetAndItemsGoWithTheirList)
{
    const Scratch scratch;
    scratch.Write("in", "<ReportBase><Frequency>5.00</Frequency><Area Version=\"1.0\"><Name>Lake</Name>" +
                            Point("1", "1") + "</Area></ReportBase>");
    const ToolRun run =
        RunIn(scratch, {"set", "in", "--unset", "frequency.min", "--unset", "ifBandwidth.value", "--unset",
                        "area.coordinate[1]", "--unset", "area", "-o", "out"});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    scratch.Write("expected", "<ReportBase><Frequency>5.00</Frequency></ReportBase>");
    EXPECT_EQ(RunIn(scratch, {"diff", "out", "expected"}).exitCode, 0);
}

TEST(ToolSet, TextMayHoldSignsAndBeEmpty)
{
    const Scratch scratch;
    scratch.Write("in", Lake(Point("1", "1")));
    EXPECT_EQ(RunIn(scratch, {"set", "in", "area.name=a=b", "area.scriptId=", "-o", "out"}).exitCode, 0);
    const QString shown = Shown(scratch, "out");
    EXPECT_TRUE(shown.contains(QLatin1String("        name:          \"a=b\"\n"))) << shown.toStdString();
}

TEST(ToolSet, FrequenciesMayHaveUnits)
{
    const Scratch scratch;
    scratch.Write("in", FREQUENCY);
    EXPECT_EQ(RunIn(scratch, {"set", "in", "frequency.value=121.5MHz", "frequency.min=118 MHz",
                              "ifBandwidth.value=25 kHz", "-o", "out"})
                  .exitCode,
              0);
    scratch.Write("expected", "<ReportBase><Frequency Min=\"118000000\">121500000</Frequency>"
                              "<IFBandwidth>25000</IFBandwidth></ReportBase>");
    const ToolRun diff = RunIn(scratch, {"diff", "out", "expected"});
    EXPECT_TEXT(diff.Output(), "");
    EXPECT_EQ(diff.exitCode, 0);
}

TEST(ToolSet, WhatTheSetterRefusesIsRefused)
{
    ExpectRefused(
        Lake(Point("1", "1")), {"set", "in", "area.coordinate[1].latitude=91", "-o", "out"},
        "in: area.coordinate[1].latitude: OutOfRangeException: Parameters for m_latitude are not set "
        "within range (-90, 90) in 'Coordinate'.");
    ExpectRefused(Lake(Point("1", "1")), {"set", "in", "area.coordinate[2].latitude=9", "-o", "out"},
                  "in: area.coordinate[2].latitude: RGException: there is no area.coordinate[2].latitude");
    ExpectRefused(Lake(Point("1", "1")), {"set", "in", "--unset", "area.coordinate[2]", "-o", "out"},
                  "in: area.coordinate[2]: RGException: there is no area.coordinate[2]");
    ExpectRefused(Lake(Point("1", "1")), {"set", "in", "--unset", "area.coordinate[2].latitude", "-o", "out"},
                  "in: area.coordinate[2].latitude: RGException: there is no area.coordinate[2].latitude");
    ExpectRefused(Lake(Point("1", "1")), {"set", "in", "--unset", "area.version", "-o", "out"},
                  "in: area.version: RGException: version cannot be unset");
}

TEST(ToolSet, WhatWouldBeInvalidIsNotWritten)
{
    ExpectRefused(FREQUENCY, {"set", "in", "--unset", "frequency.value", "-o", "out"},
                  "out: OutOfRangeException: Frequency: Please set Value properly.");
}

TEST(ToolSet, MendsTheFieldThatHasAProblem)
{
    const Scratch scratch;
    scratch.Write("in", Lake(Point("1", "91")));
    const ToolRun run = RunIn(scratch, {"set", "in", "area.coordinate[1].latitude=9", "-o", "out"});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    scratch.Write("expected", Lake(Point("1", "9")));
    EXPECT_EQ(RunIn(scratch, {"diff", "out", "expected"}).exitCode, 0);
}

TEST(ToolSet, OtherProblemsKeepItFromBeingWritten)
{
    ExpectRefused(
        Lake(Point("1", "91")), {"set", "in", "area.name=Sea", "-o", "out"},
        "in:1:96: OutOfRangeException: Parameters for m_latitude are not set within range (-90, 90) in "
        "'Coordinate'. (area.coordinate[1].latitude = \"91\")");
    ExpectRefused(FullPlain() + "x", {"set", "in", "area.name=Sea", "-o", "out"},
                  "in:0x154: TrailingData: 1 bytes behind the end");
}

TEST(ToolSet, WrongUseEndsWithTwo)
{
    const Scratch scratch;
    scratch.Write("in", FREQUENCY);
    const struct
    {
        std::initializer_list<ToolTest::Argument> arguments;
        const char* text;
    } rows[] = {
        {{"set"}, "no file is given"},
        {{"set", "in", "frequency.value=1"}, "-o is missing"},
        {{"set", "in", "-o", "out"}, "there is nothing to set"},
        {{"set", "in", "frequency.value", "-o", "out"}, "'frequency.value' is no assignment: PATH=VALUE"},
        {{"set", "in", "frequency.valu=1", "-o", "out"},
         "frequency.valu: no field is called \"valu\", did you mean 'value'? There are min, max, use, value"},
        {{"set", "in", "frequency.value=high", "-o", "out"},
         "frequency.value: value is a number, not \"high\""},
        {{"set", "in", "frequency.value=nan", "-o", "out"},
         "frequency.value: value is a number, not \"nan\""},
        {{"set", "in", "frequency.min=-inf", "-o", "out"}, "frequency.min: min is a number, not \"-inf\""},
        {{"set", "in", "area.coordinate[1].latitude=5 MHz", "-o", "out"},
         "area.coordinate[1].latitude: latitude is in degrees, not in MHz"},
        {{"set", "in", "frequency.use=1", "-o", "out"}, "frequency.use: use is true or false, not \"1\""},
        {{"set", "in", "frequency=1", "-o", "out"}, "frequency: frequency is no value"},
        {{"set", "in", "area.version=1.0", "-o", "out"}, "area.version: version cannot be set"},
        {{"set", "in", "--unset", "area[1]", "-o", "out"}, "area[1]: area is no list"}};
    for (const auto& row : rows)
        EXPECT_UNUSABLE(RunIn(scratch, row.arguments), QString::fromUtf8(row.text) + QLatin1String(TRY_HELP));
    EXPECT_UNUSABLE(RunIn(scratch, {"set", "missing", "frequency.value=1", "-o", "out"}),
                    "missing: no such file");
    EXPECT_EQ(scratch.Names(), QStringList(QStringLiteral("in")));
}

#ifdef Q_OS_LINUX
TEST(ToolSet, FullDiskEndsWithTwo)
{
    const Scratch scratch;
    scratch.Write("in", FREQUENCY);
    EXPECT_UNUSABLE(RunTool({"set", "in", "frequency.value=1", "-o", "/dev/full"},
                            ToolTest::PlainLocale({}, scratch.Folder())),
                    "/dev/full: No space left on device");
    EXPECT_UNUSABLE(RunTool({"set", "in", "frequency.value=1", "-o", "/no/folder/out"},
                            ToolTest::PlainLocale({}, scratch.Folder())),
                    "/no/folder/out: No such file or directory");
}
#endif

} // namespace
